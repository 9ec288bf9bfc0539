#include "tools/import/Rfc8345Reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tools/import/Rfc8345Text.h"

namespace zntopo::tools {
namespace {

using namespace test;  // NOLINT(google-build-using-namespace): the parts of documents
using Read = Rfc8345Read;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

// Errors and their places.

TEST(Rfc8345ReaderTest, AnotherDocumentIsRefused) {
  EXPECT_THAT(complaint("{}"), HasSubstr("is no RFC 8345 document"));
  EXPECT_THAT(complaint("[]"), HasSubstr("is no object"));
  EXPECT_THAT(complaint("7"), HasSubstr("is no object"));
}

TEST(Rfc8345ReaderTest, ErrorsSayWhere) {
  EXPECT_EQ(complaint(document(network("n", "", node("a") + ", {}"))),
            "/ietf-network:networks/network/0/node/1: has no member \"node-id\"");
  EXPECT_EQ(complaint(document(network("n", "", node("")))),
            "/ietf-network:networks/network/0/node/0/node-id: is empty");
  EXPECT_EQ(complaint(document(network("n", "", node("a", tps(tp("x") + R"(, {"tp-id": 7})"))))),
            "/ietf-network:networks/network/0/node/0/ietf-network-topology:termination-point/1/"
            "tp-id: is no text");
  EXPECT_EQ(complaint(document(R"({"network-id": "n", "node": {}})")),
            "/ietf-network:networks/network/0/node: is no list");
}

TEST(Rfc8345ReaderTest, AnIdentifierThatIsTakenIsRefused) {
  const std::string taken = "is taken already";
  EXPECT_THAT(complaint(document(network("n", "", "") + "," + network("n", "", ""))),
              HasSubstr("network/1: the identifier \"n\" is taken already"));
  EXPECT_THAT(complaint(document(network("n", "", node("a") + "," + node("a")))),
              HasSubstr("node/1: the identifier \"a\" " + taken));
  EXPECT_THAT(complaint(document(network("n", "", node("a", tps(tp("x") + "," + tp("x")))))),
              HasSubstr("termination-point/1: the identifier \"x\" " + taken));
  const std::string twice = link("a", "x", "b", "y") + "," + link("a", "x", "b", "y");
  EXPECT_THAT(complaint(document(network("n", "", "", twice))), HasSubstr(taken));
}

TEST(Rfc8345ReaderTest, NamesThatTheStoreCantHoldAreRefused) {
  EXPECT_THAT(complaint(document(network("n", "", node(std::string(256, 'x'))))),
              HasSubstr("node-id: is longer than 255 bytes"));
  EXPECT_THAT(complaint(document(network("n", "", node("a\\u0000b")))),
              HasSubstr("node-id: has a control character in it"));
  EXPECT_EQ(complaint(document(network("n", "", node(std::string(255, 'x'))))), "");
}

TEST(Rfc8345ReaderTest, QuotesAndSemicolonsAreJustNames) {
  const Read read(document(network("n", "", node("x'; drop table nwnode; --"))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("x'; drop table nwnode; --"));
}

TEST(Rfc8345ReaderTest, LayersBeyondAllReasonAreRefusedAndCirclesCounted) {
  std::string nodes = node("n0");
  for (int i = 1; i < 5000; ++i) {
    nodes = node("n" + std::to_string(i), on("n", "n" + std::to_string(i - 1))) + "," + nodes;
  }
  EXPECT_THAT(complaint(document(network("n", "", nodes))),
              HasSubstr("stands on more than 100 layers"));

  const Read circle(
      document(network("n", "", node("a", on("n", "b")) + "," + node("b", on("n", "a")))));
  EXPECT_EQ(circle.counted("supporting-node that leads back to the node itself"), 1);
  EXPECT_EQ(circle.model.nodes.size(), 2u);
}

TEST(Rfc8345ReaderTest, ACircleOfTerminationPointsIsCounted) {
  const Read read(document(
      network("p", "", node("a", tps(tp("x", tpOn("q", "a", "x"))))) + "," +
      network("q", "", node("a", on("p", "a") + "," + tps(tp("x", tpOn("p", "a", "x")))))));
  EXPECT_EQ(read.counted("supporting-termination-point that leads back to itself"), 1);
  EXPECT_EQ(read.model.nodes.size(), 1u);
  EXPECT_EQ(read.model.nodes[0].interfaces.size(), 1u);
}

// Layers.

TEST(Rfc8345ReaderTest, LayersOfOneDeviceAreOneNodeAndTheirPortsOneInterface) {
  const Read read(document(
      network("l3", kL3,
              node("r", on("l2", "r-bridge") + "," +
                            tps(tp("10.0.0.1", tpOn("l2", "r-bridge", "p1") + "," +
                                                   addresses("\"10.0.0.1/24\""))))) +
      "," +
      network("l2", kL2,
              node("r-bridge", on("l1", "R") + "," + tps(tp("p1", tpOn("l1", "R", "Gi0/1"))))) +
      "," + network("l1", "", node("R", tps(tp("Gi0/1"))))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("R"));
  EXPECT_THAT(read.interfaceNames("R"), ElementsAre("Gi0/1"));
  ASSERT_EQ(read.node("R").interfaces[0].addresses.size(), 1u);
  EXPECT_EQ(read.node("R").interfaces[0].addresses[0].address.text(), "10.0.0.1");
}

TEST(Rfc8345ReaderTest, InstancesOfOneDeviceAreOneNodeAndTheLinkBetweenThemIsCounted) {
  const Read read(document(network("l1", "", node("R")) + "," +
                           network("l2", kL2,
                                   node("R-vrf", on("l1", "R") + "," + tps(tp("p1"))) + "," +
                                       node("R-bridge", on("l1", "R") + "," + tps(tp("p1"))),
                                   link("R-vrf", "p1", "R-bridge", "p1"))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("R"));
  EXPECT_THAT(read.interfaceNames("R"), ElementsAre("R-vrf/p1", "R-bridge/p1"));
  EXPECT_TRUE(read.model.links.empty());
  EXPECT_EQ(read.counted("link inside one node"), 1);
}

TEST(Rfc8345ReaderTest, OneLinkOfSeveralLayersAndBothDirectionsIsOneRecord) {
  const auto upper = [](const std::string& name, const std::string& port) {
    return node(name + "-br",
                on("l1", name) + "," + tps(tp("p", tpOn("l1", name, port)) + "," + tp("q")));
  };
  const Read read(
      document(network("l2", kL2, upper("A", "x") + "," + upper("B", "y"),
                       link("B-br", "p", "A-br", "p") + "," + link("A-br", "q", "B-br", "q")) +
               "," +
               network("l1", "", node("A", tps(tp("x"))) + "," + node("B", tps(tp("y"))),
                       link("A", "x", "B", "y") + "," + link("B", "y", "A", "x"))));
  // The ports q stand on nothing: that is a parallel link.
  EXPECT_EQ(read.model.links.size(), 2u);
}

TEST(Rfc8345ReaderTest, EquipmentOnEquipmentIsAPartIfItSharesAPortAndAGuestIfNot) {
  const Read read(document(
      network("hw", "", node("host", tps(tp("eth0")))) + "," +
      network("virt", "",
              node("vswitch", on("hw", "host") + "," +
                                  tps(tp("up", tpOn("hw", "host", "eth0")) + "," + tp("p1"))) +
                  "," + node("vm", on("hw", "host") + "," + tps(tp("eth0"))),
              link("vswitch", "p1", "vm", "eth0"))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("host", "vm"));
  EXPECT_THAT(read.interfaceNames("host"), ElementsAre("eth0", "vswitch/p1"));
  EXPECT_EQ(read.model.links.size(), 1u);
}

TEST(Rfc8345ReaderTest, ABundleStaysApartFromItsPorts) {
  const Read read(document(
      network("l1", "",
              node("A", tps(tp("Po1", R"("supporting-termination-point": [)"
                                      R"({"network-ref": "l1", "node-ref": "A", "tp-ref": "x"}])") +
                            "," + tp("x"))))));
  EXPECT_THAT(read.interfaceNames("A"), UnorderedElementsAre("Po1", "x"));
}

TEST(Rfc8345ReaderTest, WithoutSupportsPortsOfEqualNameAreOne) {
  const Read read(document(network("l2", kL2, node("A", tps(tp("eth0") + "," + tp("eth1")))) + "," +
                           network("l3", kL3,
                                   node("A", on("l2", "A") + "," +
                                                 tps(tp("eth1", addresses("\"10.0.0.1\"")) + "," +
                                                     tp("lo", addresses("\"10.0.0.2\"")))))));
  EXPECT_THAT(read.interfaceNames("A"), ElementsAre("eth0", "eth1", "lo"));
  EXPECT_EQ(read.node("A").interfaces[1].addresses.size(), 1u);
}

TEST(Rfc8345ReaderTest, ASegmentIsASubnetAndNoNode) {
  const std::string attributes =
      R"("l3-node-attributes": {"flag": ["pseudo-node"], "prefix": [{"prefix": "10.0.0.0/24"}]})";
  const Read read(document(network("l3", kL3,
                                   node("Seg.A", attributes + "," + tps(tp("a"))) + "," +
                                       node("H", tps(tp("eth0", addresses("\"10.0.0.1\"")))),
                                   link("Seg.A", "a", "H", "eth0"))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("H"));
  ASSERT_EQ(read.model.subnets.size(), 1u);
  EXPECT_EQ(read.model.subnets[0].name, "10.0.0.0/24");
  EXPECT_EQ(read.model.subnets[0].description, "Seg.A");
  const AddressModel& address = read.node("H").interfaces[0].addresses[0];
  EXPECT_EQ(address.subnet, 0u);
  EXPECT_EQ(address.prefixLength, 24);
  EXPECT_TRUE(read.model.links.empty());
  EXPECT_EQ(read.counted("layer-3 link (makes no layer-2 link)"), 1);
}

TEST(Rfc8345ReaderTest, ASegmentWithoutAPrefixStillHoldsItsMembers) {
  const Read read(document(network(
      "l3", kL3,
      node("Seg.A", R"("l3-node-attributes": {"prefix": [{"prefix": "10,0"}]},)" + tps(tp("a"))) +
          "," + node("H", tps(tp("eth0", addresses("\"10.0.0.1\"")))),
      link("H", "eth0", "Seg.A", "a"))));
  ASSERT_EQ(read.model.subnets.size(), 1u);
  EXPECT_EQ(read.model.subnets[0].name, "Seg.A");
  EXPECT_FALSE(read.model.subnets[0].prefix);
  EXPECT_EQ(read.node("H").interfaces[0].addresses[0].subnet, 0u);
  EXPECT_EQ(read.counted("prefix that is none"), 1);
}

TEST(Rfc8345ReaderTest, ASegmentsPrefixTakesItsLengthFromTheOtherNodes) {
  const Read read(document(
      network("l3", kL3,
              node("Seg.A", R"("l3-node-attributes": {"prefix": [{"prefix": "10.0.0.0"}]})") + "," +
                  node("H", R"("l3-node-attributes": {"prefix": [{"prefix": "10.0.0.0/25"}]},)" +
                                tps(tp("eth0", addresses("\"10.0.0.1\"")))))));
  ASSERT_EQ(read.model.subnets.size(), 1u);
  EXPECT_EQ(read.model.subnets[0].name, "10.0.0.0/25");
}

TEST(Rfc8345ReaderTest, AVirtualRoutersAddressesGoToTheInterfacesBelowIt) {
  const std::string both = R"("supporting-node": [{"network-ref": "l3", "node-ref": "A"},)"
                           R"({"network-ref": "l3", "node-ref": "B"}])";
  const std::string bothTps =
      R"("supporting-termination-point": [{"network-ref": "l3", "node-ref": "A", "tp-ref": "x"},)"
      R"({"network-ref": "l3", "node-ref": "B", "tp-ref": "x"}])";
  const Read read(document(
      network("l3", kL3,
              node("gw", both + "," + tps(tp("p", bothTps + "," + addresses("\"10.0.0.1/24\"")))) +
                  "," + node("A", tps(tp("x", addresses("\"10.0.0.2/24\"")))) + "," +
                  node("B", tps(tp("x", addresses("\"10.0.0.3/24\"")))))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("A", "B"));
  const auto& onA = read.node("A").interfaces[0].addresses;
  ASSERT_EQ(onA.size(), 2u);
  EXPECT_EQ(onA[0].address.text(), "10.0.0.2");
  EXPECT_EQ(onA[1].address.text(), "10.0.0.1");
}

TEST(Rfc8345ReaderTest, OverviewsOfSeveralDevicesAndTheirLinksAreCountedOnly) {
  const std::string both = R"("supporting-node": [{"network-ref": "l3", "node-ref": "A"},)"
                           R"({"network-ref": "l3", "node-ref": "B"}])";
  const Read read(document(network("areas", "",
                                   node("area0", both + "," + tps(tp("p"))) + "," +
                                       node("A", on("l3", "A") + "," + tps(tp("q"))),
                                   link("area0", "p", "A", "q")) +
                           "," +
                           network("l3", kL3,
                                   node("A", tps(tp("x", addresses("\"10.0.0.2/24\"")))) + "," +
                                       node("B", tps(tp("x", addresses("\"10.0.0.3/24\"")))))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("A", "B"));
  EXPECT_TRUE(read.model.links.empty());
  EXPECT_EQ(read.counted("node that stands for a group of devices"), 1);
  EXPECT_EQ(read.counted("link of a network that is neither physical nor layer 2"), 1);
  EXPECT_EQ(read.counted("file without a physical or a layer-2 network (no layer-2 links)"), 1);
}

TEST(Rfc8345ReaderTest, NetworksOfUnknownTypesAreCountedOnly) {
  const Read read(document(network("te", "ietf-te-topology:te-topology", node("A"))));
  EXPECT_TRUE(read.model.nodes.empty());
  EXPECT_EQ(read.counted("node of a network whose type is not understood, over no single device"),
            1);
  EXPECT_EQ(read.counted("member \"ietf-te-topology:te-topology\""), 1);
}

TEST(Rfc8345ReaderTest, DanglingReferencesAreCounted) {
  const Read read(
      document(network("l1", "", node("A", tps(tp("x"))), link("A", "x", "B", "y")) + "," +
               network("l2", kL2,
                       node("C", on("l1", "gone") + "," + tps(tp("z", tpOn("l1", "A", "gone")))))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("A", "C"));
  EXPECT_EQ(read.counted("supporting-node that does not exist"), 1);
  EXPECT_EQ(read.counted("supporting-termination-point that does not exist"), 1);
  EXPECT_EQ(read.counted("link to a node or termination point that does not exist"), 1);
}

TEST(Rfc8345ReaderTest, ALinkWithoutTerminationPointsGetsInterfacesOfItsOwn) {
  const auto bare = [](const std::string& a, const std::string& b) {
    return R"({"link-id": ")" + a + b + R"(", "source": {"source-node": ")" + a +
           R"("}, "destination": {"dest-node": ")" + b + R"("}})";
  };
  const Read read(document(
      network("l1", "", node("A") + "," + node("B"), bare("A", "B") + "," + bare("B", "A"))));
  EXPECT_EQ(read.model.links.size(), 1u);
  EXPECT_THAT(read.interfaceNames("A"), ElementsAre("to B"));
}

// Attributes.

TEST(Rfc8345ReaderTest, DraftAndFinalSpellingsOfLayer2AreRead) {
  const std::string attributes =
      R"("ietf-l2-topology:l2-termination-point-attributes": {"interface-name": "eth0",
         "description": "to the roof", "mac-address": "00:11:22:33:44:55", "rate": "1000000000",
         "port-vlan-id": 10, "vlan-id-name": [{"vlan-id": 10, "vlan-name": "office"},
         {"vlan-id": 20, "vlan-name": "voice"}]})";
  for (const char* type : {kL2, "ietf-l2-topology:l2-network", "l2-topology"}) {
    const Read read(document(network("l2", type, node("A", tps(tp("x", attributes))))));
    const InterfaceModel& interface = read.node("A").interfaces[0];
    EXPECT_EQ(interface.name, "eth0");
    EXPECT_EQ(interface.description, "to the roof");
    EXPECT_EQ(interface.physicalAddress, "00:11:22:33:44:55");
    EXPECT_EQ(interface.speed, 1000000000);
    EXPECT_EQ(interface.vlans.size(), 2u);
    EXPECT_FALSE(interface.isAccessPort);
    EXPECT_EQ(read.model.vlans[0].name, "office");
  }
}

TEST(Rfc8345ReaderTest, NumbersOutOfRangeAreCountedOrKeptAtTheBound) {
  const std::string attributes =
      R"("l2-termination-point-attributes": {"rate": 1e300, "port-vlan-id": 0,
         "vlan-id-name": [{"vlan-id": 99999999999999999999999}, {"vlan-id": 4095},
         {"vlan-id": -1}, {"vlan-id": 4094}]})";
  const Read read(document(network("l2", kL2, node("A", tps(tp("x", attributes))))));
  EXPECT_EQ(read.node("A").interfaces[0].speed, 2147483647);
  EXPECT_EQ(read.node("A").interfaces[0].vlans.size(), 1u);
  EXPECT_EQ(read.counted("VLAN number outside 1 to 4094"), 3);
}

TEST(Rfc8345ReaderTest, AWordInsteadOfANumberIsRefused) {
  EXPECT_THAT(
      complaint(document(network(
          "l2", kL2,
          node("A", tps(tp("x", R"("l2-termination-point-attributes": {"port-vlan-id": "x"})")))))),
      HasSubstr("port-vlan-id: is no whole number"));
}

TEST(Rfc8345ReaderTest, TheLengthOfAnAddressIsToldOrConcludedFromTheNodesPrefixes) {
  const Read read(document(network(
      "l3", kL3,
      node("A",
           R"("l3-node-attributes": {"prefix": [{"prefix": "0.0.0.0/0"},
                  {"prefix": "10.0.0.0/8"}, {"prefix": "10.1.0.0/16"}, {"prefix": "10.1.0.1/32"},
                  {"prefix": "10.9.9.9/32"}]},)" +
               tps(tp("x", addresses(R"("10.1.0.1", "10.2.0.1", "10.9.9.9/30", "192.0.2.1")")))))));
  const auto& list = read.node("A").interfaces[0].addresses;
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[0].prefixLength, 16);
  EXPECT_EQ(list[1].prefixLength, 8);
  EXPECT_EQ(list[2].prefixLength, 30);
  EXPECT_FALSE(list[3].prefixLength);
}

