#include "zntopo/core/detail/MessageTexts.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>
#include <nl_types.h>

#include <algorithm>
#include <iterator>
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
  const std::string file =
      zntopo::test::inBuildTree("data/messages/") + language + "/zorb_topo.cat";
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

TEST(MessageTextsTest, EveryStatusKeepsItsCodeItsNumberAndItsName) {
  struct Expected {
    int code;
    int number;
    const char* name;
  };
  const Expected all[] = {
      {0, 10, "ZN_API_SUCCESS"},
      {1, 11, "ZN_API_DB_NOT_READY"},
      {2, 12, "ZN_API_INVALID_ID"},
      {3, 13, "ZN_API_UNKNOWN_IP"},
      {4, 14, "ZN_API_PATH_PROCESSING_ERROR"},
      {5, 15, "ZN_API_OBJ_EXIST"},
      {6, 16, "ZN_API_OBJ_NOT_EXIST"},
      {7, 17, "ZN_API_ILLEGAL_INPUT"},
      {8, 18, "ZN_API_DB_INIT_FAILURE"},
      {9, 19, "ZN_API_DB_CONNECTION_FAILURE"},
      {10, 20, "ZN_API_ADDR_QUERY_FAILURE"},
      {11, 21, "ZN_API_FILTER_ERROR"},
      {12, 22, "ZN_API_NON_V6_NODE"},
      {13, 23, "ZN_API_INVALID_NUM_HOPS"},
      {14, 24, "ZN_API_EMPTY_OBJID_LIST"},
      {15, 25, "ZN_API_SQL_EXEC_ERROR"},
      {16, 26, "ZN_API_SQL_BIND_PARM_ERROR"},
      {17, 27, "ZN_API_SQL_START_TRANSACTION_ERROR"},
      {18, 28, "ZN_API_SQL_COMMIT_TRANSACTION_ERROR"},
      {19, 29, "ZN_API_NO_PATH"},
      {20, 30, "ZN_API_SQL_BIND_STATEMENT_ERROR"},
      {21, 31, "ZN_API_SQL_BIND_COLUMN_ERROR"},
      {22, 32, "ZN_API_JNI_CALL_ERROR"},
      {23, 33, "ZN_API_INCOMPLETE_NEIGHBOR_INFO"},
      {24, 34, "ZN_API_NOT_SUPPORTED_OPERATION"},
      {25, 35, "ZN_API_HSRP_NOT_READY"},
      {26, 36, "ZN_API_INTERNAL_ERROR"},
      {27, 48, "ZN_API_STATUS_NOTIF_GEN_ERROR"},
      {28, 49, "ZN_API_ATTR_NOTIF_GEN_ERROR"},
      {29, 50, "ZN_API_LIFE_CYCLE_GEN_ERROR"},
      {30, 52, "ZN_API_THREAD_CREATE_FAILED"},
      {31, 52, "ZN_API_THREAD_DETACH_FAILED"},
      {32, 52, "ZN_API_SQL_EXEC_DIRECT_ERROR"},
      {33, 52, "ZN_API_SQL_OBJ_PERSISTENCY_ERROR"},
      {34, 52, "ZN_API_SQL_EXTENSIBLE_ATTR_ERROR"},
      {35, 37, "ZN_API_JNI_ERROR"},
      {36, 38, "ZN_API_XML_FILTER_VALIDATION_ERROR"},
      {37, 39, "ZN_API_XML_FILTER_TRANSFORMATION_ERROR"},
      {38, 40, "ZN_API_XML_FILTER_SUBSTITUTION_ERROR"},
      {39, 41, "ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR"},
      {40, 42, "ZN_API_XML_FILTER_FILE_NOT_FOUND_ERROR"},
      {41, 43, "ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR"},
      {42, 52, "ZN_API_IN_RDONLY_MODE"},
      {43, 44, "ZN_API_NOTIFCHANNEL_CREATION_ERROR"},
      {44, 45, "ZN_API_NOTIFCHANNEL_DISCONNECTED"},
      {45, 46, "ZN_API_NOTIFCHANNEL_RECV_ERROR"},
      {46, 47, "ZN_API_NOT_INITED"},
      {47, 51, "ZN_API_STATE_GEN_ERROR"},
      {48, 52, "ZN_API_SWITCH_DB_NOT_DONE_FOR_TOPO_ERROR"},
      {49, 65, "ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR"},
      {52, 68, "ZN_API_XML_SUBSYSTEM_INIT_FAILURE"},
      {53, 69, "ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS"},
      {54, 70, "ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR"},
      {55, 52, "ZN_API_SQL_FETCH_ERROR"},
      {56, 71, "ZN_API_XML_PARSE_ERROR"},
      {57, -1, "ZN_API_SQL_CONSTRAINT_VIOLATION"},
      {58, -1, "ZN_API_NONUNIQUE_NAME"},
  };
  ASSERT_EQ(std::size(all), kStatusTexts.size());
  for (const Expected& expected : all) {
    const auto status = static_cast<ZNTopoStatus>(expected.code);
    EXPECT_STREQ(statusName(status), expected.name);
    EXPECT_EQ(statusMessage(status).number, expected.number) << expected.name;
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
