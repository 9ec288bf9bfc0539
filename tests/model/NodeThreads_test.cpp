// Several threads on one object while it fills itself in on demand.
#include <thread>

#include "tests/model/ModelFixture.h"
#include "zntopo/model/InetAddressIPv6.h"

namespace zntopo::test {

namespace {

template <typename Work>
void onThreads(const Work& work) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back(work);
  for (std::thread& thread : threads) thread.join();
}

using NodeThreadsTest = ModelTest;

}  // namespace

TEST_F(NodeThreadsTest, ANodesLazyListsAreFilledOnce) {
  for (const char* id : {"i1", "i2"}) {
    gateway().addInterfaceOfNode(ObjID("node"), interfaceOf(id));
  }
  gateway().answerIfcInfos(ObjID("node"), 0, {ZNIfcInfo(ObjID("c"), {})});
  ZNNode node(entityOf(ObjID("node"), E_Node));
  onThreads([&] {
    for (int i = 0; i < 50; ++i) {
      EXPECT_EQ(2U, node.getInterfaceIDList().size());
      EXPECT_EQ(2U, node.getInterfaceList().size());
      EXPECT_EQ(1U, node.getAllIfcInfo().size());
      node.setSnmpState(i % 2 ? RESPONDING : UNREACHABLE, false);
      const ZNNode copy(node);
      EXPECT_EQ(2U, copy.getInterfaceIDSet().size());
    }
  });
}

TEST_F(NodeThreadsTest, AnInterfacesConnectionsAndGroupsAreFilledOnce) {
  ZNRefPtr<ZNNode> node(new ZNNode(entityOf(ObjID("node"), E_Node)));
  node->setConnDataList({new ZNConnData("i", "j", "node", "other", true)});
  gateway().addNode(node);
  gateway().answerHSRPObjIDs(ObjID("i"), {ObjID("g")});
  IFProperty property;
  property.capaSet = ZNInterfaceCapabilitySet(0x10UL);
  const auto interface = interfaceOf(ObjID("i"), ObjID("node"), property);
  onThreads([&] {
    for (int i = 0; i < 50; ++i) {
      EXPECT_EQ(1U, interface->getConnData().size());
      EXPECT_EQ(1U, interface->getHSRPObjIDs().size());
      interface->setIfOperStatus(i % 2 ? up : down, false);
    }
  });
}

TEST_F(NodeThreadsTest, AnAddressFillsItsBitsAndGroupsOnce) {
  IFProperty property;
  property.capaSet = ZNInterfaceCapabilitySet(0x10UL);
  gateway().addInterface(interfaceOf(ObjID("if"), ObjID("node"), property));
  gateway().answerHSRPObjIDs(ObjID("a"), {ObjID("g")});
  InetAddressIPv6 address("2001:db8::1", InetAddressIPv6::Global, 64, false, ObjID("a"),
                          ObjID("if"), ObjID("s"), ActiveDB);
  onThreads([&] {
    for (int i = 0; i < 50; ++i) {
      EXPECT_EQ(128U, address.getAddressAsBitString(0).size());
      EXPECT_TRUE(address.isInHSRP());
      EXPECT_EQ(1U, address.getHSRPObjIDs().size());
      address.setPingState(i % 2 ? Ping_Responding : Ping_Disabled, false);
    }
  });
}

}  // namespace zntopo::test
