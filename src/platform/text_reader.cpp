#include "platform/text_reader.h"

#include <algorithm>
#include <cstring>

namespace kestrava {

namespace {

constexpr char kCarriageReturn = '\r';
constexpr char kLineFeed = '\n';

/// How many bytes of `text` stand ahead of the first `character`; all of them if it isn't there.
std::size_t BytesAhead(std::string_view text, char character) {
  return std::min(text.find(character), text.size());
}

}  // namespace

bool TextReader::AtEnd() {
  GoToNextLine();
  return begin_ == end_ && !Fill();
}

std::string_view TextReader::ReadLine() {
  GoToNextLine();
  for (std::size_t searched = 0;;) {
    const std::size_t length = LengthOfLine(searched);
    if (length > kLongestLine) {
      ahead_ = Ahead::RestOfLine;
      return Take(kLongestLine + 1);
    }
    if (begin_ + length < end_) {
      const std::string_view line = Take(length);
      TakeLineEnd();
      return line;
    }
    searched = length;
    if (!Fill()) return Take(length);
  }
}

void TextReader::GoToNextLine() {
  while (ahead_ == Ahead::RestOfLine) {
    Take(LengthOfLine(0));
    if (begin_ < end_) {
      TakeLineEnd();
    } else if (!Fill()) {
      ahead_ = Ahead::Nothing;
    }
  }
  if (ahead_ == Ahead::LineFeed) {
    if ((begin_ < end_ || Fill()) && buffer_[begin_] == kLineFeed) ++begin_;
    ahead_ = Ahead::Nothing;
  }
}

/// @param searched how many of its bytes are known to hold no line end.
/// @return as much of the line as is in the buffer, in bytes.
std::size_t TextReader::LengthOfLine(std::size_t searched) const {
  const std::string_view unsearched(buffer_.data() + begin_ + searched, end_ - begin_ - searched);
  const std::size_t upToLineFeed = BytesAhead(unsearched, kLineFeed);
  return searched + BytesAhead(unsearched.substr(0, upToLineFeed), kCarriageReturn);
}

std::string_view TextReader::Take(std::size_t length) {
  const std::string_view taken(buffer_.data() + begin_, length);
  begin_ += length;
  return taken;
}

void TextReader::TakeLineEnd() {
  ahead_ = buffer_[begin_] == kCarriageReturn ? Ahead::LineFeed : Ahead::Nothing;
  ++begin_;
}

/// Reads a further chunk behind the bytes that weren't taken yet. False at the end of the file.
bool TextReader::Fill() {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  if (buffer_.size() < end_ + kChunk) buffer_.resize(2 * buffer_.size());
  const std::size_t count = Read(std::span(buffer_).subspan(end_, kChunk));
  end_ += count;
  return count > 0;
}

}  // namespace kestrava
