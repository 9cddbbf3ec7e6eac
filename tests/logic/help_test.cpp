#include "help/RegAPI.h"
#include "support/memory_desktop.h"

namespace kestrava::test {

using namespace std::string_literals;

TEST(Browser, IsTheFirstValueUpToItsQuote) {
  const MemoryRegistry::Value quoted{"", REG_SZ, "\"/usr/bin/web browser\" --new %u."};
  const std::pair<std::vector<MemoryRegistry::Value>, const char*> cases[] = {
      {{quoted, {"x", REG_SZ, "y"}}, "\"/usr/bin/web browser\""},
      {{{"", REG_SZ, "a \"b\" c."}}, "a \""},
      {{}, "Invalid"},
      {{{"", REG_SZ, "\"."}}, "Invalid"},
      {{{"", REG_DWORD, quoted.data}, quoted}, "Invalid"},
      {{{std::string(260, 'n'), REG_SZ, quoted.data}, quoted}, "Invalid"},
  };
  for (const auto& [values, command] : cases) {
    MemoryRegistry registry;
    registry.values = values;
    EXPECT_EQ(FindBrowserCommand(registry), command);
    EXPECT_EQ(registry.openKeys, 0);
  }
}

TEST(RegistryValues, AreReadByTheirTypeUntilOneDoesNotFit) {
  const std::pair<MemoryRegistry::Value, decltype(RegistryValue::data)> cases[] = {
      {{"no NUL", REG_SZ, "abc"}, "ab"s},
      {{"empty", REG_SZ, ""}, ""s},
      {{"longest", REG_SZ, std::string(4096, 'x')}, std::string(4095, 'x')},
      {{std::string(259, 'n'), REG_DWORD, "\xFE\xFF\xFF\xFF"}, -2},
      {{"", 3, "a\0"s}, std::vector{std::byte{'a'}, std::byte{0}}}};
  MemoryRegistry registry;
  for (int value = 0; value < 250; ++value) registry.values.push_back(cases[value % 5].first);
  registry.values.push_back({"", REG_SZ, std::string(4097, 'x')});
  registry.values.push_back(cases[0].first);
  const auto table = RegistryValueTable(registry, HKEY_CLASSES_ROOT, "");
  ASSERT_EQ(table.size(), 250U);
  for (std::size_t value = 0; value < 250; ++value) {
    EXPECT_EQ(table[value].name, cases[value % 5].first.name);
    EXPECT_TRUE(table[value].data == cases[value % 5].second) << value;
  }
}

}  // namespace kestrava::test