TEST(Rfc8345ReaderTest, WhatIsNoAddressIsCounted) {
  const Read read(document(network(
      "l3", kL3,
      node("A",
           tps(tp("x", addresses(R"("area0:10.0.0.1/30", "0.0.0.0", "::", "10.0.0.1/33")")))))));
  EXPECT_TRUE(read.node("A").interfaces[0].addresses.empty());
  EXPECT_EQ(read.counted("ip-address that is none"), 2);
  EXPECT_EQ(read.counted("ip-address that stands for no address (0.0.0.0 or ::)"), 2);
}

TEST(Rfc8345ReaderTest, ARouterIdMakesARouterAndAnythingElseDoesNot) {
  const auto with = [](const std::string& routerId) {
    return Read(
               document(network("l3", kL3,
                                node("A", R"("l3-node-attributes": {"name": "A", "router-id": [")" +
                                              routerId + "\"]}"))))
        .node("A")
        .isRouter;
  };
  EXPECT_TRUE(with("10.0.0.1"));
  EXPECT_FALSE(with(""));
  EXPECT_FALSE(with("as65533_10.0.0.17"));
}

TEST(Rfc8345ReaderTest, NameDescriptionAndManagementAddressComeFromTheAttributes) {
  const Read read(document(network(
      "l2", kL2,
      node("uuid-1", R"("l2-node-attributes": {"name": "core-1", "description": "two\nlines",
                      "management-address": ["2001:db8::1", "10.0.0.1", "10.0.0.2"],
                      "management-vid": 5})"))));
  EXPECT_THAT(read.nodeNames(), ElementsAre("core-1"));
  EXPECT_EQ(read.model.nodes[0].description, "two lines");
  EXPECT_EQ(read.model.nodes[0].managementAddress->text(), "10.0.0.1");
  EXPECT_EQ(read.counted("member \"management-vid\""), 1);
}

TEST(Rfc8345ReaderTest, KeysStayTheSameWhenTheFileIsReadAgain) {
  const std::string content = document(network("n", "", node("a", tps(tp("x"))) + "," + node("b")));
  const Read one(content);
  const Read other(content);
  ASSERT_EQ(one.model.nodes.size(), other.model.nodes.size());
  for (std::size_t i = 0; i < one.model.nodes.size(); ++i) {
    EXPECT_EQ(one.model.nodes[i].key, other.model.nodes[i].key);
  }
  EXPECT_EQ(one.model.nodes[0].interfaces[0].key, other.model.nodes[0].interfaces[0].key);
}

}  // namespace
}  // namespace zntopo::tools
