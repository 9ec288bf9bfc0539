#include "tools/import/InputFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/Scratch.h"
#include "tools/import/NetworkFormat.h"

namespace zntopo::tools {
namespace {

using test::TempFile;
using testing::HasSubstr;

/// What is said of a content whose format nobody named.
std::string formatOf(const std::string& content) {
  try {
    return networkFormat("", {"f", "f", content}).name;
  } catch (const ImportError& error) {
    return error.what();
  }
}

TEST(InputFileTest, AFileIsReadWithItsNameAndItsStem) {
  const TempFile file(std::string("a\0b", 3));
  const InputFile input = loadInputFile(file.path());
  EXPECT_EQ(input.text, std::string("a\0b", 3));
  EXPECT_EQ(input.label, file.path());
  EXPECT_EQ(input.stem, std::filesystem::path(file.path()).stem());
}

TEST(InputFileTest, SizeIsLimited) {
  const TempFile file("1234567");
  EXPECT_EQ(loadInputFile(file.path(), 7).text.size(), 7u);
  try {
    loadInputFile(file.path(), 6);
    FAIL();
  } catch (const ImportError& error) {
    EXPECT_EQ(error.what(), file.path() + ": is larger than 6 bytes");
  }
}

TEST(InputFileTest, WhatCantBeReadIsRefused) {
  EXPECT_THROW(loadInputFile("/nonexistent/file.json"), ImportError);
  EXPECT_THROW(loadInputFile("/tmp"), ImportError);
}

TEST(InputFileTest, ControlCharactersOfANameDoNotReachMessages) {
  try {
    loadInputFile("/nonexistent/\x1b[2J\n.json");
    FAIL();
  } catch (const ImportError& error) {
    EXPECT_THAT(error.what(), HasSubstr("/nonexistent/?[2J?.json: "));
  }
}

TEST(NetworkFormatTest, TheFirstCharacterTellsTheFormat) {
  EXPECT_EQ(formatOf("{}"), "rfc8345");
  EXPECT_EQ(formatOf(" \r\n\t[]"), "rfc8345");
  EXPECT_EQ(formatOf("\xef\xbb\xbf{}"), "rfc8345");
  EXPECT_EQ(formatOf("<graphml/>"), "graphml");
  EXPECT_EQ(formatOf("\xef\xbb\xbf\n<?xml?>"), "graphml");
  EXPECT_EQ(formatOf(std::string("\xff\xfe<\0g\0", 6)), "graphml");
  EXPECT_EQ(formatOf(std::string("\xfe\xff\0<\0g", 6)), "graphml");
  EXPECT_EQ(formatOf(std::string("\0\0\0<", 4)), "graphml");
}

TEST(NetworkFormatTest, AFileOfNoKnownFormatIsRefusedWithTheWayOut) {
  EXPECT_EQ(formatOf(""), "f: is empty");
  EXPECT_EQ(formatOf(" \n"), "f: is empty");
  EXPECT_THAT(formatOf("graph {"), HasSubstr("neither RFC 8345 JSON"));
  EXPECT_THAT(formatOf("graph {"), HasSubstr("--format"));
  EXPECT_THAT(formatOf("\x7f"
                       "ELF"),
              HasSubstr("neither"));
}

TEST(NetworkFormatTest, ANamedFormatCountsWhateverTheContent) {
  const InputFile file{"f", "f", "<graphml/>"};
  EXPECT_STREQ(networkFormat("rfc8345", file).name, "rfc8345");
  EXPECT_STREQ(networkFormat("graphml", {"f", "f", "{}"}).name, "graphml");
  EXPECT_THROW(networkFormat("csv", file), ImportError);
}

}  // namespace
}  // namespace zntopo::tools
