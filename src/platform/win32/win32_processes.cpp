#include "platform/win32/win32_processes.h"

#include <array>
#include <cstring>

#include "platform/win32/owned_handle.h"
#include "platform/win32/system_error.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr std::size_t kLongestAddress = 2084;  // INTERNET_MAX_URL_LENGTH of wininet.h

}  // namespace

void Win32Processes::Start(const std::string& commandLine) {
  constexpr const char* kPathEnd = "\" ";
  const auto end = commandLine.find(kPathEnd, 1);
  if (end == commandLine.npos || commandLine.front() != '"') {
    RaiseSystemError(ERROR_INVALID_PARAMETER);
  }
  const std::wstring path = ToWide(commandLine.substr(1, end - 1));
  std::wstring command =
      L'"' + path + L"\" " + AddressFor(commandLine.substr(end + std::strlen(kPathEnd)));
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(path.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &start, &process)) {
    RaiseSystemError(GetLastError());
  }
  const OwnedHandle handles[] = {OwnedHandle(process.hProcess), OwnedHandle(process.hThread)};
}

void Win32Processes::ShowInstead(const std::string& url, const std::string& file) {
  pages_.push_back({url, ToWide(file)});
}

std::wstring Win32Processes::AddressFor(const std::string& url) const {
  for (const Page& page : pages_) {
    if (page.url != url || !PathFileExistsW(page.file.c_str())) continue;
    std::array<wchar_t, kLongestAddress> address{};
    auto length = static_cast<DWORD>(address.size());
    if (SUCCEEDED(UrlCreateFromPathW(page.file.c_str(), address.data(), &length, 0))) {
      return address.data();
    }
  }
  return ToWide(url);
}

}  // namespace kestrava
