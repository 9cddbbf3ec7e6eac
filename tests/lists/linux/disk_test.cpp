#include <atomic>
#include <cerrno>
#include <cstring>
#include <future>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

#include "lists/list_file.h"

namespace {

std::atomic<int> syncs = 0;
std::atomic<int> syncError = 0;

}  // namespace

/// Takes the place of the C library's, as nobody sees whether a file has come to the disk.
extern "C" int fsync(int file) {
  ++syncs;
  errno = syncError;
  return errno == 0 ? static_cast<int>(syscall(SYS_fsync, file)) : -1;
}

namespace kestrava::test {

using namespace std::chrono_literals;

TEST_F(ListFile, WhatCannotBeWrittenOrReadIsTold) {
  const std::string pipe = folder + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::filesystem::permissions(pipe, std::filesystem::perms(0666));
  Write("precious");
  std::filesystem::permissions(file, std::filesystem::perms(0444));
  std::filesystem::permissions(folder, std::filesystem::perms(0555));
  constexpr uid_t kNobody = 65534;
  const uid_t user = geteuid();
  if (user == 0 && seteuid(kNobody) != 0) GTEST_SKIP() << "there is no other user to be";
  const auto unsupported = SystemError(EOPNOTSUPP);
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {file, SystemError(EACCES), kReselect},
      {folder + "/new", SystemError(EACCES), SystemError(ENOENT)},
      {folder + "/no/list", SystemError(ENOENT), SystemError(ENOENT)},
      {folder, SystemError(EISDIR), SystemError(EISDIR)},
      {pipe, unsupported, unsupported},
      {"/dev/zero", unsupported, unsupported}};
  for (const auto& [name, saveError, loadError] : cases) {
    AppendConnectionRow(table.grid);
    EXPECT_EQ(Save(name), saveError) << name;
    EXPECT_EQ(Load(name), loadError) << name;
    EXPECT_EQ(table.grid.Rows(), 1) << "the table is emptied before the file is opened";
  }
  EXPECT_EQ(Read(), "precious");
  EXPECT_EQ(seteuid(user), 0);
  std::filesystem::permissions(folder, std::filesystem::perms(0755));
}

TEST_F(ListFile, ASaveWithoutRoomLeavesTheOldFile) {
  const auto savedRows = [&](int rows) {
    table.grid.SetRows(1 + rows);
    const std::string result = Save(file);
    return result + " " + std::to_string(Read().size());
  };
  EXPECT_EQ(savedRows(10000), " 60028");
  rlimit room{};
  getrlimit(RLIMIT_FSIZE, &room);
  const rlimit little{65536, room.rlim_max};
  setrlimit(RLIMIT_FSIZE, &little);
  EXPECT_EQ(savedRows(20000), SystemError(EFBIG) + " 60028");
  setrlimit(RLIMIT_FSIZE, &room);
  if (unshare(CLONE_NEWNS) != 0) GTEST_SKIP() << "no small disk can be made here";
  mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
  ASSERT_EQ(mount("none", folder.c_str(), "tmpfs", 0, "size=96k"), 0);
  EXPECT_EQ(savedRows(10000), " 60028");
  EXPECT_EQ(savedRows(10000), " 60028") << "the room of the old file counts";
  EXPECT_EQ(savedRows(20000), SystemError(ENOSPC) + " 60028");
  umount2(folder.c_str(), MNT_DETACH);
}

TEST_F(ListFile, WhatHangsIsLeftToItself) {
  std::promise<void> answer;
  const FileWorker::Job hang = [wait = answer.get_future().share()](auto&) { wait.wait(); };
  const auto run = [](LinuxFileWorker& worker, FileWorker::Job job) -> Task<std::string> {
    try {
      co_await worker.Run("list", AtEnd::Drop, std::move(job));
    } catch (const RuntimeError& error) {
      co_return error.what();
    }
    co_return "";
  };
  LinuxFileWorker hasty(system.waits, {.moment = 0ms, .longest = 50ms});
  EXPECT_EQ(Finish(run(hasty, hang)), std::strerror(ETIMEDOUT));
  EXPECT_EQ(Finish(run(hasty, hang)), std::strerror(EBUSY)) << "it may yet happen to that file";
  std::atomic<bool> written = false;
  {
    LinuxFileWorker patient(system.waits, {.moment = 0ms, .longest = 1h});
    EXPECT_EQ(Finish(run(patient, [&](auto&) { answer.set_value(); })), "");
    Task<> save = patient.Run("list", AtEnd::Finish, [&](auto&) {
      std::this_thread::sleep_for(50ms);
      written = true;
    });
    save.Start();
  }
  EXPECT_TRUE(written) << "the end of the program cuts no save off";
}

TEST_F(ListFile, ASaveIsOnTheDiskWhenItIsTold) {
  AppendConnectionRow(table.grid);
  const int before = syncs;
  EXPECT_EQ(Save(file), "");
  EXPECT_EQ(syncs, before + 1);
  syncError = EIO;
  EXPECT_EQ(Save(file), SystemError(EIO));
  syncError = 0;
}

TEST_F(ListFile, ASaveFollowsLinks) {
  const auto link = [&](const std::string& name, const char* target) {
    std::filesystem::create_symlink(target, folder + "/" + name);
    AppendConnectionRow(table.grid);
    return Save(folder + "/" + name);
  };
  Write("old");
  std::filesystem::permissions(file, std::filesystem::perms(0604));
  EXPECT_EQ(link("link", "my list.kvl"), "");
  EXPECT_EQ(link("chain", "link"), "");
  EXPECT_TRUE(std::filesystem::is_symlink(folder + "/link"));
  EXPECT_EQ(Read(), kMagic + ",,,,\r\n,,,,\r\n");
  EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0604));
  EXPECT_EQ(link("dangling", "nowhere"), SystemError(ENOENT));
  EXPECT_EQ(link("loop", "loop"), SystemError(ELOOP));
}

}  // namespace kestrava::test
