#include "tests/model/ModelFixture.h"
#include "zntopo/model/ZNEntityDB.h"
#include "zntopo/model/ZNTopoXMLTag.h"

namespace zntopo::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kText =
    "\nObjID:entity\nQRMObjID:77\nEntityName:core-1\nDescription:the core switch"
    "\nDiscovered in Zone:zone 3\nEntityType:Node\nIPLevel:4\nOverallStatus:Major\nOADId:9"
    "\nStatusChangeTime:300\nCreateTime:100\nChangeTime:200";

/// The attributes up to the level, and those behind the statuses of IPv6.
std::string xmlHead(int level = 4) {
  return "<ZNEntity>\n" + attribute("ObjID", "objID", "entity") +
         attribute("QRMObjID", "objID", "77") + attribute("EntityName", "str", "core-1") +
         attribute("Description", "str", "the core switch") +
         attribute("ZoneNumber", "str", "zone 3") + attribute("EntityType", "int", "1") +
         attribute("IPLevel", "int", std::to_string(level)) + attribute("OADId", "int", "9");
}
std::string xmlTimes() {
  return attribute("StatusChangeTime", "int", "300") + attribute("ChangeTime", "int", "200") +
         attribute("CreateTime", "int", "100");
}

class EntityRenderingTest : public ModelTest {};

TEST_F(EntityRenderingTest, TheTextOfAnEntityHasItsFieldsInLines) {
  EXPECT_EQ(EntityParts().entity().toString(), kText);
}

TEST_F(EntityRenderingTest, AnIPv4EntityHasNoStatusesOfIPv6AndAnIPv6EntityHasThem) {
  EntityParts parts;
  EXPECT_THAT(parts.entity().toString(), Not(HasSubstr("V6")));
  EXPECT_THAT(parts.entity().toXML(), Not(HasSubstr("V6")));
  parts.level = ZNEntity::IPv6;
  EXPECT_THAT(parts.entity().toString(),
              HasSubstr("\nIPLevel:6\nOverallStatus:Warning\nOADId:9\nV6CompoundStatus:Warning"
                        "\nV6GlobalStatus:Marginal\nV6SiteStatus:Critical\nStatusChangeTime:300"));
  EXPECT_EQ(parts.entity().toXML(),
            xmlHead(6) + attribute("V6CompoundStatus", "status", "Warning") +
                attribute("V6globalStatus", "status", "Marginal") +
                attribute("V6SiteStatus", "status", "Critical") + xmlTimes() + "</ZNEntity>\n");
  parts.level = ZNEntity::AllProtocol;
  EXPECT_THAT(parts.entity().toString(), HasSubstr("\nIPLevel:0\nOverallStatus:Major\nOADId:9"));
}

TEST_F(EntityRenderingTest, OnlyAnEntityWithAParentTellsOne) {
  ZNEntity entity = EntityParts().entity();
  EXPECT_EQ(entity.toXML(), xmlHead() + xmlTimes() + "</ZNEntity>\n");
  entity.setPartOf(AssEndPoint("hall", ObjID("h1"), E_IfC));
  EXPECT_EQ(entity.toString(), std::string(kText) + "\nContainment Parent:hall(h1)");
  EXPECT_EQ(entity.toXML(), xmlHead() + xmlTimes() +
                                attribute("ContainmentParentID", "objID", "h1") + "</ZNEntity>\n");
}

TEST_F(EntityRenderingTest, AddressesAndVariablesFollowOneBehindTheOther) {
  gateway().addAddress(ipv4("a1", "10.0.0.1"));
  gateway().addAddress(ipv4("a2", "10.0.0.2"));
  ZNEntity entity = EntityParts().entity();
  entity.setAddresses({ipv4("a1", "10.0.0.1"), ipv4("a2", "10.0.0.2")});
  entity.setUserVars({UserDefVar("Rack", VarValue(4)), UserDefVar("Row", VarValue("B"))});
  EXPECT_EQ(entity.toString(),
            std::string(kText) + "\n=========AddressList=========" +
                ipv4("a1", "10.0.0.1")->toString() + ipv4("a2", "10.0.0.2")->toString() +
                "\n=========DynamicPropertyList========\nVarName:Rack\nVarValueType:long"
                "\tVarValue:4\nVarName:Row\nVarValueType:string\tVarValue:B");
  EXPECT_EQ(entity.toXML(), xmlHead() + xmlTimes() + "<AddressIDList>\n" +
                                attribute("AddressID", "objID", "a1") +
                                attribute("AddressID", "objID", "a2") + "</AddressIDList>\n" +
                                "<UserDefVarList>\n" + attribute("Rack", "int", "4") +
                                attribute("Row", "str", "B") + "</UserDefVarList>\n</ZNEntity>\n");
  // One query of addresses for each form.
  EXPECT_EQ(gateway().callCount("getAddrsByObjIDs"), 2);
}

