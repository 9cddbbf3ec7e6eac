#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace kestrava {

/// Reads a text file line by line from its start to its end. CR LF, LF and CR each end a line; the
/// last line needs no end. Bytes are bytes: nothing is decoded, a NUL is a character like others.
/// Each system derives from it and supplies the bytes.
class TextReader {
 public:
  /// The longest line that is given whole, in bytes. It bounds the memory of a reader.
  static constexpr std::size_t kLongestLine = 16 * 1024 * 1024;

  virtual ~TextReader() = default;

  /// True if there is no further line.
  /// @throws RuntimeError with the system's number if the file can't be read.
  bool AtEnd();

  /// The next line without its line end; empty at the end of the file. Of a line longer than
  /// `kLongestLine` the first `kLongestLine` + 1 bytes are given, and the rest is passed over when
  /// the next line is wanted. The text stays until the next call of a member.
  /// @throws RuntimeError as `AtEnd`.
  std::string_view ReadLine();

 protected:
  /// Puts the next bytes of the file into `buffer`, at least one unless the file is at its end.
  /// @return how many; 0 at the end.
  /// @throws RuntimeError with the system's number.
  virtual std::size_t Read(std::span<char> buffer) = 0;

 private:
  /// What stands ahead of the next line.
  enum class Ahead {
    Nothing,
    LineFeed,    ///< perhaps the LF of a CR LF
    RestOfLine,  ///< what a longest line left over, with its line end
  };

  void GoToNextLine();
  std::size_t LengthOfLine(std::size_t searched) const;
  std::string_view Take(std::size_t length);
  void TakeLineEnd();
  bool Fill();

  /// Bytes asked for at a time. It also bounds how far the search for one line end looks ahead.
  static constexpr std::size_t kChunk = 64 * 1024;

  std::vector<char> buffer_ = std::vector<char>(kChunk);
  /// The bytes that were read and not yet taken stand between these two places of the buffer.
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  Ahead ahead_ = Ahead::Nothing;
};

}  // namespace kestrava
