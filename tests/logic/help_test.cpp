#include <gtest/gtest.h>

#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

TEST(Browser, IsTheFirstValueUpToItsQuote) {
  const MemoryRegistry::Value quoted{"", REG_SZ, "\"/usr/bin/web browser\" --new %u."};
  const struct {
    std::vector<MemoryRegistry::Value> values;
    const char* started;  // nullptr for the message
    bool exists = true;
    bool starts = true;
  } cases[] = {
      {{quoted, {"x", REG_SZ, "y"}}, "\"/usr/bin/web browser\""},
      {{{"", REG_SZ, "a \"b\" c."}}, "a \""},
      {{}, nullptr},
      {{{"", REG_SZ, "no quote at all\""}}, nullptr},
      {{{"", REG_DWORD, quoted.data}}, nullptr},
      {{{std::string(260, 'n'), REG_SZ, quoted.data}}, nullptr},
      {{quoted}, nullptr, false},
      {{quoted}, nullptr, true, false},
  };
  const std::pair<std::string, MessageIcon> message = {"Unable to open URL. Install browser first!",
                                                       MessageIcon::None};
  for (const auto& [values, started, exists, starts] : cases) {
    Scenario program;
    program.registry.values = values;
    program.registry.exists = exists;
    program.registry.starts = starts;
    program.window.mnuHelpCont.Click.Raise();
    const std::string url = " http://www.kestrava.example/KVManual.html";
    EXPECT_EQ(program.registry.started, started ? Texts{started + url} : Texts());
    EXPECT_EQ(program.desktop.boxes, std::vector(started ? 0U : 1U, message));
    EXPECT_EQ(program.registry.openKeys, 0);
  }
}

}  // namespace
}  // namespace kestrava::test
