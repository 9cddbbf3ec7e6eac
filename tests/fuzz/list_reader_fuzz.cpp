// Feeds the list reader with any bytes.
#include "fuzz/fuzz.h"
#include "lists/connection_list_file.h"
#include "platform/message_box.h"
#include "support/await.h"
#include "support/bare_table.h"
#include "support/memory_files.h"

using namespace kestrava;

namespace {

struct NoBoxes : MessageBoxes {
  void MsgBox(const std::string&, MessageIcon) override { std::abort(); }
  std::unique_ptr<OpenMsgBox> ShowMsgBox(const std::string&, MessageIcon,
                                         std::function<void()>) override {
    std::abort();
  }
  YesNo AskYesNo(const std::string&, const std::string&) override { std::abort(); }
};

std::string Finish(Task<std::string> operation) {
  return test::Await(std::move(operation), [] { std::abort(); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::MemoryFiles files;
  files.files["list"].assign(data, data + size);
  test::BareTable first;
  test::BareTable second;
  if (!Finish(LoadConnectionList("list", first.grid, files)).empty()) return 0;

  NoBoxes boxes;
  Require(
      Finish(SaveConnectionList("list", first.grid, ConfirmOverwrite::No, files, boxes)).empty());
  Require(Finish(LoadConnectionList("list", second.grid, files)).empty());
  Require(first.Connections() == second.Connections());
  return 0;
}
