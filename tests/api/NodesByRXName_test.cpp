// Nodes by a pattern of names or of addresses, which goes through the filters that are installed.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FilterConfiguration.h"
#include "tests/support/Places.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class NodesByRXNameTest : public ApiTest {
 protected:
  /// The names of the nodes that are found with an empty cache.
  std::vector<std::string> find(const std::string& pattern, int rd = -1) {
    ZNTopoAPI_Impl::cache()->clear(true);
    std::vector<std::string> names;
    const auto found = impl.getNodesByRXName(pattern, status, rd);
    for (const auto& node : *found) names.push_back(node->getName());
    return names;
  }

  void addNode(int number, const std::string& name, const std::string& address = "",
               const Values& more = {}) {
    store->addNode(uuid(number), name);
    if (address.empty()) return;
    store->addInterface(uuid(number, 'b'), uuid(number), "eth");
    store->addAddress(uuid(number, 'c'), uuid(number, 'b'), uuid(number), address, more);
  }

  void expectFailure(ZNTopoStatus code, const std::string& text) {
    EXPECT_EQ(status.getStatus(), code);
    EXPECT_EQ(status.getAuxMsg(), text + "\n");
  }

  const FilterConfiguration configuration{"etc", inSourceTree("data/filter")};
};
ZNTOPO_ON_ENGINES(NodesByRXNameTest, kMainEngines);

TEST_P(NodesByRXNameTest, AnEmptyPatternIsRefused) {
  EXPECT_THAT(*impl.getNodesByRXName("", status, -1), IsEmpty());
  expectFailure(ZN_API_ILLEGAL_INPUT, "Null Node Name");
}

TEST_P(NodesByRXNameTest, AnIdentifierAsAPatternIsThatNode) {
  const CapturedLog log(MC_INFO);
  addNode(1, "edge");
  EXPECT_THAT(find(uuid(1), 5), ElementsAre("edge"));
  EXPECT_THAT(find(uuid(2), 5), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(log.lines(), Contains("Found UUID = " + uuid(1) + " \n"));
}

TEST_P(NodesByRXNameTest, APatternOfNamesFindsAllThatFitIt) {
  addNode(1, "edge-1.net");
  addNode(2, "edge-22.net");
  addNode(3, "core-1.net");
  EXPECT_THAT(find("edge*"), UnorderedElementsAre("edge-1.net", "edge-22.net"));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  EXPECT_THAT(find("*-1.net"), UnorderedElementsAre("edge-1.net", "core-1.net"));
  EXPECT_THAT(find("edge-?.net"), ElementsAre("edge-1.net"));
  EXPECT_THAT(find("core-1.net"), ElementsAre("core-1.net"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(NodesByRXNameTest, APatternOfAddressesFindsTheNodesThatHaveThem) {
  addNode(1, "a", "10.0.0.1");
  addNode(2, "b", "10.0.0.22");
  addNode(3, "c", "10.0.1.1");
  EXPECT_THAT(find("10.0.0.1"), ElementsAre("a"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(find("10.0.0.*"), UnorderedElementsAre("a", "b"));
  EXPECT_THAT(find("10.0.?.1"), UnorderedElementsAre("a", "c"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(NodesByRXNameTest, ARouteDistinguisherTellsEqualAddressesApart) {
  addNode(1, "a", "10.0.0.1", {{"RouteDistinguisher", 7}});
  addNode(2, "b", "10.0.0.1", {{"RouteDistinguisher", 8}});
  EXPECT_THAT(find("10.0.0.1", 7), ElementsAre("a"));
  EXPECT_THAT(find("10.0.0.*", 8), ElementsAre("b"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(find("10.0.0.1", 9), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
}

TEST_P(NodesByRXNameTest, WithARouteDistinguisherThePrivateAddressCountsElseThePublicOne) {
  addNode(1, "a", "192.168.0.1", {{"PubV4Address", "10.0.0.1"}, {"RouteDistinguisher", 0}});
  EXPECT_THAT(find("192.168.0.1", 0), ElementsAre("a"));
  EXPECT_THAT(find("10.0.0.1", -1), ElementsAre("a"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(find("10.0.0.1", 0), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_THAT(find("192.168.0.1", -1), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
}

TEST_P(NodesByRXNameTest, APatternThatNothingFitsTellsOfAnEmptyList) {
  addNode(1, "edge");
  EXPECT_THAT(find("core*"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_THAT(find("10.0.0.1"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
}

// The filter asks the active tables, whatever tables the nodes are read from.
TEST_P(NodesByRXNameTest, WhatIsFoundAndCannotBeReadDoesNotExist) {
  addNode(1, "edge");
  const CapturedLog log(MC_INFO);
  EXPECT_THAT(*working.getNodesByRXName("ed*", status, -1), IsEmpty());
  expectFailure(ZN_API_OBJ_NOT_EXIST, "No object found with the given name");
  EXPECT_THAT(log.lines(), Contains("Error: input name is empty\n"));
}

TEST_P(NodesByRXNameTest, ThePatternBecomesADocumentThatIsLogged) {
  const CapturedLog log(MC_INFO);
  find("ed*", 5);
  EXPECT_THAT(log.lines(),
              Contains(AllOf(HasSubstr("Filter is <filters "), HasSubstr("<string>ed*</string>"))));
}

TEST_P(NodesByRXNameTest, APatternThatSpoilsTheDocumentIsNotValid) {
  addNode(1, "a<b");
  EXPECT_THAT(find("a<b"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(find("a&lt;b"), ElementsAre("a<b")) << "it goes in as it stands";
  EXPECT_TRUE(status.isOK());
}

TEST_P(NodesByRXNameTest, QuotesAndSemicolonsFindTheNodeThatBearsThem) {
  const std::vector<std::string> names = {"a'b",      "a''b", "x'; delete from nwnode; --",
                                          "a#b#c",    "50%",  "a_b",
                                          "see IF.x", "a\\b", "[a]!"};
  int number = 0;
  for (const std::string& name : names) addNode(++number, name);
  addNode(++number, "aXb");
  for (const std::string& name : names) {
    if (name == "50%") continue;  // has no letter, and is one of addresses
    EXPECT_THAT(find(name), ElementsAre(name)) << status.getAuxMsg();
  }
  EXPECT_THAT(find("*50%x"), IsEmpty());
  EXPECT_EQ(store->count("nwnode"), number);
}

TEST_P(NodesByRXNameTest, EachSearchReplacesTheFilterOfTheLast) {
  addNode(1, "edge");
  addNode(2, "core");
  EXPECT_THAT(find("edge"), ElementsAre("edge"));
  EXPECT_THAT(find("core"), ElementsAre("core"));
  EXPECT_THAT(impl.getDefaultFileFilterName(status), SizeIs(1));
  EXPECT_EQ(impl.getDefaultFileFilterName(status).count("op1"), 1U);
}

}  // namespace
}  // namespace zntopo::test
