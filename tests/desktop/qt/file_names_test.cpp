#include <filesystem>

#include "desktop/desktop.h"

namespace kestrava::test {
TEST(FileNames, TheFileDialogLeadsToANameThatIsNoUtf8) {
  Desktop desktop;
  desktop.AddRow("B");
  const std::string list = HomeFolder() + "list.kvl";
  const std::string oddList = HomeFolder() + "B\xFC.kvl";
  InDialogs({Enter(list), &Close, Enter(HomeFolder() + "B\u00FC.kvl")});
  Pick("mnuFileSave");
  std::filesystem::rename(list, oddList);
  Pick("mnuFileLoad");
  EXPECT_EQ(desktop.main.State().LastListFile, oddList);
}

}  // namespace kestrava::test
