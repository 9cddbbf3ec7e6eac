#include "platform/text_reader.h"

#include <algorithm>
#include <utility>

namespace kestrava {

TextReader::TextReader(std::string bytes)
    : bytes_(std::move(bytes)), carriageReturn_(Find('\r')), lineFeed_(Find('\n')) {}

std::string_view TextReader::ReadLine() {
  const std::size_t begin = next_;
  const std::size_t end = std::min(carriageReturn_, lineFeed_);
  const bool both = end + 1 == lineFeed_;
  next_ = std::min(end + (both ? 2 : 1), bytes_.size());
  if (carriageReturn_ < next_) carriageReturn_ = Find('\r');
  if (lineFeed_ < next_) lineFeed_ = Find('\n');
  return std::string_view(bytes_).substr(begin, end - begin);
}

std::size_t TextReader::Find(char character) const {
  return std::min(bytes_.find(character, next_), bytes_.size());
}

}  // namespace kestrava
