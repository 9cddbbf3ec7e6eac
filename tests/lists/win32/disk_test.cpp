#include <atomic>

#include "lists/list_file.h"
#include "platform/win32/owned_handle.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/windows_api.h"

namespace kestrava::test {

TEST_F(ListFile, NamesAreUtf8ElseWindows1252) {
  const std::pair<const char*, const wchar_t*> names[] = {
      {"Z\xC3\xBCrich \xE6\x9D\xB1.kvl", L"Z\u00FCrich \u6771.kvl"},
      {"Z\xFCrich \x80.kvl", L"Z\u00FCrich \u20AC.kvl"}};
  for (const auto& [name, wide] : names) {
    AppendConnectionRow(table.grid);
    EXPECT_EQ(Save(folder + "/" + name), "");
    EXPECT_TRUE(std::filesystem::exists(NativePath(folder) / wide)) << name;
    EXPECT_EQ(Load(folder + "\\" + name), "");
  }
}

TEST_F(ListFile, WhatCannotBeWrittenOrReadIsTold) {
  Write("precious");
  const auto held = OwnedFile(CreateFileW(NativePath(file).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                          nullptr, OPEN_EXISTING, 0, nullptr));
  std::filesystem::permissions(NativePath(file), std::filesystem::perms(0444));
  const std::tuple<std::string, int, std::string> cases[] = {
      {file, ERROR_SHARING_VIOLATION, kReselect},
      {folder + "/no/list", ERROR_PATH_NOT_FOUND, SystemError(ERROR_PATH_NOT_FOUND)},
      {folder, ERROR_ACCESS_DENIED, SystemError(ERROR_ACCESS_DENIED)},
      {"\\\\.\\NUL", ERROR_NOT_SUPPORTED, SystemError(ERROR_NOT_SUPPORTED)}};
  for (const auto& [name, saveError, loaded] : cases) {
    AppendConnectionRow(table.grid);
    EXPECT_EQ(Save(name), SystemError(saveError)) << name;
    EXPECT_EQ(Load(name), loaded) << name;
    EXPECT_EQ(table.grid.Rows(), 1) << "the table is emptied before the file is opened";
  }
  EXPECT_EQ(Read(), "precious");
  EXPECT_NE(GetFileAttributesW(NativePath(file).c_str()) & FILE_ATTRIBUTE_READONLY, 0);
  std::filesystem::permissions(NativePath(file), std::filesystem::perms(0666));
  EXPECT_EQ(Load(folder + "/none"), SystemError(ERROR_FILE_NOT_FOUND));
}

TEST_F(ListFile, WhatNoDiskHasRoomForIsRefused) {
  Write("precious");
  EXPECT_THROW(Win32FileSystem().EnsureRoom(file, std::size_t{1} << 60), RuntimeError);
  EXPECT_EQ(Read(), "precious");
}

TEST_F(ListFile, TheLoopGoesOnWhileAFileHangs) {
  const OwnedHandle answer(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  Task<> look = system.worker.Run(file, AtEnd::Drop,
                                  [&](auto&) { WaitForSingleObject(answer.get(), INFINITE); });
  look.Start();
  EXPECT_EQ(Load(file), SystemError(ERROR_BUSY)) << "it may yet happen to that file";
  SetEvent(answer.get());
  while (look.UnderWay()) system.Serve();
  std::atomic<bool> written = false;
  {
    Win32FileWorker worker(system.waits);
    Task<> save = worker.Run(file, AtEnd::Finish, [&](auto&) {
      Sleep(600);  // longer than anybody simply waits for a file
      written = true;
    });
    save.Start();
  }
  EXPECT_TRUE(written) << "the end of the program cuts no save off";
}

}  // namespace kestrava::test
