#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/ApiFixture.h"

/// @file
/// How values of each type are compared, and what NULL does.

namespace zntopo::test {
namespace {

class ValuesTest : public LanguageTest {
 protected:
  /// Nodes with the values of one column, whose identifiers are numbered from 0 on.
  void addNodes(const std::string& column, const std::vector<Value>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      store_->addNode(uuid(static_cast<int>(i)), "n" + std::to_string(i), {{column, values[i]}});
    }
  }
};

ZNTOPO_ON_ENGINES(ValuesTest, kMainEngines);

/// The identifiers of nodes by their numbers.
Ids ids(const std::vector<int>& numbers) {
  Ids result;
  result.reserve(numbers.size());
  for (const int number : numbers) result.push_back(uuid(number));
  return result;
}

/// <element><value compare="...">text</value></element>
std::string compared(const std::string& element, const std::string& value,
                     const std::string& compare, const std::string& text) {
  const std::string attribute = compare.empty() ? "" : " compare=\"" + compare + "\"";
  return "<" + element + "><" + value + attribute + ">" + text + "</" + value + "></" + element +
         ">";
}

TEST_P(ValuesTest, NumbersCompareInSixWays) {
  addNodes("L2DomainId", {nullptr, -5, 0, 7, 2147483647});
  const auto found = [this](const std::string& compare, const std::string& text) {
    return nodes(compared("l2DomainId", "integer", compare, text));
  };
  EXPECT_EQ(found("", "7"), ids({3}));
  EXPECT_EQ(found("equal", "7"), ids({3}));
  EXPECT_EQ(found("notEqual", "7"), ids({0, 1, 2, 4}));
  EXPECT_EQ(found("less", "0"), ids({1}));
  EXPECT_EQ(found("lessOrEqual", "0"), ids({1, 2}));
  EXPECT_EQ(found("greater", "0"), ids({3, 4}));
  EXPECT_EQ(found("greaterOrEqual", "0"), ids({2, 3, 4}));
  EXPECT_EQ(found("equal", "2147483647"), ids({4}));
  EXPECT_EQ(found("greater", "-2147483648"), ids({1, 2, 3, 4}));
  EXPECT_EQ(found(" less\n", "\n -4\t"), ids({1}));
}

TEST_P(ValuesTest, ANumberIsThereUnlessItIsNull) {
  addNodes("L2DomainId", {nullptr, 0, 7});
  EXPECT_EQ(nodes("<l2DomainId><present/></l2DomainId>"), ids({1, 2}));
  EXPECT_EQ(nodes("<l2DomainId><absent/></l2DomainId>"), ids({0}));
}

TEST_P(ValuesTest, TextsCompareInTwoWays) {
  addNodes("sysLocation", {nullptr, "", "Oslo", "Oslo 2", "Bergen"});
  EXPECT_EQ(nodes(compared("sysLocation", "string", "", "Oslo")), ids({2}));
  EXPECT_EQ(nodes(compared("sysLocation", "string", "equal", "Os*")), ids({2, 3}));
  EXPECT_EQ(nodes(compared("sysLocation", "string", "notEqual", "Oslo*")), ids({0, 1, 4}));
  EXPECT_EQ(nodes(compared("sysLocation", "exact", "notEqual", "Oslo")), ids({0, 1, 3, 4}));
  EXPECT_EQ(nodes(compared("sysLocation", "string", "", "")), ids({1}));
  EXPECT_EQ(nodes(compared("sysLocation", "string", "", "*")), ids({1, 2, 3, 4}));
}

TEST_P(ValuesTest, ATextIsThereUnlessItIsNullOrEmpty) {
  addNodes("sysLocation", {nullptr, "", "Oslo"});
  EXPECT_EQ(nodes("<sysLocation><present/></sysLocation>"), ids({2}));
  EXPECT_EQ(nodes("<sysLocation><absent/></sysLocation>"), ids({0, 1}));
}

TEST_P(ValuesTest, ADashIsNoSystemIdentifier) {
  addNodes("SysOID", {nullptr, "", "-", "1.3.6.1.4.1.9.1.516"});
  EXPECT_EQ(nodes("<sysOID><present/></sysOID>"), ids({3}));
  EXPECT_EQ(nodes("<sysOID><absent/></sysOID>"), ids({0, 1, 2}));
  EXPECT_EQ(nodes("<sysOID><string>1.3.6.1.4.1.9.*</string></sysOID>"), ids({3}));
}

TEST_P(ValuesTest, AFlagIsSetFromOneOn) {
  addNodes("isBGP", {nullptr, -1, 0, 1, 2});
  EXPECT_EQ(nodes("<isBGP><boolean>true</boolean></isBGP>"), ids({3, 4}));
  EXPECT_EQ(nodes("<isBGP><boolean>false</boolean></isBGP>"), ids({0, 1, 2}));
}

TEST_P(ValuesTest, AnyValueButZeroMakesANodeAnHsrpNode) {
  addNodes("isHSRP", {nullptr, -1, 0, 1});
  EXPECT_EQ(nodes("<isHSRP><boolean>true</boolean></isHSRP>"), ids({1, 3}));
  EXPECT_EQ(nodes("<isHSRP><boolean>false</boolean></isHSRP>"), ids({0, 2}));
}

TEST_P(ValuesTest, StatesAreWordsOrNumbers) {
  addNodes("Status", {nullptr, 1, 5, 6, 13, 77});
  EXPECT_EQ(nodes("<status><state>Major</state></status>"), ids({2}));
  EXPECT_EQ(nodes("<status><state> Critical\n Major  Disabled </state></status>"), ids({2, 3, 4}));
  EXPECT_EQ(nodes(compared("status", "state", "notEqual", "Major Critical")), ids({0, 1, 4, 5}));
  EXPECT_EQ(nodes("<status><integer compare=\"greater\">6</integer></status>"), ids({4, 5}));
  EXPECT_EQ(nodes("<status><present/></status>"), ids({1, 2, 3, 4, 5}));
  EXPECT_EQ(nodes("<status><absent/></status>"), ids({0}));
}

TEST_P(ValuesTest, TimesAreSecondsSinceTheEpoch) {
  addNodes("CreateTimeUTC", {nullptr, 0, 1795230000, 1795230001});
  const auto found = [this](const std::string& compare) {
    return nodes(compared("createTime", "time", compare, "2026-11-21T03:00:00Z"));
  };
  EXPECT_EQ(found(""), ids({2}));
  EXPECT_EQ(found("less"), ids({1}));
  EXPECT_EQ(found("lessOrEqual"), ids({1, 2}));
  EXPECT_EQ(found("greater"), ids({3}));
  EXPECT_EQ(found("notEqual"), ids({0, 1, 3}));
  EXPECT_EQ(nodes("<createTime><present/></createTime>"), ids({2, 3}));
  EXPECT_EQ(nodes("<createTime><absent/></createTime>"), ids({0, 1}));
}

TEST_P(ValuesTest, EveryDayOfTheCalendarIsTheRightNumberOfSeconds) {
  struct Case {
    const char* time;
    long long seconds;
  };
  for (const Case& each : {Case{"1970-01-01T00:00:00Z", 0},
                           {"1969-12-31T23:59:59Z", -1},
                           {"1999-12-31T23:59:59Z", 946684799},
                           {"2000-02-29T12:30:15Z", 951827415},
                           {"2000-03-01T00:00:00Z", 951868800},
                           {"2024-02-29T00:00:00Z", 1709164800},
                           {"2038-01-19T03:14:07Z", 2147483647},
                           {"2100-03-01T00:00:00Z", 4107542400}}) {
    parse(document(nodeFilter(compared("createTime", "time", "less", each.time))));
    EXPECT_THAT(filters_.condition("f"),
                testing::HasSubstr(" < " + std::to_string(each.seconds) + " "))
        << each.time;
  }
}

TEST_P(ValuesTest, TheEndOfThePreviousDiscoveryIsATime) {
  addNodes("CreateTimeUTC", {nullptr, 999, 1000, 1001});
  const std::string newer = "<createTime><previousDiscovery compare=\"greater\"/></createTime>";
  const std::string older = "<createTime><previousDiscovery compare=\"lessOrEqual\"/></createTime>";
  store_->execute("update state set PrevDiscoEndTime = 1000");
  EXPECT_EQ(nodes(newer), ids({3}));
  EXPECT_EQ(nodes(older), ids({1, 2}));
  store_->execute("update state set PrevDiscoEndTime = null");
  EXPECT_EQ(nodes(newer), Ids{});
  EXPECT_EQ(nodes(older), Ids{});
}

}  // namespace
}  // namespace zntopo::test
