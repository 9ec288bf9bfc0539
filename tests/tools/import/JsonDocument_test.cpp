#include "tools/import/JsonDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/Scratch.h"

namespace zntopo::tools {
namespace {

using test::TempFile;
using testing::HasSubstr;
using testing::StartsWith;

/// What the loader says of a content, without the file's name; "" if nothing.
std::string complaint(const std::string& content, const JsonLimits& limits = {}) {
  const TempFile file(content);
  try {
    loadJson(loadInputFile(file.path()), limits);
    return "";
  } catch (const ImportError& error) {
    const std::string text = error.what();
    EXPECT_THAT(text, StartsWith(file.path() + ": "));
    return text.substr(file.path().size() + 2);
  }
}

std::string nested(int depth) {
  return std::string(static_cast<std::size_t>(depth), '[') +
         std::string(static_cast<std::size_t>(depth), ']');
}

TEST(JsonDocumentTest, ReadsADocument) {
  const TempFile file(R"({"a": [1, "two", null, 4.5, true]})");
  EXPECT_EQ(loadJson(loadInputFile(file.path()))["a"][1], "two");
}

TEST(JsonDocumentTest, AnEmptyFileIsSaidToBeEmpty) {
  EXPECT_EQ(complaint(""), "is empty");
  EXPECT_EQ(complaint(" \n\t "), "is empty");
}

TEST(JsonDocumentTest, ATruncatedFileIsRefusedWithLineAndColumn) {
  EXPECT_THAT(complaint("{\"a\": [1,\n 2"), HasSubstr("line 2"));
}

TEST(JsonDocumentTest, ABinaryFileIsRefused) {
  EXPECT_NE(complaint(std::string("\x7f\x45\x4c\x46\0\0\1\2", 8)), "");
  EXPECT_NE(complaint(std::string(4096, '\0')), "");
}

TEST(JsonDocumentTest, BytesThatAreNoUtf8AreRefused) {
  EXPECT_THAT(complaint("{\"a\": \"\xff\xfe\"}"), HasSubstr("UTF-8"));
  EXPECT_THAT(complaint("{\"a\": \"\xc3\"}"), HasSubstr("UTF-8"));
}

TEST(JsonDocumentTest, WhatFollowsTheDocumentIsRefused) { EXPECT_NE(complaint("{} {}"), ""); }

TEST(JsonDocumentTest, DepthIsLimited) {
  EXPECT_EQ(complaint(nested(60)), "");
  EXPECT_THAT(complaint(nested(100)), HasSubstr("is nested deeper than 64 levels"));
  EXPECT_THAT(complaint(std::string(5'000'000, '[')), HasSubstr("is nested deeper than 64 levels"));
  std::string objects;
  for (int i = 0; i < 1'000'000; ++i) objects += "{\"a\":";
  EXPECT_THAT(complaint(objects), HasSubstr("is nested deeper than 64 levels"));
}

TEST(JsonDocumentTest, ANumberBeyondAllBoundsIsRefused) {
  EXPECT_THAT(complaint("[1e999]"), HasSubstr("1e999"));
  EXPECT_EQ(complaint("[99999999999999999999999999]"), "");
}

TEST(JsonDocumentTest, AComplaintOfTheParserHasItsPlaceAndQuotesLittle) {
  EXPECT_THAT(complaint(R"({"a": [1, {"b": 1e999}]})"), StartsWith("/a/1/b: "));
  EXPECT_THAT(complaint(R"({"a": {"b": "unfinished)"), StartsWith("/a/b: "));
  EXPECT_LT(complaint("[" + std::string(5000, '9') + "e999]").size(), 300U);
}

TEST(JsonDocumentTest, AMemberThatStandsTwiceIsRefusedWithItsPlace) {
  EXPECT_EQ(complaint(R"({"a": [{"b": 1}, {"b": 1, "c": 2, "b": 3}]})"),
            "/a/1/b: stands twice in its object");
}

TEST(JsonObjectTest, MembersAreFoundWithAndWithoutTheirModule) {
  const auto json = nlohmann::json::parse(R"({"m:one": 1, "two": 2, "null": null})");
  JsonObject object(JsonPlace(json, "f: "));
  EXPECT_EQ(object.get("one").number(), 1);
  EXPECT_EQ(object.get("one").where(), "f: /m:one");
  EXPECT_EQ(object.get("two").number(), 2);
  EXPECT_FALSE(object.find("null"));
  EXPECT_THROW(object.get("three"), ImportError);
}

TEST(JsonObjectTest, OneMemberUnderTwoNamesIsRefused) {
  const auto json = nlohmann::json::parse(R"({"m:one": 1, "one": 2})");
  JsonObject object(JsonPlace(json, "f: "));
  EXPECT_THROW(object.find("one"), ImportError);
}

TEST(JsonObjectTest, WhatNobodyAskedForIsCounted) {
  const auto json = nlohmann::json::parse(R"({"a": 1, "b": 2, "c": 3})");
  JsonObject object(JsonPlace(json, "f: "));
  object.find("b");
  NetworkReport report;
  object.countUnread(report);
  object.countUnread(report);
  ASSERT_EQ(report.notes().size(), 2u);
  EXPECT_EQ(report.notes()[0].what, "member \"a\"");
  EXPECT_EQ(report.notes()[0].count, 2);
  EXPECT_EQ(report.notes()[0].firstWhere, "f: ");
}

TEST(JsonPlaceTest, NamesAreNeitherEmptyNorLongNorWithControlCharacters) {
  const auto name = [](const nlohmann::json& json) { return JsonPlace(json, "f: /x").name(5); };
  EXPECT_EQ(name("a'b;"), "a'b;");
  EXPECT_THROW(name(""), ImportError);
  EXPECT_THROW(name("abcdef"), ImportError);
  EXPECT_THROW(name("\xc3\xa4\xc3\xa4\xc3\xa4"), ImportError);
  EXPECT_THROW(name(std::string("a\0b", 3)), ImportError);
  EXPECT_THROW(name("a\nb"), ImportError);
  EXPECT_THROW(name(7), ImportError);
}

TEST(JsonPlaceTest, NumbersBeyond32BitsAreNothing) {
  const auto number = [](const char* text) {
    const auto json = nlohmann::json::parse(text);
    return JsonPlace(json, "f: /x").number();
  };
  EXPECT_EQ(number("2147483647"), 2147483647);
  EXPECT_EQ(number("-2147483648"), -2147483647 - 1);
  EXPECT_FALSE(number("2147483648"));
  EXPECT_FALSE(number("99999999999999999999"));
  EXPECT_FALSE(number("1e300"));
  EXPECT_THROW(number("\"1\""), ImportError);
  EXPECT_THROW(number("true"), ImportError);
}

TEST(NetworkReportTest, BeyondSomeHundredKindsTheRestIsLumped) {
  NetworkReport report;
  for (int i = 0; i < 1000; ++i) report.add("kind " + std::to_string(i), "f");
  EXPECT_EQ(report.notes().size(), 201u);
  EXPECT_EQ(report.notes().back().what, "other things");
  EXPECT_EQ(report.notes().back().count, 800);
}

}  // namespace
}  // namespace zntopo::tools
