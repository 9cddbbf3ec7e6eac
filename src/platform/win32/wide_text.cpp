#include "platform/win32/wide_text.h"

#include <algorithm>

#include "platform/win32/stand_ins.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr unsigned kWindows1252 = 1252;

/// More would take the system long to lay out, and nobody reads it.
constexpr std::size_t kMostShownBytes = 2048;

// See RFC 3629, section 3, for how UTF-8 marks the first byte of a character and those after it.
constexpr unsigned kMostContinuations = 3;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

std::size_t LengthOf(char firstByte) {
  const auto byte = static_cast<unsigned char>(firstByte);
  if (byte >= 0xF0) return 4;
  if (byte >= 0xE0) return 3;
  return byte >= 0xC0 ? 2 : 1;
}

std::wstring Decode(std::string_view bytes, unsigned codePage, DWORD flags) {
  const int length = static_cast<int>(bytes.size());
  const int needed = MultiByteToWideChar(codePage, flags, bytes.data(), length, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(codePage, flags, bytes.data(), length, text.data(), needed);
  return text;
}

}  // namespace

std::wstring ToWide(std::string_view bytes) {
  if (bytes.empty()) return {};
  std::wstring text = Decode(bytes, CP_UTF8, MB_ERR_INVALID_CHARS);
  return text.empty() ? Decode(bytes, kWindows1252, 0) : text;
}

std::wstring ToShownLine(std::string_view bytes) {
  if (bytes.size() <= kMostShownBytes) return WithStandIns(ToWide(bytes));
  const std::string_view begin = WithoutCutCharacter(bytes.substr(0, kMostShownBytes));
  return WithStandIns(ToWide(begin)) + L'\x2026';
}

std::string_view WithoutCutCharacter(std::string_view text) {
  std::size_t after = 0;
  while (after < text.size() && after < kMostContinuations &&
         IsContinuation(text[text.size() - 1 - after])) {
    ++after;
  }
  if (after == text.size()) return text;
  const std::size_t start = text.size() - 1 - after;
  return LengthOf(text[start]) > after + 1 ? text.substr(0, start) : text;
}

std::string ToBytes(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

std::string LineToBytes(std::wstring_view text) {
  std::string bytes = ToBytes(text);
  std::ranges::replace_if(
      bytes, [](char byte) { return byte == '\r' || byte == '\n'; }, ' ');
  return bytes;
}

}  // namespace kestrava
