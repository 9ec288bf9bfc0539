#include "zntopo/filter/TrimUnneededWhiteSpace.h"

#include <gtest/gtest.h>

#include "tests/support/FreshProcess.h"
#include "tests/support/Scratch.h"

namespace zntopo {
namespace {

TEST(TrimUnneededWhiteSpaceTest, RunsOfBlanksBecomeOneBlankAtTheEndsToo) {
  EXPECT_EQ(TrimUnneededWhiteSpace("  a   b  "), " a b ");
  EXPECT_EQ(TrimUnneededWhiteSpace(" "), " ");
  EXPECT_EQ(TrimUnneededWhiteSpace(""), "");
}

TEST(TrimUnneededWhiteSpaceTest, TabsAndLineFeedsVanishAndJoinWhatTheyPart) {
  EXPECT_EQ(TrimUnneededWhiteSpace("a\tb\nc"), "abc");
  EXPECT_EQ(TrimUnneededWhiteSpace("a \t b"), "a b");
  EXPECT_EQ(TrimUnneededWhiteSpace("a \n\t \n b"), "a b");
}

TEST(TrimUnneededWhiteSpaceTest, InsideQuotesAllStays) {
  EXPECT_EQ(TrimUnneededWhiteSpace("'a \t  b\n'"), "'a \t  b\n'");
  EXPECT_EQ(TrimUnneededWhiteSpace("\"a \t  b\n\""), "\"a \t  b\n\"");
}

TEST(TrimUnneededWhiteSpaceTest, BlanksInsideQuotesDoNotCountForThoseBehind) {
  EXPECT_EQ(TrimUnneededWhiteSpace("a ' '  b"), "a ' ' b");
  EXPECT_EQ(TrimUnneededWhiteSpace("''  ''"), "'' ''");
}

TEST(TrimUnneededWhiteSpaceTest, BothKindsOfQuotesAreSwitchedWithoutNesting) {
  // The single quote inside the double ones opens, and is still open behind them.
  EXPECT_EQ(TrimUnneededWhiteSpace("\"it's\"  a\t\tb"), "\"it's\"  a\t\tb");
  EXPECT_EQ(TrimUnneededWhiteSpace("\"it's\"  a'\t\tb"), "\"it's\"  a'b");
}

TEST(TrimUnneededWhiteSpaceTest, ACarriageReturnIsACharacterLikeOthers) {
  EXPECT_EQ(TrimUnneededWhiteSpace("a \r b"), "a \r b");
}

TEST(TrimUnneededWhiteSpaceTest, ThereIsNoLimitOnTheLength) {
  for (const std::size_t length : {2046U, 2047U, 2048U, 2049U, 5'000'000U}) {
    const std::string text(length, 'x');
    EXPECT_EQ(TrimUnneededWhiteSpace(text), text);
    EXPECT_EQ(TrimUnneededWhiteSpace(text + "  " + text), text + " " + text);
  }
}

TEST(TrimUnneededWhiteSpaceTest, ATextAsLongAsAnyScratchSpaceIsTrimmedAsOthersAre) {
  const std::string piece = "a  b\t'c  \t'\n\"d  \" ";
  const std::string trimmed = "a b'c  \t'\"d  \" ";
  for (const std::size_t length : {2046U, 2047U, 2048U, 2049U}) {
    std::string text;
    std::string expected;
    while (text.size() + piece.size() <= length - 4) {
      text += piece;
      expected += trimmed;
    }
    const std::string fill(length - 4 - text.size(), 'x');
    text += fill + "  \t ";
    expected += fill + " ";
    ASSERT_EQ(text.size(), length);
    EXPECT_EQ(TrimUnneededWhiteSpace(text), expected) << length;
  }
}

TEST(TrimUnneededWhiteSpaceTest, TheTraceTellsBothTexts) {
  test::inFreshProcess([] {
    const test::Scratch scratch;
    test::setEnv("TV_TRACE", scratch.path("trace"));
    TrimUnneededWhiteSpace("a  b");
    EXPECT_NE(scratch.read("trace").find("TrimUnneededWhiteSpace trimmed [a  b] to [a b]"),
              std::string::npos)
        << scratch.read("trace");
  });
}

}  // namespace
}  // namespace zntopo
