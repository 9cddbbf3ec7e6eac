#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/common_dialog.h"
#include "platform/file_system.h"
#include "platform/file_worker.h"
#include "platform/runtime_error.h"

namespace kestrava::test {

/// One call that fails.
struct Fault {
  std::string call;
  int time = 0;  ///< which call of that name it is, counted from 1
};

/// A stand-in for a part of the platform. Each of its calls that can fail, fails where it is told.
class Faulty {
 public:
  Fault fault;
  std::map<std::string_view, int> made;  ///< how often each of the calls was made

 protected:
  bool Fails(std::string_view call) { return ++made[call] == fault.time && call == fault.call; }
  void MayRaise(std::string_view call) {
    if (Fails(call)) throw RuntimeError(kErrorInvalidCall, "failed on purpose");
  }
};

/// Files without a disk.
class MemoryFiles : public Faulty, public FileSystemObject, public FileWorker {
 public:
  Task<> Run(std::string, AtEnd, Job job) override {
    co_await hang;
    job(*this);
  }
  bool FileExists(const std::string& name) override { return files.contains(name); }
  bool FolderExists(const std::string& name) override { return name == folder; }
  void EnsureRoom(const std::string&, std::size_t) override { MayRaise("EnsureRoom"); }
  void DeleteFile(const std::string& name, ReadOnlyFile) override {
    MayRaise("DeleteFile");
    files.erase(name);
  }
  std::unique_ptr<TextStream> OpenTextFile(const std::string& name) override {
    MayRaise("OpenTextFile");
    return std::make_unique<Stream>(*this, files[name] = "");
  }
  TextReader OpenForReading(const std::string& name, std::size_t) override {
    MayRaise("OpenForReading");
    if (!FileExists(name)) throw RuntimeError(SystemErrorNumber{2}, "missing");
    return TextReader(files[name]);
  }

  std::map<std::string, std::string> files;  ///< contents by name
  std::string folder;                        ///< the one that exists
  /// A share that doesn't answer, until what waits for it is told to go on.
  struct Hang {
    bool await_ready() const { return !hangs; }
    void await_suspend(std::coroutine_handle<> work) { waiting = work; }
    void await_resume() const {}
    bool hangs = false;
    std::coroutine_handle<> waiting;
  } hang;

 private:
  struct Stream : TextStream {
    Stream(MemoryFiles& all, std::string& file) : all_(all), file_(file) {}
    void WriteLine(std::string text) override {
      all_.MayRaise("WriteLine");
      file_.append(text).append("\r\n");
    }
    void Close() override { all_.MayRaise("Close"); }
    MemoryFiles& all_;
    std::string& file_;
  };
};

/// File dialogs with a scripted user, who cancels when nothing is left to choose.
class ScriptedDialog : public CommonDialog {
 public:
  void ShowOpen() override { Show("open"); }
  void ShowSave() override { Show("save"); }

  std::deque<std::string> choices;
  std::vector<std::string> shown;  ///< kind, filter and folder of each showing
  std::function<void()> wait;      ///< while a dialog is open

 private:
  void Show(const std::string& kind) {
    shown.push_back(kind + "; " + Filter + "; " + InitDir);
    if (wait) wait();
    FileName = choices.empty() ? "" : choices.front();
    if (!choices.empty()) choices.pop_front();
  }
};

}  // namespace kestrava::test