TEST_F(EntityRenderingTest, AddressesThatCanNotBeReadLeaveTheirSectionOut) {
  ZNEntity entity = EntityParts().entity();
  entity.setAddresses({ipv4("a1", "10.0.0.1")});
  gateway().failWith("getAddrsByObjIDs", ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(entity.toString(), kText);
  EXPECT_EQ(entity.toXML(), xmlHead() + xmlTimes() + "</ZNEntity>\n");
}

TEST_F(EntityRenderingTest, NullIdentifiersAndTextsThatAreNotThereHaveAForm) {
  EXPECT_EQ(ZNEntity().toString(),
            "\nObjID:NULL\nQRMObjID:NULL\nEntityName:\nDescription:\nDiscovered in Zone:"
            "\nEntityType:Unknown\nIPLevel:0\nOverallStatus:Normal\nOADId:0\nStatusChangeTime:0"
            "\nCreateTime:0\nChangeTime:0");
  EXPECT_THAT(ZNEntity().toXML(), HasSubstr(attribute("ObjID", "objID", "NULL")));
}

TEST_F(EntityRenderingTest, AnEntityHasNoTableRow) {
  EXPECT_EQ(EntityParts().entity().toShortString(), "");
}

TEST_F(EntityRenderingTest, TheTextFormTellsTheLogItsBeginAndItsEnd) {
  const ZNEntity entity = EntityParts().entity();
  expectLogged(MC_TRACE_L2, "Entering ZNEntity::toString \nExiting ZNEntity::toString \n",
               [&entity] { entity.toString(); });
  const ZNEntityDB wide;
  expectLogged(MC_TRACE_L2,
               "Entering ZNEntityDB::toString \nEntering getAddresses() \nExiting getAddresses() \n"
               "Exiting ZNEntityDB::toString \n",
               [&wide] { wide.toString(); });
}

TEST_F(EntityRenderingTest, TheOlderEntityTellsItsOidForTheZoneAndNoRouteDistinguisher) {
  const ZNEntityDB entity(ObjID("e"), "zone 3", ObjID(77), "core-1", "the core switch", "1.3.6",
                          E_Node, ObjectStatus::Major, ObjectStatus::Warning,
                          ObjectStatus::Marginal, ObjectStatus::Critical, 100, 200, 300,
                          ContainmentAss(), {}, AssEndPoint("hall", ObjID("h1"), E_IfC),
                          {UserDefVar("Rack", VarValue(4))}, {}, {}, 9, ZNEntity::IPv6);
  EXPECT_EQ(entity.toString(),
            "\nObjID:e\nQRMObjID:77\nEntityName:core-1\nDescription:the core switch"
            "\nEntityOID:1.3.6\nEntityType:Node\nIPLevel:6\nOverallStatus:Warning"
            "\nV6CompoundStatus:Warning\nV6GlobalStatus:Marginal\nV6SiteStatus:Critical"
            "\nStatusChangeTime:300\nCreateTime:100\nChangeTime:200\nContainment Parent:hall(h1)"
            "\n=========DynamicPropertyList========\nVarName:Rack\nVarValueType:long\tVarValue:4");
}

TEST_F(EntityRenderingTest, TheOlderEntityHasItsAddressesBeforeItsVariables) {
  const ZNRefPtr<ZNAddress> address = ipv4("a1", "10.0.0.1");
  gateway().addAddress(address);
  const ZNEntityDB entity(ObjID("e"), "", ObjID(77), "core-1", "", "1.3.6", E_Node,
                          ObjectStatus::Major, {UserDefVar("Rack", VarValue(4))}, {address}, {},
                          ZNEntity::IPv4);
  EXPECT_THAT(entity.toString(),
              EndsWith("\n=========AddressList=========" + address->toString() +
                       "\n=========DynamicPropertyList========\nVarName:Rack\nVarValueType:long"
                       "\tVarValue:4"));
}

// ---- user variables ----

struct VarCase {
  VarValue value;
  std::string type;
  std::string text;
};

TEST_F(EntityRenderingTest, VariablesHaveTheXmlTypeOfTheirTag) {
  const VarCase cases[] = {
      {VarValue(static_cast<short>(-3)), "int", "-3"},
      {VarValue(70000), "int", "70000"},
      {VarValue(4294967297LL), "int", "1"},
      {VarValue(true), "int", "true"},
      {VarValue(false), "int", "false"},
      {VarValue("a<b"), "str", "a&lt;b"},
      {VarValue(), "capability", "1"},
      {VarValue(1.5F), "float", "1.500000"},
  };
  for (const VarCase& one : cases) {
    EXPECT_EQ(UserDefVar("v", one.value).toXML(), attribute("v", one.type, one.text));
  }
}

TEST_F(EntityRenderingTest, OctetsAreNoXmlButTheirListIsThere) {
  const UserDefVar octets("o", VarValue("abc", 3));
  EXPECT_EQ(octets.toXML(), "");
  ZNEntity entity = EntityParts().entity();
  entity.setUserVars({octets});
  EXPECT_EQ(entity.toXML(),
            xmlHead() + xmlTimes() + "<UserDefVarList>\n</UserDefVarList>\n</ZNEntity>\n");
}

// ---- the elements ----

TEST(ZNTopoXMLTagTest, OnlyTheValueIsEscapedAndItsFirstCharacterIsNot) {
  EXPECT_EQ(ZNTopoXMLTag::formXMLAttribute("n<", "t&", "a<b"),
            "<Attr name=\"n<\" type=\"t&\" value=\"a&lt;b\" /> \n");
  const std::pair<const char*, const char*> values[] = {
      {"", ""},
      {"<", "<"},
      {"<a", "<a"},
      {"&<>", "&&lt;&gt;"},
      {"x&<>&", "x&amp;&lt;&gt;&amp;"},
      {"a&amp;b", "a&amp;amp;b"},
      {"\"q\"'", "\"q\"'"},
  };
  for (const auto& [value, escaped] : values) {
    EXPECT_EQ(ZNTopoXMLTag::formXMLAttribute("n", "str", value), attribute("n", "str", escaped));
  }
}

TEST(ZNTopoXMLTagTest, LongValuesAreWhole) {
  const std::string text(10000, '<');
  std::string escaped = "<";
  for (int i = 1; i < 10000; ++i) escaped += "&lt;";
  EXPECT_EQ(ZNTopoXMLTag::formXMLAttribute(text, "str", text), attribute(text, "str", escaped));
}

TEST(ZNTopoXMLTagTest, ListsHaveTheirElementWhetherTheyHaveItemsOrNot) {
  EXPECT_EQ(
      ZNTopoXMLTag::formL2Connection(ObjID("n1"), ObjID("i1"), ObjID("n2"), ObjID()),
      "<L2Connection srcNodeID=\"n1\" srcIFID=\"i1\" destNodeID=\"n2\" destIFID=\"NULL\"/>\n");
  EXPECT_EQ(ZNTopoXMLTag::formVlanIfInfoList({}), "<VlanIFInfos>\n</VlanIFInfos>\n");
  EXPECT_EQ(ZNTopoXMLTag::formVlanIfInfoList({ZNVlanIFInfo("i1", "1", "2"), ZNVlanIFInfo()}),
            "<VlanIFInfos>\n<IFInfo IFObjID=\"i1\" PortNo=\"1\" BoardNo=\"2\" />\n"
            "<IFInfo IFObjID=\"NULL\" PortNo=\"\" BoardNo=\"\" />\n</VlanIFInfos>\n");
  EXPECT_EQ(ZNTopoXMLTag::formCapaList({}), "<Capabilities>\n</Capabilities>\n");
  EXPECT_EQ(ZNTopoXMLTag::formCapaList({ZNCapability("isATM"), ZNCapability("isBGP")}),
            "<Capabilities>\n<Capability name=\"isATM\" />\n<Capability name=\"isBGP\" />\n"
            "</Capabilities>\n");
}

}  // namespace
}  // namespace zntopo::test
