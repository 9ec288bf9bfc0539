// The exact texts of the statements: every blank counts.

#include "zntopo/api/detail/NodeSql.h"

#include <gtest/gtest.h>

#include <sstream>

#include "zntopo/api/detail/NodeRow.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::detail {
namespace {

const TableSet kActive;
const TableSet kWorking(WorkingDB);
const std::list<ObjID> kIDs = {ObjID("a"), ObjID("b")};

constexpr const char* kSelect =
    "select  NODE.ObjId, NODE.EntityName, NODE.IPLevel, NODE.QRMObjId, NODE.Description, "
    "NODE.ZoneNumber, NODE.V6CompoundStatus, NODE.V6GlobalStatus, NODE.V6SiteStatus, "
    "NODE.StatusChangeTimeUTC, NODE.CreateTimeUTC, NODE.ChangeTimeUTC, NODE.hasDynamicProperty, "
    "NODE.hasAddress, NODE.isATM, NODE.isOSPF, NODE.isBGP, NODE.isHSRP, NODE.isFrameRelay, "
    "NODE.isMultiHome, NODE.isMPLS, NODE.isLanSwitch, NODE.isManageable, NODE.isIPV6Router, "
    "NODE.isIPV4Router, NODE.SysOID, NODE.V4ManagementAddress,NODE.Status, NODE.L2DomainId, "
    "NODE.SNMPState, NODE.PubV4ManagementAdd, NODE.V4ManagementAddressRD,  NODE.isVRRP, "
    "NODE.isRMON, NODE.isRMON2, NODE.isDS1, NODE.isDS3, NODE.isSONET, NODE.isCDP, NODE.isSTP, "
    "NODE.isWireless, NODE.sysContact, NODE.sysLocation, NODE.isSNMPSupported   from ";

TEST(NodeSqlTest, TheBigSelectNamesItsColumnsAndTables) {
  EXPECT_EQ(nodeTables(kActive), "nwnode NODE ");
  EXPECT_EQ(nodeTables(kWorking), "nwnode_update NODE ");
  EXPECT_EQ(nodeSelect("", "nwnode NODE "), std::string(kSelect) + "nwnode NODE ");
  EXPECT_EQ(nodeSelect(" NODE.ObjID in ('a')", "nwnode NODE "),
            std::string(kSelect) + "nwnode NODE  where  NODE.ObjID in ('a')");
}

/// The names that stand behind "NODE." in the big select.
std::vector<std::string> namesInSelect() {
  std::string text = nodeSelect("", "");
  text = text.substr(text.find("NODE."), text.rfind(" from ") - text.find("NODE."));
  std::vector<std::string> names;
  std::istringstream stream(text);
  for (std::string name; std::getline(stream, name, ',');) {
    const std::size_t first = name.find("NODE.") + 5;
    names.push_back(name.substr(first, name.find(' ', first) - first));
  }
  return names;
}

TEST(NodeSqlTest, TheColumnTableHoldsEachColumnOfTheSelectInItsOrder) {
  std::vector<std::string> names;
  for (const Column& column : kNodeColumns) names.emplace_back(column.name);
  EXPECT_EQ(names.size(), 44u);
  EXPECT_EQ(names, namesInSelect());
  EXPECT_STREQ(kNodeColumns[N_isSNMPSupported].name, "isSNMPSupported");
  EXPECT_STREQ(kNodeColumns[N_V4ManagementAddressRD].name, "V4ManagementAddressRD");
}

TEST(NodeSqlTest, TextColumnsHaveTheirBuffersAndAllOthersAreNumbers) {
  const std::map<std::string, int> buffers = {{"ObjId", 37},
                                              {"EntityName", 256},
                                              {"QRMObjId", 37},
                                              {"Description", 2001},
                                              {"ZoneNumber", 65},
                                              {"SysOID", 65},
                                              {"V4ManagementAddress", 16},
                                              {"PubV4ManagementAdd", 16},
                                              {"sysContact", 129},
                                              {"sysLocation", 129}};
  for (const Column& column : kNodeColumns) {
    const auto found = buffers.find(column.name);
    EXPECT_EQ(column.kind, found == buffers.end() ? ColumnKind::Int : ColumnKind::Text)
        << column.name;
    EXPECT_EQ(column.size, found == buffers.end() ? 0 : found->second) << column.name;
  }
}

TEST(NodeSqlTest, EachCapabilityColumnHasABitOfItsOwn) {
  unsigned long all = 0;
  for (const CapabilityColumn& each : kNodeCapabilityColumns) {
    EXPECT_EQ(all & each.bit, 0u) << each.column;
    EXPECT_EQ(std::string(kNodeColumns[each.column].name).substr(0, 2), "is");
    all |= each.bit;
  }
  EXPECT_EQ(all, 0x2fffffu);  // 0x100000 has no column
}

TEST(NodeSqlTest, IdentifiersMakeACondition) {
  EXPECT_EQ(nodeIDCondition(kIDs, false), " NODE.ObjID in ('a','b')");
  EXPECT_EQ(nodeIDCondition(kIDs, true), " NODE.QRMObjID in ('a','b')");
}

TEST(NodeSqlTest, WithoutIdentifiersTheOpeningParenthesisIsOverwritten) {
  EXPECT_EQ(nodeIDCondition({}, false), " NODE.ObjID in )");
  EXPECT_EQ(quotedList(" ( ", std::list<ObjID>()), " ()");
}

TEST(NodeSqlTest, AllNodesAreRestrictedByLevelAndRouteDistinguisher) {
  EXPECT_EQ(allNodesCondition(ZNEntity::AllProtocol, -1), "");
  EXPECT_EQ(allNodesCondition(ZNEntity::IPv4, -1), "  NODE.IPLevel = 4  ");
  EXPECT_EQ(allNodesCondition(ZNEntity::IPv6, -1), "   NODE.IPLevel = 6  ");
  EXPECT_EQ(allNodesCondition(ZNEntity::AllProtocol, 0), " NODE.V4ManagementAddressRD = 0");
  EXPECT_EQ(allNodesCondition(ZNEntity::IPv4, 12),
            "  NODE.IPLevel = 4   AND  NODE.V4ManagementAddressRD = 12");
  EXPECT_EQ(allNodesCondition(ZNEntity::IPv6, 12),
            "   NODE.IPLevel = 6   AND  NODE.V4ManagementAddressRD = 12");
  EXPECT_EQ(allNodesCondition(ZNEntity::IPv4, -7), "  NODE.IPLevel = 4  ");
}

TEST(NodeSqlTest, NamesAreClassifiedInAFixedOrder) {
  const std::pair<const char*, NodeNameClass> names[] = {
      {"12345678-1234-1234-1234-123456789012", NodeNameClass::Uuid},
      {"10.1.2.3", NodeNameClass::IPv4},
      {"10.1", NodeNameClass::IPv4},  // the short forms of addresses count
      {"7", NodeNameClass::IPv4},
      {"0x7f000001", NodeNameClass::IPv4},
      {"255.255.255.255", NodeNameClass::FullDns},
      {"edge.example.net", NodeNameClass::FullDns},
      {"::ffff:10.1.2.3", NodeNameClass::FullDns},  // the full stop is looked for first
      {"2001:db8::1", NodeNameClass::IPv6},
      {"edge-1", NodeNameClass::PartialDns},
      {"12345678-1234", NodeNameClass::PartialDns},
  };
  for (const auto& [name, nameClass] : names) EXPECT_EQ(classifyNodeName(name), nameClass) << name;
}

TEST(NodeSqlTest, EachClassOfNamesHasItsStatement) {
  using C = NodeNameClass;
  EXPECT_EQ(nodeNameSelect(C::FullDns, kActive, "a.b", 3),
            "select objID from nwnode where entityname  = 'a.b'");
  EXPECT_EQ(nodeNameSelect(C::PartialDns, kActive, "edge", 3),
            "select objID from nwnode where entityname  like 'edge%'");
  EXPECT_EQ(nodeNameSelect(C::IPv4, kActive, "10.0.0.1", -1),
            "select NodeObjID from address where PubV4Address = '10.0.0.1'  union select ObjID "
            "from nwnode where PubV4ManagementAdd = '10.0.0.1'");
  EXPECT_EQ(nodeNameSelect(C::IPv4, kActive, "10.0.0.1", 0),
            "select NodeObjID from address where V4Address = '10.0.0.1' and RouteDistinguisher = "
            "0  union select ObjID from nwnode where PubV4ManagementAdd = '10.0.0.1' and "
            "V4ManagementAddressRD = 0");
  EXPECT_EQ(nodeNameSelect(C::IPv6, kActive, "2001:db8::1", -1),
            "select NodeObjID from address where V6Address = '2001:db8::1'  union select ObjID "
            "from nwnode where PubV4ManagementAdd = '2001:db8::1'");
  EXPECT_EQ(nodeNameSelect(C::IPv6, kWorking, "2001:db8::1", 5),
            "select NodeObjID from address_update where V6Address = '2001:db8::1' and "
            "RouteDistinguisher = 5  union select ObjID from nwnode_update where "
            "PubV4ManagementAdd = '2001:db8::1' and V4ManagementAddressRD = 5");
}

TEST(NodeSqlTest, ANameGoesInAsItStands) {
  EXPECT_EQ(nodeNameSelect(NodeNameClass::PartialDns, kActive, "o'hare", -1),
            "select objID from nwnode where entityname  like 'o'hare%'");
}

}  // namespace
}  // namespace zntopo::detail
