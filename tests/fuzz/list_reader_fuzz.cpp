// Feeds the list reader with any bytes. The first byte tells how many bytes the reader is given at
// a time, the others are the file.
#include "fuzz/fuzz.h"
#include "lists/connection_list_file.h"
#include "platform/message_box.h"
#include "support/bare_table.h"
#include "support/memory_files.h"

using namespace kestrava;

namespace {

struct NoBoxes : MessageBoxes {
  void MsgBox(const std::string&, MessageIcon) override { std::abort(); }
  YesNo AskYesNo(const std::string&, const std::string&) override { std::abort(); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  test::MemoryFiles files;
  files.chunk = data[0] + 1U;
  files.files["list"].assign(data + 1, data + size);
  test::BareTable first;
  const std::string result = LoadConnectionList("list", first.grid, files);
  files.chunk = size;
  test::BareTable second;
  Require(LoadConnectionList("list", second.grid, files) == result);
  Require(first.Connections() == second.Connections());
  if (!result.empty()) return 0;

  NoBoxes boxes;
  Require(SaveConnectionList("list", first.grid, ConfirmOverwrite::No, files, boxes).empty());
  Require(LoadConnectionList("list", second.grid, files).empty());
  Require(first.Connections() == second.Connections());
  return 0;
}
