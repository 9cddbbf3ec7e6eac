#include "platform/qt/text.h"

#include <gtest/gtest.h>
#include <utility>

namespace kestrava::test {

TEST(NotifyIconText, LeavesOutACharacterThatTheFieldCutsAndShowsWhatNobodySees) {
  for (const auto& [field, text] : {std::pair("B\xC3\xBC\xE2\x82", "B\u00FC"),
                                    {"\xE2\x82\xAC\xF0", "\u20AC"},
                                    {"\x80\x80\x80\x80", "\u20AC\u20AC\u20AC\u20AC"},
                                    {"a\r\nb\x01", "a\nb[U+0001]"}}) {
    EXPECT_EQ(ToShownField(field), text);
  }
}

}  // namespace kestrava::test
