#include "platform/win32/wide_text.h"

#include "platform/text/decoding.h"
#include "platform/text/shown_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's texts are UTF-16");

std::wstring FromUtf16(const std::u16string& text) { return {text.begin(), text.end()}; }

}  // namespace

std::wstring ToWide(std::string_view bytes) { return FromUtf16(Decoded(bytes)); }

std::wstring ToShownLine(std::string_view bytes) { return FromUtf16(ShownLine(bytes)); }

std::wstring ToShownField(std::string_view field) { return FromUtf16(ShownField(field)); }

std::string ToBytes(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

std::string LineToBytes(std::wstring_view text) { return AsOneLine(ToBytes(text)); }

}  // namespace kestrava
