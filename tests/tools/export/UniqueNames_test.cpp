#include "tools/export/UniqueNames.h"

#include <gtest/gtest.h>

namespace zntopo::tools {
namespace {

TEST(UniqueNamesTest, TheFirstHasTheNameAndOthersTheirIdentifiersOrANumber) {
  UniqueNames names;
  EXPECT_EQ(names.take("a", "1"), "a");
  EXPECT_EQ(names.take("a", "2"), "2");
  EXPECT_EQ(names.take("a"), "a (2)");
  EXPECT_EQ(names.take("a", "2"), "a (3)");
  EXPECT_EQ(names.take("", "3"), "3");
  EXPECT_EQ(names.take(""), " (2)");
}

TEST(UniqueNamesTest, NamesKeepTheirWidth) {
  UniqueNames names(30);
  EXPECT_EQ(names.take(std::string(40, 'x')), std::string(30, 'x'));
  EXPECT_EQ(names.take(std::string(40, 'x')), "xxxxxx (2)");
}

TEST(PlainTextTest, ControlCharactersAreBlanksAndForeignBytesAreMarked) {
  EXPECT_EQ(plainText("a\nb\x7f", 255), "a b ");
  EXPECT_EQ(plainText("a\xc3(", 255), "a\xef\xbf\xbd(");
  EXPECT_EQ(plainText("\xc3\xa4\xc3\xa4", 3), "\xc3\xa4");
}

}  // namespace
}  // namespace zntopo::tools
