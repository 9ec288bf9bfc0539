#include "tools/network/PlainText.h"

#include <gtest/gtest.h>

namespace zntopo::tools {
namespace {

TEST(PlainTextTest, WhatDisturbsATerminalIsReplaced) {
  EXPECT_EQ(printable("a\x1b[31mb"), "a?[31mb");
  EXPECT_EQ(printable(std::string("a\0b\x7f\t\n", 6)), "a?b???");
  // One byte of a C1 control character is no UTF-8; two are one character.
  EXPECT_EQ(printable("a\x9b"
                      "31m"),
            "a?31m");
  EXPECT_EQ(printable("a\xc2\x9b"
                      "31m"),
            "a?31m");
  EXPECT_EQ(printable("\xc2\x80\xc2\x9f\xc2\xa0"), "??\xc2\xa0");
}

TEST(PlainTextTest, WhatTurnsTheDirectionOfWritingIsReplaced) {
  EXPECT_EQ(printable("a\xe2\x80\xaegpj.exe"), "a?gpj.exe");
  for (const char* turn : {"\xd8\x9c", "\xe2\x80\x8e", "\xe2\x80\x8f", "\xe2\x80\xaa",
                           "\xe2\x80\xae", "\xe2\x81\xa6", "\xe2\x81\xa9", "\xe2\x80\xa8"}) {
    EXPECT_EQ(printable(turn), "?");
  }
}

TEST(PlainTextTest, BytesThatAreNoUtf8AreReplacedOneByOne) {
  EXPECT_EQ(printable("\xff\xfe"), "??");
  EXPECT_EQ(printable("\xc3"), "?");
  EXPECT_EQ(printable("\xc3(x"), "?(x");
  EXPECT_EQ(printable("\xc0\xaf"), "??");
  EXPECT_EQ(printable("\xed\xa0\x80"), "???");
  EXPECT_EQ(printable("\xe6\xb8"), "??");
}

TEST(PlainTextTest, OtherTextsStayAsTheyAre) {
  for (const char* text : {"", "core-1", "\xe6\xb8\xaf-1", "caf\xc3\xa9", "\xf0\x9f\x9a\xa2 ship",
                           "\xd7\x90\xd7\x91", "\xef\xbf\xbd"}) {
    EXPECT_EQ(printable(text), text);
    EXPECT_EQ(printableLines(text), text);
  }
}

TEST(PlainTextTest, LinesStayLinesOnDemand) {
  EXPECT_EQ(printableLines("a\nb\x1b\r\n"), "a\nb??\n");
  EXPECT_EQ(printable("a\nb"), "a?b");
}

TEST(PlainTextTest, ANameHasOneRule) {
  EXPECT_EQ(nameFault("harbor master pc"), "");
  EXPECT_EQ(nameFault("\xe6\xb8\xaf-1"), "");
  EXPECT_EQ(nameFault(std::string(255, 'x')), "");
  EXPECT_EQ(nameFault(""), "is empty");
  EXPECT_EQ(nameFault(std::string(256, 'x')), "is longer than 255 bytes");
  EXPECT_EQ(nameFault("12345", 4), "is longer than 4 bytes");
  EXPECT_EQ(nameFault("caf\xe9"), "is not UTF-8");
  EXPECT_EQ(nameFault("a\nb"), "has a control character in it");
}

}  // namespace
}  // namespace zntopo::tools
