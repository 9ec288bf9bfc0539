#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/ApiFixture.h"

/// @file
/// Tests of objects by objects of other kinds, and by what they belong to.

namespace zntopo::test {
namespace {

/// Nodes 1 to 4. Node 1 has two interfaces, node 2 and 3 one, node 4 none.
class GroupsTest : public LanguageTest {
 protected:
  void SetUp() override {
    LanguageTest::SetUp();
    if (!store_) return;
    for (int i = 1; i <= 4; ++i) store_->addNode(uuid(i), "node-" + std::to_string(i));
    store_->addInterface(port(1), uuid(1), "eth0", {{"IfAdminState", 1}, {"IfOperStatus", 1}});
    store_->addInterface(port(2), uuid(1), "eth1", {{"IfAdminState", 2}, {"IfOperStatus", 2}});
    store_->addInterface(port(3), uuid(2), "eth0", {{"IfAdminState", 1}, {"IfOperStatus", 2}});
    store_->addInterface(port(4), uuid(3), "eth1");
    for (int i = 1; i <= 3; ++i) {
      store_->addAddress(place(i), port(i), uuid(i == 3 ? 2 : 1), "10.0.0." + std::to_string(i),
                         {{"SubnetObjId", subnet_}, {"PingState", i - 1}});
    }
  }

  static std::string port(int number) { return uuid(number, 'b'); }
  static std::string place(int number) { return uuid(number, 'c'); }
  static Ids nodeIds(const std::vector<int>& numbers) { return idsOf(numbers, 'a'); }
  static Ids portIds(const std::vector<int>& numbers) { return idsOf(numbers, 'b'); }
  static Ids placeIds(const std::vector<int>& numbers) { return idsOf(numbers, 'c'); }

  /// An interface in a VLAN or a mesh.
  void contain(const std::string& container, int type, int member, const std::string& node) {
    store_->insert("containment", {{"ContainerObjID", container},
                                   {"ContainedObjID", port(member)},
                                   {"ContainerType", type},
                                   {"ContainedType", 2},
                                   {"ContainedNodeObjId", node}});
  }
  void addVariable(const std::string& owner, const std::string& name, const Values& value) {
    Values row = value;
    row.insert({{"ObjID", owner}, {"VarName", name}, {"VarValType", 1}});
    store_->insert("userdefvar", row);
  }
  /// The three kinds of objects that pass a test of membership.
  void expect(const std::string& test, const std::vector<int>& nodes_,
              const std::vector<int>& ports, const std::vector<int>& places) {
    EXPECT_EQ(nodes(test), nodeIds(nodes_)) << test;
    EXPECT_EQ(interfaces(test), portIds(ports)) << test;
    EXPECT_EQ(addresses(test), placeIds(places)) << test;
  }

  const std::string subnet_ = uuid(1, 'd');

