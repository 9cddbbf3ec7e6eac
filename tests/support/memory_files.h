#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "platform/common_dialog.h"
#include "platform/file_system.h"
#include "platform/runtime_error.h"

namespace kestrava::test {

/// Files without a disk.
class MemoryFiles : public FileSystemObject {
 public:
  bool FileExists(const std::string& name) override { return files.contains(name); }
  bool FolderExists(const std::string& name) override { return name == folder; }
  void DeleteFile(const std::string& name, ReadOnlyFile) override { files.erase(name); }
  std::unique_ptr<TextStream> OpenTextFile(const std::string& name) override {
    if (openError != 0) throw RuntimeError(openError, "refused");
    return std::make_unique<Stream>(files[name] = "");
  }
  std::unique_ptr<TextReader> OpenForReading(const std::string& name) override {
    if (!FileExists(name)) throw RuntimeError(2, "missing");
    return std::make_unique<Reader>(files[name], chunk);
  }

  std::map<std::string, std::string> files;  ///< contents by name
  std::string folder;                        ///< the one that exists
  std::size_t chunk = 4096;                  ///< bytes that a reader is given at a time
  int openError = 0;  ///< number of the error that opening for writing raises, 0 for none

 private:
  struct Stream : TextStream {
    explicit Stream(std::string& file) : file_(file) {}
    void WriteLine(std::string_view text) override { file_.append(text).append("\r\n"); }
    void Close() override {}
    std::string& file_;
  };
  struct Reader : TextReader {
    Reader(std::string_view rest, std::size_t chunk) : rest_(rest), chunk_(chunk) {}
    std::size_t Read(std::span<char> buffer) override {
      const std::size_t count = rest_.copy(buffer.data(), std::min(chunk_, buffer.size()));
      rest_.remove_prefix(count);
      return count;
    }
    std::string_view rest_;
    std::size_t chunk_;
  };
};

/// File dialogs with a scripted user, who cancels when nothing is left to choose.
class ScriptedDialog : public CommonDialog {
 public:
  void ShowOpen() override { Show("open"); }
  void ShowSave() override { Show("save"); }

  std::deque<std::string> choices;
  std::vector<std::string> shown;  ///< kind, filter and folder of each showing

 private:
  void Show(const std::string& kind) {
    shown.push_back(kind + "; " + Filter + "; " + InitDir);
    FileName = choices.empty() ? "" : choices.front();
    if (!choices.empty()) choices.pop_front();
  }
};

}  // namespace kestrava::test
