#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrava {

/// Gives the lines of a text file, whose bytes it holds, from its start to its end. CR LF, LF and
/// CR each end a line; the last line needs no end. Bytes are bytes: nothing is decoded, a NUL is a
/// character like others.
class TextReader {
 public:
  explicit TextReader(std::string bytes);

  /// True if there is no further line.
  bool AtEnd() const { return next_ == bytes_.size(); }

  /// The next line without its line end; empty at the end of the file. The text stays for as long
  /// as the reader stays where it is.
  std::string_view ReadLine();

 private:
  std::size_t Find(char character) const;

  std::string bytes_;
  std::size_t next_ = 0;  ///< where the next line begins
  // The first of each from there on, or the end of the bytes. Each is looked for again only once it
  // was passed, so that all lines together cost one walk through the bytes.
  std::size_t carriageReturn_;
  std::size_t lineFeed_;
};

}  // namespace kestrava
