#include "zntopo/core/detail/MessageTexts.h"

#include <gtest/gtest.h>
#include <nl_types.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

using namespace zntopo;
using namespace zntopo::detail;

namespace {

using Texts = std::map<int, std::string>;

Texts textsOfTheTable() {
  Texts texts;
  const auto add = [&texts](const Message& message) {
    if (message.number == kNotInCatalogue) return;
    const auto [place, isNew] = texts.emplace(message.number, message.text);
    EXPECT_TRUE(isNew || message.number == kUnknownErrorCode.number) << message.number;
    EXPECT_EQ(place->second, message.text);
  };
  for (const StatusText& status : kStatusTexts) add(status.message);
  for (const Message& message : kOtherMessages) add(message);
  return texts;
}

// Every text of a built catalogue, in whatever set and number.
std::map<int, Texts> textsOfTheCatalogue(const std::string& language) {
  const std::string file = ZNTOPO_BUILD_DIR "/data/messages/" + language + "/zorb_topo.cat";
  const nl_catd catalogue = catopen(file.c_str(), 0);
  EXPECT_NE(catalogue, reinterpret_cast<nl_catd>(-1)) << file;
  std::map<int, Texts> texts;
  const char* const missing = "(missing)";
  for (int set = 1; set <= 3; ++set) {
    for (int number = 1; number <= 300; ++number) {
      const char* const text = catgets(catalogue, set, number, missing);
      if (text != missing) texts[set][number] = text;
    }
  }
  catclose(catalogue);
  return texts;
}

// What a translation must leave as it is: white space at both ends, and conversions.
std::vector<std::string> frameOf(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\n");
  const auto last = text.find_last_not_of(" \t\n");
  std::vector<std::string> frame{text.substr(0, first), text.substr(last + 1)};
  for (auto at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1)) {
    frame.push_back(text.substr(at, 2));
  }
  return frame;
}

}  // namespace

TEST(MessageTextsTest, TheDefaultCatalogueHoldsTheTextsOfTheTableAndNoOthers) {
  const std::map<int, Texts> expected{{kMessageSet, textsOfTheTable()}};
  EXPECT_EQ(textsOfTheCatalogue("en"), expected);
}

TEST(MessageTextsTest, TheGermanCatalogueTranslatesEveryTextWithinItsFrame) {
  const Texts defaults = textsOfTheTable();
  auto sets = textsOfTheCatalogue("de");
  ASSERT_EQ(sets.size(), 1U);
  const Texts& german = sets[kMessageSet];
  ASSERT_EQ(german.size(), defaults.size());
  for (const auto& [number, text] : defaults) {
    ASSERT_TRUE(german.count(number)) << number;
    EXPECT_EQ(frameOf(german.at(number)), frameOf(text)) << number;
  }
}

TEST(MessageTextsTest, TheStatusesAreSortedAndNamed) {
  EXPECT_TRUE(std::is_sorted(
      kStatusTexts.begin(), kStatusTexts.end(),
      [](const StatusText& left, const StatusText& right) { return left.status < right.status; }));
  EXPECT_STREQ(statusName(ZN_API_SUCCESS), "ZN_API_SUCCESS");
  EXPECT_STREQ(statusName(ZN_API_XML_PARSE_ERROR), "ZN_API_XML_PARSE_ERROR");
  EXPECT_STREQ(statusName(ZN_API_NONUNIQUE_NAME), "ZN_API_NONUNIQUE_NAME");
  for (const int code : {-1, 50, 51, 59}) {
    EXPECT_STREQ(statusName(static_cast<ZNTopoStatus>(code)), "") << code;
  }
}

TEST(MessageTextsTest, EveryCodeFindsItsMessage) {
  struct Expected {
    int code;
    int number;
    const char* text;
  };
  for (const auto& [code, number, text] : {
           Expected{0, 10, "Successful API Call"},
           {7, 17, "The input paramter value to Topo API is illegal "},
           {26, 36, "Internal TopoAPI Error - contact Corvane support"},
           {27, 48, "Error while generating StatusChangeNotification."},
           {35, 37, "Java Native Interface Error"},
           {47, 51, "Error while generating TopologyStateNotification."},
           {49, 65,
            " The object type specified in filter definition does not match the object type in "
            "object retrieval method"},
           {56, 71, " Failure while parsing XML file."},
           {57, -1, " Uniqueness violation, like inserting a key value that already exists."},
           {58, -1, " The given name is not unique."},
           {55, 52, "Unknown Error code "},
           {50, 52, "Unknown Error code "},
           {59, 52, "Unknown Error code "},
       }) {
    const Message& message = statusMessage(static_cast<ZNTopoStatus>(code));
    EXPECT_EQ(message.number, number) << code;
    EXPECT_STREQ(message.text, text) << code;
  }
}

TEST(MessageTextsTest, TheOtherMessagesAreSortedByNumber) {
  EXPECT_TRUE(std::is_sorted(
      kOtherMessages.begin(), kOtherMessages.end(),
      [](const Message& left, const Message& right) { return left.number < right.number; }));
}