 private:
  static Ids idsOf(const std::vector<int>& numbers, char kind) {
    Ids result;
    for (const int number : numbers) result.push_back(uuid(number, kind));
    return result;
  }
};

ZNTOPO_ON_ENGINES(GroupsTest, kMainEngines);

std::string within(const std::string& kind, const std::string& oper, const std::string& tests) {
  return "<" + kind + "><operator oper=\"" + oper + "\">" + tests + "</operator></" + kind + ">";
}
std::string attribute(const std::string& test) { return "<attribute>" + test + "</attribute>"; }
std::string named(const std::string& group, const std::string& name) {
  return "<" + group + "><name><string>" + name + "</string></name></" + group + ">";
}

constexpr const char* kUp = "<attribute><ifAdminState><state>Up</state></ifAdminState></attribute>";
constexpr const char* kDown =
    "<attribute><ifOperStatus><state>Down</state></ifOperStatus></attribute>";

TEST_P(GroupsTest, OneInterfaceHasToPassAllTestsOfANode) {
  EXPECT_EQ(nodes(within("interface", "AND", std::string(kUp) + kDown)), nodeIds({2}));
  EXPECT_EQ(nodes(within("interface", "OR", std::string(kUp) + kDown)), nodeIds({1, 2}));
  EXPECT_EQ(nodes(within("interface", "NOT", kUp)), nodeIds({1, 3}));
  // Two tests of a node may be passed by two interfaces.
  EXPECT_EQ(selectedBy(document("<nodeAssertion name=\"f\"><operator oper=\"AND\">" +
                                attribute(within("interface", "NOOP", kUp)) +
                                attribute(within("interface", "NOOP", kDown)) +
                                "</operator></nodeAssertion>")),
            nodeIds({1, 2}));
}

TEST_P(GroupsTest, NodesWithoutInterfacesStayUnderOrAndNot) {
  const std::string any = attribute(within("interface", "NOOP", kUp));
  EXPECT_EQ(selectedBy(document("<nodeAssertion name=\"f\"><operator oper=\"NOT\">" + any +
                                "</operator></nodeAssertion>")),
            nodeIds({3, 4}));
  EXPECT_EQ(selectedBy(document("<nodeAssertion name=\"f\"><operator oper=\"OR\">" + any +
                                attribute("<name><string>node-4</string></name>") +
                                "</operator></nodeAssertion>")),
            nodeIds({1, 2, 4}));
}

TEST_P(GroupsTest, ObjectsAreTestedByThoseThatTheyBelongTo) {
  const std::string one = attribute("<name><string>node-1</string></name>");
  EXPECT_EQ(interfaces(within("node", "NOOP", one)), portIds({1, 2}));
  EXPECT_EQ(addresses(within("node", "NOOP", one)), placeIds({1, 2}));
  EXPECT_EQ(addresses(within("interface", "NOOP", kDown)), placeIds({2, 3}));
  const std::string silent =
      attribute("<pingState><state>NotResponding Unreachable</state></pingState>");
  EXPECT_EQ(nodes(within("address", "NOOP", silent)), nodeIds({1, 2}));
  EXPECT_EQ(interfaces(within("address", "NOOP", silent)), portIds({2, 3}));
  // What an inner object belongs to can be tested, too.
  EXPECT_EQ(nodes(within("address", "NOOP", attribute(named("subnet", "lan")))), Ids{});
  store_->addEntity(subnet_, "lan", 7);
  EXPECT_EQ(nodes(within("address", "NOOP", attribute(named("subnet", "lan")))), nodeIds({1, 2}));
}

TEST_P(GroupsTest, VlansAndMeshesContainInterfaces) {
  store_->addEntity(uuid(1, 'e'), "voice", 4);
  store_->addEntity(uuid(2, 'e'), "data", 4);
  store_->addEntity(uuid(3, 'e'), "voice", 10);
  contain(uuid(1, 'e'), 4, 1, uuid(1));
  contain(uuid(2, 'e'), 4, 3, uuid(2));
  contain(uuid(3, 'e'), 10, 4, uuid(3));
  addVariable(uuid(2, 'e'), "VlanId", {{"IntVal", 20}});
  expect("<VLAN/>", {1, 2}, {1, 3}, {1, 3});
  expect(named("VLAN", "v*"), {1}, {1}, {1});
  expect("<VLAN><objectID><string>" + uuid(2, 'e') + "</string></objectID></VLAN>", {2}, {3}, {3});
  expect("<VLAN><number><integer>20</integer></number></VLAN>", {2}, {3}, {3});
  expect("<VLAN><number><integer>20</integer></number><name><string>voice</string></name></VLAN>",
         {}, {}, {});
  expect("<mesh/>", {3}, {4}, {});
  expect(named("mesh", "voice"), {3}, {4}, {});
}

TEST_P(GroupsTest, SubnetsHoldAddresses) {
  store_->addEntity(subnet_, "10.0.0.0/24", 7);
  store_->addAddress(place(9), subnet_, "", "10.0.0.0",
                     {{"NodeObjId", nullptr}, {"isSubnet", 1}, {"SubnetObjId", subnet_}});
  // The row of the subnet itself lies in it, too.
  expect("<subnet/>", {1, 2}, {1, 2, 3}, {1, 2, 3, 9});
  expect(named("subnet", "10.0.0.*"), {1, 2}, {1, 2, 3}, {1, 2, 3, 9});
  expect(named("subnet", "10.1.*"), {}, {}, {});
}

TEST_P(GroupsTest, HsrpGroupsHaveMembersWithStates) {
  store_->addEntity(uuid(1, 'f'), "gateway", 11);
  for (int i = 1; i <= 3; ++i) {
    if (i == 2) continue;
    store_->insert("hsrpaddress", {{"AddressID", place(i)},
                                   {"AddressIfObjID", port(i)},
                                   {"ObjID", uuid(1, 'f')},
                                   {"state", i == 1 ? 6 : 5},
                                   {"HSRPPriority", 100 + i},
                                   {"HSRPNumber", 7}});
  }
  expect("<HSRP/>", {1, 2}, {1, 3}, {1, 3});
  expect(named("HSRP", "gate*"), {1, 2}, {1, 3}, {1, 3});
  expect("<HSRP><hsrpState><state>Active</state></hsrpState></HSRP>", {1}, {1}, {1});
  expect(
      "<HSRP><number><integer>7</integer></number><priority><integer compare=\"greater\">102"
      "</integer></priority></HSRP>",
      {2}, {3}, {3});
  // One member has to be all of it.
  expect(
      "<HSRP><hsrpState><state>Active</state></hsrpState><priority><integer>103</integer>"
      "</priority></HSRP>",
      {}, {}, {});
}

TEST_P(GroupsTest, ContainersHaveMembers) {
  store_->insert("nwifc",
                 {{"ObjId", uuid(1, 'e')}, {"EntityName", "wan"}, {"IFCType", 2}, {"AppsID", 5}});
  store_->insert("nwifcctm", {{"ContainerObjId", uuid(1, 'e')}, {"InterfaceObjId", port(2)}});
  expect("<container/>", {1}, {2}, {2});
  expect(named("container", "wan"), {1}, {2}, {2});
  expect(
      "<container><type><integer>2</integer></type><application><integer>5</integer>"
      "</application></container>",
      {1}, {2}, {2});
  expect("<container><type><integer>1</integer></type></container>", {}, {}, {});
}

TEST_P(GroupsTest, NeighborsAreFoundWhicheverEndOfALinkIsFirst) {
  store_->addLink(port(1), port(3), uuid(1), uuid(2));
  store_->addLink(port(4), port(2), uuid(3), uuid(1));
  store_->addLink(port(3), port(4), uuid(2), uuid(3), {{"reltype", 2}});
  EXPECT_EQ(nodes(named("neighbor", "node-1")), nodeIds({2, 3}));
  EXPECT_EQ(nodes(named("neighbor", "node-2")), nodeIds({1}));
  EXPECT_EQ(nodes("<neighbor/>"), nodeIds({1, 2, 3}));
  EXPECT_EQ(interfaces(named("neighbor", "node-1")), portIds({3, 4}));
  EXPECT_EQ(interfaces("<neighbor/>"), portIds({1, 2, 3, 4}));
}

TEST_P(GroupsTest, UserVariablesHaveNamesAndValues) {
  addVariable(uuid(1), "rack", {{"StrVal", "A 12"}});
  addVariable(uuid(2), "rack", {{"StrVal", "B 3"}});
  addVariable(uuid(2), "units", {{"IntVal", 4}});
  addVariable(port(3), "units", {{"IntVal", 4}});
  const std::string rack = "<name><string>rack</string></name>";
  EXPECT_EQ(nodes("<userVariable>" + rack + "</userVariable>"), nodeIds({1, 2}));
  EXPECT_EQ(nodes("<userVariable>" + rack + "<text><string>A*</string></text></userVariable>"),
            nodeIds({1}));
  const std::string units =
      "<userVariable><name><string>units</string></name><number><integer compare=\"greater\">3"
      "</integer></number></userVariable>";
  EXPECT_EQ(nodes(units), nodeIds({2}));
  EXPECT_EQ(interfaces(units), portIds({3}));
}

}  // namespace
}  // namespace zntopo::test
