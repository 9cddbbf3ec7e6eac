#include "platform/win32/wide_text.h"

#include <algorithm>

#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr unsigned kWindows1252 = 1252;

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
