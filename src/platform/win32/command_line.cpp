#include "platform/win32/command_line.h"

#include <memory>

#include "platform/program_title.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

std::vector<std::string> Arguments() {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(ToBytes(words.get()[i]));
  return arguments;
}

bool Tell(Answer kind, const std::string& text) {
  const bool isError = kind == Answer::Error;
  const HANDLE reader = GetStdHandle(isError ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
  if (!reader || GetFileType(reader) == FILE_TYPE_UNKNOWN) {
    MessageBoxW(nullptr, ToWide(text).c_str(), ToWide(kProgramTitle).c_str(),
                MB_SETFOREGROUND | (isError ? MB_ICONERROR : MB_OK));
    return true;
  }
  DWORD written = 0;
  return WriteFile(reader, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
         written == text.size();
}

}  // namespace kestrava
