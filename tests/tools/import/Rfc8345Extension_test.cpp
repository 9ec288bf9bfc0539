#include "tools/import/Rfc8345Extension.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "tests/support/Places.h"
#include "tests/tools/import/Rfc8345Text.h"
#include "tools/import/Rfc8345Keys.h"
#include "tools/network/NetworkFields.h"
#include "tools/network/StoreRows.h"

namespace zntopo::tools {
namespace {

using test::addresses;
using test::complaint;
using test::document;
using test::kL2;
using test::kL3;
using test::on;
using test::tp;
using test::tpOn;
using test::tps;
using testing::ElementsAre;
using testing::HasSubstr;
using Read = test::Rfc8345Read;

std::string nodeAttributes(const std::string& members) {
  return R"("zntopo-topology:node-attributes": {)" + members + "}";
}

std::string tpAttributes(const std::string& members) {
  return R"("zntopo-topology:termination-point-attributes": {)" + members + "}";
}

/// A network "n" of nodes with attributes of its own.
std::string withAttributes(const std::string& members, const std::string& nodes,
                           const std::string& type = "") {
  std::string text = test::network("n", type, nodes);
  return document(text.insert(1, R"("zntopo-topology:network-attributes": {)" + members + "}, "));
}

std::string ref(const std::string& node, const std::string& tp, const std::string& rest = "") {
  return R"({"node-ref": ")" + node + R"(", "tp-ref": ")" + tp + "\"" +
         (rest.empty() ? "" : ", " + rest) + "}";
}

/// A node with two interfaces, e1 and e2, whose addresses are told.
std::string router(const std::string& id, const std::string& first, const std::string& second) {
  return test::node(id, tps(tp("e1", addresses(first)) + ", " + tp("e2", addresses(second))));
}

const std::string kRouters =
    router("r1", R"("10.0.0.2/24", "2001:db8::2/64")", R"("10.1.0.2/24")") + ", " +
    router("r2", R"("10.0.0.3/24")", R"("10.1.0.3/24")");

std::string group(const std::string& members, const std::string& rest = "") {
  return R"("hsrp-group": [{"group-id": "g", )" + rest + R"("member": [)" + members + "]}]";
}

TEST(Rfc8345ExtensionTest, ADeviceHasEveryAttribute) {
  const Read read(document(test::network("n", "", test::node("a", nodeAttributes(R"(
      "description": "d\u0007", "legacy-id": "7",
      "status": {"overall": "critical", "ipv6": "major", "change-time": 5},
      "property": [{"name": "p", "value": "v"}], "router": true, "feature": ["bgp", "wireless"],
      "system-oid": "1.3.6", "contact": "c", "location": "l", "snmp-state": "agent-down",
      "layer-2-domain": 3)")))));
  const NodeModel& node = read.node("a");
  EXPECT_EQ(node.description, "d ");
  EXPECT_EQ(node.legacyId, "7");
  ASSERT_TRUE(node.status);
  EXPECT_EQ(node.status->overall, 6);
  EXPECT_EQ(node.status->v6, 5);
  EXPECT_EQ(node.status->changeTime, 5);
  ASSERT_EQ(node.properties.size(), 1u);
  EXPECT_EQ(node.properties[0].name + node.properties[0].value, "pv");
  EXPECT_TRUE(node.isRouter);
  EXPECT_EQ(node.features, SpeaksBgp | IsWireless);
  EXPECT_EQ(node.systemOid, "1.3.6");
  EXPECT_EQ(node.contact, "c");
  EXPECT_EQ(node.location, "l");
  EXPECT_EQ(node.snmpState, 3);
  EXPECT_EQ(node.layer2Domain, 3);
  EXPECT_TRUE(read.report.notes().empty());
}

TEST(Rfc8345ExtensionTest, AnInterfaceHasEveryAttribute) {
  const Read read(document(test::network("n", "", test::node("a", tps(tp("e", tpAttributes(R"(
      "alias": "al", "physical-address": "00:01", "if-index": 4, "if-type": 6, "speed": 100,
      "admin-state": "testing", "oper-state": 99, "access-port": true, "linked-elsewhere": true,
      "made-up-name": true, "property": [{"name": "p", "value": ""}])")))))));
  const InterfaceModel& interface = read.node("a").interfaces.at(0);
  EXPECT_EQ(interface.alias, "al");
  EXPECT_EQ(interface.physicalAddress, "00:01");
  EXPECT_EQ(interface.index, 4);
  EXPECT_EQ(interface.type, 6);
  EXPECT_EQ(interface.speed, 100);
  EXPECT_EQ(interface.adminState, 3);
  EXPECT_EQ(interface.operState, 99);  // a number without a name is a number
  EXPECT_TRUE(interface.isAccessPort && interface.isLinkedElsewhere && interface.isNameMade);
  EXPECT_EQ(interface.properties.size(), 1u);
  EXPECT_TRUE(read.report.notes().empty());
}

TEST(Rfc8345ExtensionTest, AUserVariableHasTheTypeOfItsValuesName) {
  const Read read(
      document(test::network("n", "", test::node("a", nodeAttributes(R"("user-variable": [
      {"name": "s", "short-value": -32768}, {"name": "l", "long-value": 2147483647},
      {"name": "ll", "long-long-value": "-2147483648"}, {"name": "t", "string-value": "x"},
      {"name": "f", "float-value": "1.5"}, {"name": "g", "float-value": 2.5},
      {"name": "b", "boolean-value": true},
      {"name": "big", "short-value": 32768}, {"name": "huge", "long-long-value": "2147483648"},
      {"name": "part", "long-value": "1.5"}, {"name": "far", "float-value": "1e39"},
      {"name": "no", "float-value": "nan"}])")))));
  const auto& variables = read.node("a").variables;
  ASSERT_EQ(variables.size(), 7u);
  EXPECT_EQ(std::get<short>(variables[0].value), -32768);
  EXPECT_EQ(std::get<int>(variables[1].value), 2147483647);
  EXPECT_EQ(std::get<long long>(variables[2].value), -2147483648LL);
  EXPECT_EQ(std::get<std::string>(variables[3].value), "x");
  EXPECT_EQ(std::get<float>(variables[4].value), 1.5F);
  EXPECT_EQ(std::get<float>(variables[5].value), 2.5F);
  EXPECT_TRUE(std::get<bool>(variables[6].value));
  EXPECT_EQ(read.counted("value of a user variable that is none of its type"), 5);
}

TEST(Rfc8345ExtensionTest, ItsWordsWinAndThoseOfTheLowestLayerMost) {
  const std::string lower =
      test::node("a", R"("ietf-l2-topology:l2-node-attributes": {"description": "other"}, )" +
                          nodeAttributes(R"("description": "low", "user-variable": [
                   {"name": "x", "long-value": 1}])") +
                          ", " + tps(tp("e", tpAttributes(R"("alias": "low")"))));
  const std::string upper = test::node(
      "b", on("p", "a") + ", " +
               nodeAttributes(R"("description": "high", "contact": "high", "user-variable": [
                   {"name": "x", "long-value": 2}, {"name": "y", "long-value": 3}])") +
               ", " +
               tps(tp("f", tpOn("p", "a", "e") + ", " +
                               tpAttributes(R"("alias": "high", "if-type": 9)"))));
  for (const std::string& networks :
       {test::network("p", "", lower) + ", " + test::network("q", kL2, upper),
        test::network("q", kL2, upper) + ", " + test::network("p", "", lower)}) {
    const Read read(document(networks));
    ASSERT_EQ(read.model.nodes.size(), 1u);
    const NodeModel& node = read.model.nodes[0];
    EXPECT_EQ(node.description, "low");
    EXPECT_EQ(node.contact, "high");
    ASSERT_EQ(node.variables.size(), 2u);
    EXPECT_EQ(std::get<int>(node.variables[0].value), 1);
    EXPECT_EQ(std::get<int>(node.variables[1].value), 3);
    EXPECT_EQ(node.interfaces.at(0).alias, "low");
    EXPECT_EQ(node.interfaces.at(0).type, 9);
  }
}

TEST(Rfc8345ExtensionTest, WhatIsNoDeviceHasNoAttributes) {
  const Read read(document(
      test::network("n", kL3,
                    test::node("Seg.x", nodeAttributes(R"("contact": "c")") + ", " +
                                            tps(tp("e", tpAttributes(R"("alias": "a")")))))));
  EXPECT_EQ(read.counted("node-attributes of what is no device"), 1);
  EXPECT_EQ(read.counted("termination-point-attributes of what is no interface"), 1);
}

TEST(Rfc8345ExtensionTest, MembersOfOtherModulesWithTheSameNamesAreOtherMembers) {
  const Read read(document(
      test::network("n", "", test::node("a", R"("other:node-attributes": {"contact": 7})"))));
  EXPECT_EQ(read.node("a").contact, "");
  EXPECT_EQ(read.counted(R"(member "other:node-attributes")"), 1);
}

TEST(Rfc8345ExtensionTest, AnIPv6AddressHasANameAMappingAndMonitoring) {
  const Read read(document(
      test::network("n", kL2,
                    test::node("a", tps(tp("e", addresses(R"("10.0.0.1/24", "2001:db8::1/64")") +
                                                    ", " + tpAttributes(R"("address": [
        {"ip": "2001:DB8:0::1", "dns-name": "a.example", "mapped-ipv4": "10.0.0.1", "monitoring":
          {"legacy-id": "9", "ping-status": "critical", "net-to-media": "stale",
           "preference": "deprecated", "origin": "stateful", "last-time": 77}}])")))))));
  const AddressModel& address = read.node("a").interfaces.at(0).addresses.at(1);
  EXPECT_EQ(address.dnsName, "a.example");
  ASSERT_TRUE(address.mappedV4 && address.monitoring);
  EXPECT_EQ(address.mappedV4->text(), "10.0.0.1");
  EXPECT_EQ(address.monitoring->legacyId, "9");
  EXPECT_EQ(address.monitoring->status, 6);
  EXPECT_EQ(address.monitoring->netToMedia, 2);
  EXPECT_EQ(address.monitoring->preference, 2);
  EXPECT_EQ(address.monitoring->origin, 2);
  EXPECT_EQ(address.monitoring->lastTime, 77);
  EXPECT_TRUE(read.report.notes().empty());
}

TEST(Rfc8345ExtensionTest, WhatAnInterfaceDoesNotHaveIsCounted) {
  const Read read(document(
      test::network("n", kL3,
                    test::node("a", tps(tp("e", addresses(R"("10.0.0.1/24", "2001:db8::1/64")") +
                                                    ", " + tpAttributes(R"("address": [
        {"ip": "10.0.0.9"}, {"ip": "x"}, {"ip": "2001:db8::1", "mapped-ipv4": "10.0.0.9"},
        {"ip": "10.0.0.1", "dns-name": "only IPv6 has one", "subnet-ref": "s"}])")))))));
  EXPECT_EQ(read.counted("address that its interface does not have"), 2);
  EXPECT_EQ(read.counted("mapped-ipv4 that its interface does not have"), 1);
  EXPECT_EQ(read.counted("subnet-ref that does not exist"), 1);
  EXPECT_EQ(read.counted(R"(member "dns-name")"), 1);
}

TEST(Rfc8345ExtensionTest, ASubnetOfAPrefixIsTheOneThatItsAddressesHave) {
  const Read read(withAttributes(R"("subnet": [{"subnet-id": "s", "prefix": "10.0.0.7/24",
      "name": "office", "description": "d"}, {"subnet-id": "t"}])",
                                 kRouters, kL3));
  const Index subnet = *read.node("r1").interfaces.at(0).addresses.at(0).subnet;
  EXPECT_EQ(read.model.subnets[subnet].name, "office");
  EXPECT_EQ(read.model.subnets[subnet].description, "d");
  EXPECT_EQ(read.node("r2").interfaces.at(0).addresses.at(0).subnet, subnet);
  EXPECT_EQ(read.model.subnets.at(1).name, "t");
  EXPECT_FALSE(read.model.subnets.at(1).prefix);
}

TEST(Rfc8345ExtensionTest, LinkLocalSubnetsAreToldApartByTheirIdentifiers) {
  const auto node = [](const std::string& id, const std::string& subnet) {
    return test::node(
        id, tps(tp("e", addresses(R"("fe80::1")") + ", " +
                            tpAttributes(R"("address": [{"ip": "fe80::1", "subnet-ref": ")" +
                                         subnet + R"("}])"))));
  };
  const Read read(withAttributes(
      R"("subnet": [{"subnet-id": "w1", "prefix": "fe80::/64"},
                    {"subnet-id": "w2", "prefix": "fe80::/64"}])",
      node("a", "w1") + ", " + node("b", "w2") + ", " + node("c", "w1"), kL3));
  const auto subnet = [&](const char* name) {
    return read.node(name).interfaces.at(0).addresses.at(0).subnet;
  };
  EXPECT_EQ(subnet("a"), subnet("c"));
  EXPECT_NE(subnet("a"), subnet("b"));
  ASSERT_EQ(read.model.subnets.size(), 2u);
  EXPECT_TRUE(read.model.subnets[0].isV6);
  EXPECT_EQ(read.model.subnets[0].prefix->text(), "fe80::/64");
}

TEST(Rfc8345ExtensionTest, AVlanThatIsToldOfNeedsNoMembers) {
  const Read read(withAttributes(
      R"("vlan": [{"vlan-id": 7, "name": "seven", "description": "d",
      "status": {"overall": 3}}, {"vlan-id": 8}, {"vlan-id": 0}, {"vlan-id": 4095}])",
      test::node(
          "a",
          tps(tp("e",
                 R"("ietf-l2-topology:l2-termination-point-attributes": {"port-vlan-id": 7})"))),
      kL2));
  ASSERT_EQ(read.model.vlans.size(), 2u);
  EXPECT_EQ(read.model.vlans[0].name, "seven");
  EXPECT_EQ(read.model.vlans[0].status->overall, 3);
  EXPECT_THAT(read.node("a").interfaces.at(0).vlans, ElementsAre(0u));
  EXPECT_EQ(read.counted("VLAN number outside 1 to 4094"), 2);
}

TEST(Rfc8345ExtensionTest, AnHsrpGroupHasMembersThatTrackInterfaces) {
  const Read read(withAttributes(
      group(ref("r1", "e1",
                R"("address": "10.0.0.2", "state": "active", "priority": 120,
                "certainty": 90, "track": [)" +
                    ref("r1", "e2", R"("decrement": 30)") + "]") +
                ", " + ref("r2", "e1", R"("address": "10.0.0.3", "state": "standby")"),
            R"("number": 12, "name": "gateway", )"),
      kRouters, kL2));
  ASSERT_EQ(read.model.hsrpGroups.size(), 1u);
  const HsrpGroupModel& one = read.model.hsrpGroups[0];
  EXPECT_EQ(one.name, "gateway");
  EXPECT_EQ(one.number, 12);
  ASSERT_EQ(one.members.size(), 2u);
  EXPECT_EQ(read.model.at(one.members[0].interface).name, "e1");
  EXPECT_EQ(one.members[0].address.text(), "10.0.0.2");
  EXPECT_EQ(one.members[0].state, 6);
  EXPECT_EQ(one.members[0].priority, 120);
  EXPECT_EQ(one.members[0].certainty, 90);
  ASSERT_EQ(one.members[0].tracks.size(), 1u);
  EXPECT_EQ(read.model.at(one.members[0].tracks[0].interface).name, "e2");
  EXPECT_EQ(one.members[0].tracks[0].decrement, 30);
  EXPECT_EQ(one.members[1].state, 5);
  EXPECT_EQ(one.members[1].priority, 100);
  EXPECT_TRUE(read.report.notes().empty());
}

TEST(Rfc8345ExtensionTest, WhatAGroupRefersToMustBeThere) {
  const Read read(
      withAttributes(group(ref("r9", "e1", R"("address": "10.0.0.2")") + ", " +
                           ref("r1", "e9", R"("address": "10.0.0.2")") + ", " +
                           ref("r1", "e1", R"("address": "10.0.0.3")") + ", " +
                           ref("r2", "e1",
                               R"("address": "10.0.0.3", "state": "resting", "priority": -1,
                "certainty": 101, "track": [)" +
                                   ref("r2", "e9") + "]") +
                           ", " + ref("r2", "e1", R"("address": "10.0.0.3")")),
                     kRouters, kL3));
  ASSERT_EQ(read.model.hsrpGroups.size(), 1u);
  ASSERT_EQ(read.model.hsrpGroups[0].members.size(), 1u);
  const HsrpMemberModel& member = read.model.hsrpGroups[0].members[0];
  EXPECT_EQ(member.priority, 100);
  EXPECT_EQ(member.certainty, 100);
  EXPECT_TRUE(member.tracks.empty());
  EXPECT_EQ(read.counted("HSRP member that does not exist"), 2);
  EXPECT_EQ(read.counted("HSRP member with an address that its interface does not have"), 1);
  EXPECT_EQ(read.counted("HSRP member that stands twice in its group"), 1);
  EXPECT_EQ(read.counted("tracked interface that does not exist"), 1);
  EXPECT_EQ(read.counted("state that is none"), 1);
  EXPECT_EQ(read.counted("priority out of its range"), 1);
  EXPECT_EQ(read.counted("certainty out of its range"), 1);
}

TEST(Rfc8345ExtensionTest, TracksBeyondTheRoomForThemAreCounted) {
  std::string ports = tp("e", addresses(R"("10.0.0.1/24")"));
  std::string tracks;
  for (int i = 0; i < 42; ++i) {
    const std::string id = "t" + std::to_string(i);
    ports += ", " + tp(id);
    tracks += (i == 0 ? "" : ", ") + ref("a", id, R"("decrement": 64000)");
  }
  const Read read(
      withAttributes(group(ref("a", "e", R"("address": "10.0.0.1", "track": [)" + tracks + "]")),
                     test::node("a", tps(ports)), kL3));
  EXPECT_EQ(read.model.hsrpGroups.at(0).members.at(0).tracks.size(), 40u);
  EXPECT_EQ(read.counted("tracked interface beyond 40 a member"), 2);
}

TEST(Rfc8345ExtensionTest, ContainersKeepTheirMembersAndTheirAssociations) {
  const Read read(withAttributes(
      R"("interface-container": [{"container-id": "a", "type": 2, "application": 3, "ordered": true,
           "member": [)" +
          ref("r2", "e1", R"("containment": 4, "sequence": 2)") + ", " +
          ref("r1", "e2", R"("sequence": 1)") + R"(]}, {"container-id": "b", "name": "bundle"}],
         "container-association": [{"left-container": "b", "right-container": "a", "relation": 5,
           "state": 6, "state-change-time": 7, "description": "d", "extra-info": "x"},
           {"left-container": "a", "right-container": "z", "relation": 1}],
         "mesh": [{"mesh-id": "m", "member": [)" +
          ref("r1", "e1") + ", " + ref("r2", "e2") + "]}]",
      kRouters, kL3));
  ASSERT_EQ(read.model.containers.size(), 2u);
  const ContainerModel& one = read.model.containers[0];
  EXPECT_EQ(one.name, "a");
  EXPECT_EQ(one.type, 2);
  EXPECT_EQ(one.application, 3);
  EXPECT_TRUE(one.isOrdered);
  ASSERT_EQ(one.members.size(), 2u);
  EXPECT_EQ(one.members[0].containment, 4);
  EXPECT_EQ(one.members[0].sequence, 2);
  EXPECT_EQ(read.model.nodes[one.members[0].interface.node].name, "r2");
  EXPECT_EQ(read.model.containers[1].name, "bundle");
  EXPECT_FALSE(read.model.containers[1].isOrdered);
  ASSERT_EQ(read.model.associations.size(), 1u);
  const AssociationModel& association = read.model.associations[0];
  EXPECT_EQ(association.left, 1u);
  EXPECT_EQ(association.right, 0u);
  EXPECT_EQ(association.relation, 5);
  EXPECT_EQ(association.state, 6);
  EXPECT_EQ(association.stateChangeTime, 7);
  EXPECT_EQ(association.description + association.extraInfo, "dx");
  EXPECT_EQ(read.counted("association of a container that does not exist"), 1);
  ASSERT_EQ(read.model.meshes.size(), 1u);
  EXPECT_EQ(read.model.meshes[0].members.size(), 2u);
}

TEST(Rfc8345ExtensionTest, AReferenceMayLeadToAnotherNetwork) {
  std::string upper = test::network("q", kL3, router("r3", "", ""));
  upper.insert(1,
               R"("zntopo-topology:network-attributes": {"mesh": [{"mesh-id": "m", "member": [)" +
                   ref("r1", "e1", R"("network-ref": "n")") + ", " + ref("r3", "e2") + "]}]}, ");
  const Read read(document(test::network("n", kL3, kRouters) + ", " + upper));
  ASSERT_EQ(read.model.meshes.size(), 1u);
  ASSERT_EQ(read.model.meshes[0].members.size(), 2u);
  EXPECT_EQ(read.model.nodes[read.model.meshes[0].members[0].node].name, "r1");
}

TEST(Rfc8345ExtensionTest, TheAuditTrailNamesObjectsThatAreThereAndThatAreGone) {
  const Read read(withAttributes(
      R"("subnet": [{"subnet-id": "s", "prefix": "10.0.0.0/24"}], "audit": [
        {"node-ref": "r1", "object-type": "node", "time": 9, "action": "object-creation",
         "detail": "not-applicable", "info": "new"},
        {"node-ref": "gone"}, {"node-ref": "r1", "tp-ref": "e1"}, {"node-ref": "r1", "tp-ref": "e9"},
        {"node-ref": "r1", "tp-ref": "e1", "address": "10.0.0.2"}, {"vlan-ref": 7},
        {"subnet-ref": "s"}, {"subnet-ref": "gone"}, {"hsrp-group-ref": "g"},
        {"interface-container-ref": "c"}, {"mesh-ref": "m"}])",
      kRouters, kL3));
  std::vector<std::string> keys;
  for (const AuditModel& one : read.model.audit) keys.push_back(one.objectKey);
  const NodeModel& node = read.node("r1");
  const Index subnet = *node.interfaces[0].addresses[0].subnet;
  EXPECT_THAT(
      keys, ElementsAre(node.key, rfc8345::nodeKey("n", "gone"), node.interfaces[0].key,
                        rfc8345::interfaceKey("n", "r1", "e9"),
                        addressKey(node.interfaces[0].key, *IpAddress::parse("10.0.0.2")),
                        rfc8345::vlanKey("n", 7), read.model.subnets[subnet].key,
                        rfc8345::segmentKey("n", "gone"), rfc8345::groupKey("hsrp-group", "n", "g"),
                        rfc8345::groupKey("interface-container", "n", "c"),
                        rfc8345::groupKey("mesh", "n", "m")));
  EXPECT_EQ(read.model.audit[0].objectType, 1);
  EXPECT_EQ(read.model.audit[0].time, 9);
  EXPECT_EQ(read.model.audit[0].action, 2);
  EXPECT_EQ(read.model.audit[0].detail, 0);
  EXPECT_EQ(read.model.audit[0].info, "new");
}

TEST(Rfc8345ExtensionTest, ObjectsMayBringTheirIdentifiers) {
  const std::string address =
      R"("address": [{"ip": "2001:db8::2", "identifier": "a", "dns-name": "n", "dns-identifier": "d"}])";
  const std::string ends = tp("e1", addresses(R"("2001:db8::2/64")") + ", " +
                                        tpAttributes(R"("identifier": "i", )" + address));
  const std::string groups =
      R"("subnet": [{"subnet-id": "s", "prefix": "2001:db8::/64", "identifier": "sub",
                     "address-identifier": "own"}], "vlan": [{"vlan-id": 7, "identifier": "v"}],
         "audit": [{"object-identifier": "gone"}])";
  const Read read(withAttributes(
      groups,
      test::node("r", nodeAttributes(R"("identifier": "n", "zone": "z")") + ", " + tps(ends))));
  const NodeModel& node = read.node("r");
  EXPECT_EQ(node.id, "n");
  EXPECT_EQ(node.zone, "z");
  EXPECT_EQ(node.interfaces[0].id, "i");
  EXPECT_EQ(node.interfaces[0].addresses[0].id, "a");
  EXPECT_EQ(node.interfaces[0].addresses[0].dnsId, "d");
  EXPECT_EQ(read.model.vlans[0].id, "v");
  EXPECT_EQ(read.model.subnets[0].id, "sub");
  EXPECT_EQ(read.model.subnets[0].addressId, "own");
  EXPECT_EQ(read.model.audit[0].objectId, "gone");
}

TEST(Rfc8345ExtensionTest, SubnetsOfOnePrefixStayApartIfTheyHaveIdentifiers) {
  const std::string subnet = R"("prefix": "10.0.0.0/24", "identifier": )";
  const Read read(withAttributes(R"("subnet": [{"subnet-id": "a", )" + subnet + R"("1"},
                                               {"subnet-id": "b", )" +
                                     subnet + R"("2"}])",
                                 test::node("r")));
  ASSERT_EQ(read.model.subnets.size(), 2u);
  EXPECT_NE(read.model.subnets[0].key, read.model.subnets[1].key);
}

TEST(Rfc8345ExtensionTest, IdentifiersOfTwoObjectsAndTextsThatAreNoneAreRefused) {
  const auto errorOf = [](const std::string& one, const std::string& other) {
    return complaint(document(
        test::network("n", "",
                      test::node("a", nodeAttributes(R"("identifier": ")" + one + "\"")) + ", " +
                          test::node("b", nodeAttributes(R"("identifier": ")" + other + "\"")))));
  };
  EXPECT_EQ(errorOf("x", "y"), "");
  EXPECT_EQ(errorOf("x", "x"), "the identifier \"x\" is that of two objects");
  for (const std::string& none : {std::string("x' or 'a' = 'a"), std::string(37, 'x')}) {
    EXPECT_THAT(errorOf("x", none), HasSubstr("node-attributes: has an identifier that is none"));
  }
}

TEST(Rfc8345ExtensionTest, TextsBeyondTheirColumnsAreCutAndCounted) {
  const std::string many(300, 'x');
  const Read read(document(test::network(
      "n", "",
      test::node(
          "a", nodeAttributes(R"("contact": ")" + many + R"(", "legacy-id": ")" + many + "\"")))));
  EXPECT_EQ(read.node("a").contact.size(), 128u);
  EXPECT_EQ(read.node("a").legacyId.size(), 36u);
  EXPECT_EQ(read.counted("contact of more than 128 bytes (cut)"), 1);
  EXPECT_EQ(read.counted("legacy-id of more than 36 bytes (cut)"), 1);
}

TEST(Rfc8345ExtensionTest, MembersThatNothingReadsAreCounted) {
  const Read read(withAttributes(
      R"("odd": 1, "vlan": [{"vlan-id": 1, "odd": 1}], "subnet": [{"subnet-id": "s", "odd": 1}],)" +
          group(ref("r1", "e1", R"("address": "10.0.0.2", "odd": 1)"), R"("odd": 1, )"),
      test::node("a", nodeAttributes(R"("odd": 1, "status": {"odd": 1})")) + ", " + kRouters, kL3));
  EXPECT_EQ(read.counted(R"(member "odd")"), 7);
}

TEST(Rfc8345ExtensionTest, ErrorsSayWhere) {
  const std::string path = "/ietf-network:networks/network/0/";
  const std::string whole = path + "zntopo-topology:network-attributes/";
  const std::string nodePath = path + "node/0/zntopo-topology:node-attributes/";
  const std::string long256(256, 'x');
  const std::pair<std::string, std::string> inNetwork[] = {
      {R"("hsrp-group": {})", "hsrp-group: is no list"},
      {R"("hsrp-group": [{}])", R"(hsrp-group/0: has no member "group-id")"},
      {R"("hsrp-group": [{"group-id": ""}])", "hsrp-group/0/group-id: is empty"},
      {R"("hsrp-group": [{"group-id": "g"}, {"group-id": "g"}])",
       R"(hsrp-group/1/group-id: the identifier "g" is taken already)"},
      {R"("hsrp-group": [{"group-id": "g", "number": "7"}])",
       "hsrp-group/0/number: is no whole number"},
      {group(R"({"node-ref": "r1"})"), R"(hsrp-group/0/member/0: has no member "tp-ref")"},
      {group(ref("r1", "e1")), R"(hsrp-group/0/member/0: has no member "address")"},
      {R"("mesh": [{"mesh-id": ")" + long256 + "\"}]", "mesh/0/mesh-id: is longer than 255 bytes"},
      {R"("interface-container": [{"container-id": "c", "ordered": 1}])",
       "interface-container/0/ordered: is neither true nor false"},
      {R"("interface-container": [{"container-id": "c", "name": ")" + long256.substr(0, 130) +
           "\"}]",
       "interface-container/0/name: is longer than 129 bytes"},
      {R"("container-association": [{"left-container": "a"}])",
       R"(container-association/0: has no member "right-container")"},
      {R"("audit": [{"time": 1}])", "audit/0: does not say which object it is about"},
      {R"("audit": [{"node-ref": "a", "tp-ref": "b", "address": "c"}])",
       "audit/0/address: is no address"},
      {R"("vlan": [{"vlan-id": 1}, {"vlan-id": 1}])",
       "vlan/1/vlan-id: the VLAN 1 is told of already"},
      {R"("vlan": [{}])", R"(vlan/0: has no member "vlan-id")"},
      {R"("subnet": [{"subnet-id": "s", "prefix": 1}])", "subnet/0/prefix: is no text"},
  };
  for (const auto& [text, error] : inNetwork) {
    EXPECT_EQ(complaint(withAttributes(text, kRouters, kL3)), whole + error) << text;
  }
  const std::pair<std::string, std::string> inNode[] = {
      {R"("status": "up")", "status: is no object"},
      {R"("contact": 7)", "contact: is no text"},
      {R"("router": "yes")", "router: is neither true nor false"},
      {R"("feature": [1])", "feature/0: is no text"},
      {R"("property": [{"name": "p"}])", R"(property/0: has no member "value")"},
      {R"("user-variable": [{"name": "v"}])", "user-variable/0: has no value"},
      {R"("user-variable": [{"name": "v", "short-value": 1, "long-value": 1}])",
       "user-variable/0: has values of two types"},
      {R"("user-variable": [{"name": "v", "boolean-value": 1}])",
       "user-variable/0/boolean-value: is neither true nor false"},
  };
  for (const auto& [text, error] : inNode) {
    EXPECT_EQ(complaint(document(test::network("n", "", test::node("a", nodeAttributes(text))))),
              nodePath + error)
        << text;
  }
}

// The table of fields and the YANG module.

std::string yangModule() {
  std::ifstream stream(test::inSourceTree("data/yang/zntopo-topology.yang"));
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

template <typename Object, std::size_t count>
void expectLeaves(const std::string& module, const Field<Object> (&fields)[count]) {
  for (const Field<Object>& field : fields) {
    EXPECT_THAT(module, HasSubstr("leaf " + std::string(field.name) + " {"));
    if (field.names.empty()) continue;
    // All names of one number stand one behind the other.
    std::string pattern;
    for (const NumberName<>& one : field.names) {
      pattern += "enum " + std::string(one.name) + " \\{ value " + std::to_string(one.number) +
                 "; \\}\\s*";
    }
    EXPECT_TRUE(std::regex_search(module, std::regex("\\{\\s*" + pattern + "\\}"))) << field.name;
  }
}

TEST(NetworkFieldsTest, TheYangModuleHasEveryFieldAndItsNames) {
  const std::string module = yangModule();
  expectLeaves(module, fields::kEntity);
  expectLeaves(module, fields::kStatus);
  expectLeaves(module, fields::kNode);
  expectLeaves(module, fields::kInterface);
  expectLeaves(module, fields::kAddress);
  expectLeaves(module, fields::kV6Address);
  expectLeaves(module, fields::kMonitoring);
  expectLeaves(module, fields::kSubnet);
  expectLeaves(module, fields::kBareSubnet);
  expectLeaves(module, fields::kHsrpGroup);
  expectLeaves(module, fields::kHsrpMember);
  expectLeaves(module, fields::kHsrpTrack);
  expectLeaves(module, fields::kContainer);
  expectLeaves(module, fields::kContainerMember);
  expectLeaves(module, fields::kAssociation);
  expectLeaves(module, fields::kAudit);
  for (const char* name : fields::kVariableValue) {
    EXPECT_THAT(module, HasSubstr("leaf " + std::string(name) + " {"));
  }
  for (const NumberName<>& feature : names::kFeature) {
    EXPECT_THAT(module, HasSubstr("enum " + std::string(feature.name) + ";"));
  }
}

}  // namespace
}  // namespace zntopo::tools
