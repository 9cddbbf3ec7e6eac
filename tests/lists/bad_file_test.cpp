#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "lists_test.h"

namespace kestrava::test {
namespace {

std::string SystemError(int number) {
  return std::to_string(number) + " - " + std::strerror(number);
}

struct BadFiles : RealFiles {
  BadFiles() { table.grid.SetRows(20001); }
  const std::string whole = [] {
    std::string lines = kMagic;
    for (int row = 0; row < 20000; ++row) lines += ",,,,\r\n";
    return lines;
  }();
};

TEST_F(BadFiles, WhatIsNoFileIsRefused) {
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const struct {
    std::string name;
    int saveError, loadError;
  } cases[] = {{folder / "no" / "list", ENOENT, ENOENT},
               {folder, EISDIR, EISDIR},
               {pipe, ENXIO, EOPNOTSUPP},
               {"/dev/zero", EOPNOTSUPP, EOPNOTSUPP}};
  for (const auto& [name, saveError, loadError] : cases) {
    AppendConnectionRow(table.grid);
    EXPECT_EQ(Save(name), SystemError(saveError)) << name;
    EXPECT_EQ(Load(name), SystemError(loadError)) << name;
    EXPECT_EQ(table.grid.Rows(), 1) << "the table is emptied before the file is opened";
  }
}

TEST_F(BadFiles, AnUnwritableFolderStaysAsItIs) {
  constexpr uid_t kNobody = 65534;
  const uid_t user = geteuid();
  Write("precious");
  std::filesystem::permissions(folder, std::filesystem::perms(0555));
  if (user == 0 && seteuid(kNobody) != 0) GTEST_SKIP() << "there is no other user to be";
  EXPECT_EQ(Save(file), SystemError(EACCES));
  EXPECT_EQ(Save(folder / "new"), SystemError(EACCES));
  EXPECT_EQ(Read(), "precious");
  EXPECT_EQ(seteuid(user), 0);
  std::filesystem::permissions(folder, std::filesystem::perms(0755));
}

TEST_F(BadFiles, HugeFilesTakeLittleMemory) {
  constexpr std::uintmax_t kGigabyte = 1 << 30;
  rusage before{}, after{};
  getrusage(RUSAGE_SELF, &before);
  for (const std::string& start : {std::string("x"), kMagic}) {
    Write(start);
    std::filesystem::resize_file(file, kGigabyte);
    EXPECT_EQ(Load(file), start == kMagic ? "6 - a line of the list is too long" : "RESELECT");
  }
  const std::string longest = ",,,," + std::string(TextReader::kLongestLine - 4, 'x');
  Write(longest + "x\r\n" + kMagic + longest + "\r\n,,,,");
  EXPECT_EQ(Load(file), "");
  EXPECT_EQ(table.Connections(), (Rows{{"", "", "", "", longest.substr(4)}, {}}));
  getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 512 * 1024) << "KiB";
}

TEST_F(BadFiles, AShrinkingFileEnds) {
  Write(whole);
  const auto reader = files.OpenForReading(file);
  EXPECT_EQ(reader->ReadLine(), "ZR_Kestrava_ConnectionList");
  std::filesystem::resize_file(file, 100);
  std::size_t lines = 0;
  for (; !reader->AtEnd(); ++lines) reader->ReadLine();
  EXPECT_LT(lines, 20000U);
}

/// A disk of 64 KiB for this process alone: as root, or else as the root of a user namespace.
bool MountSmallDisk(const std::string& folder) {
  const auto user = std::to_string(geteuid());
  const auto group = std::to_string(getegid());
  if (unshare(CLONE_NEWNS) != 0) {
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " + user + " 1";
    std::ofstream("/proc/self/gid_map") << "0 " + group + " 1";
  }
  return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("none", folder.c_str(), "tmpfs", 0, "size=64k") == 0;
}

TEST_F(BadFiles, AFullDiskKeepsTheHead) {
  constexpr int kNoDisk = 77;
  const pid_t child = fork();
  if (child == 0) {
    if (!MountSmallDisk(folder)) _exit(kNoDisk);
    const bool failed = Save(file) == SystemError(ENOSPC);
    _exit(failed && !Read().empty() && whole.starts_with(Read()) ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (WEXITSTATUS(status) == kNoDisk) GTEST_SKIP() << "no mount namespace can be made here";
  EXPECT_EQ(status, 0);
}

TEST_F(BadFiles, AKilledSaveLeavesTheOldListOrAHead) {
  const std::string old = kMagic + "a,b,c,d,e\r\n";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Save(file), "");
  const auto duration = std::chrono::steady_clock::now() - start;
  std::mt19937 random(5);
  for (int round = 0; round < 50; ++round) {
    Write(old);
    const pid_t child = fork();
    if (child == 0) _exit(Save(file).empty() ? 0 : 1);
    std::this_thread::sleep_for(duration * (random() % 100) / 100);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string left = Read();
    EXPECT_TRUE(left == old || whole.starts_with(left)) << left.size();
    BareTable loaded;
    LoadConnectionList(file, loaded.grid, files);
    EXPECT_LE(loaded.grid.Rows(), 20001);
  }
}

}  // namespace
}  // namespace kestrava::test
