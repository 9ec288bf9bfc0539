#include "zntopo/cache/ZNTopoCache.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/cache/CachedKinds.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

template <typename Map>
std::vector<typename Map::key_type> keysOf(const Map& map) {
  std::vector<typename Map::key_type> keys;
  for (const auto& entry : map) keys.push_back(entry.first);
  return keys;
}

class ZNTopoCacheTest : public testing::Test {
 protected:
  void useFifo() { cache.getTopoConfig().setEnableFIFOCacheSwap(true); }
  void useNode(const ObjID& id, const ObjID& legacyID) {
    cache.useNode(makeEntity<ZNNode>(id, legacyID));
  }
  void useInterface(const ObjID& id, const ObjID& legacyID = ObjID()) {
    cache.useInterface(makeEntity<ZNInterface>(id, legacyID));
  }

  ZNTopoCache cache;
  ZNTopoCachePeer peer{cache};
};

// ---- legacy identifiers -----------------------------------------------------------------------

TEST_F(ZNTopoCacheTest, NodesAndSubnetsAreFoundByTheNumberOfTheirLegacyIdentifier) {
  useNode("n", 77);
  cache.useSubnet(makeEntity<ZNSubnet>("s", "12x"));
  ZNRefPtr<ZNNode> node;
  EXPECT_TRUE(cache.inNodeQRMIDCache(77, node));
  EXPECT_EQ(ObjID("n"), node->getObjID());
  EXPECT_TRUE(cache.inNodeQRMIDCache("77x", node));
  EXPECT_FALSE(cache.inNodeQRMIDCache("x77", node));
  ZNRefPtr<ZNSubnet> subnet;
  EXPECT_TRUE(cache.inSubnetQRMIDCache(12, subnet));
  EXPECT_FALSE(cache.inSubnetQRMIDCache(13, subnet));
}

TEST_F(ZNTopoCacheTest, ANodeWithoutALegacyIdentifierStandsUnderZero) {
  useNode("n", ObjID());
  ZNRefPtr<ZNNode> node;
  EXPECT_TRUE(cache.inNodeQRMIDCache(ObjID(), node));
  EXPECT_THAT(keysOf(peer.getNodeQRMIDMap()), ElementsAre(0));
}

TEST_F(ZNTopoCacheTest, TheLastStoredNodeOwnsASharedLegacyIdentifierAndTheFirstToLeaveTakesIt) {
  cache.getTopoConfig().setNodeCacheSize(2);
  useNode(1, 5);
  useNode(2, 5);
  ZNRefPtr<ZNNode> node;
  ASSERT_TRUE(cache.inNodeQRMIDCache(5, node));
  EXPECT_EQ(ObjID(2), node->getObjID());
  useNode(3, 6);  // node 1 goes
  EXPECT_FALSE(cache.inNodeQRMIDCache(5, node));
  EXPECT_TRUE(holds<Nodes>(cache, 2));
}

TEST_F(ZNTopoCacheTest, ALookupOfANodeByItsLegacyIdentifierIsLogged) {
  useNode("n", 77);
  ZNRefPtr<ZNNode> node;
  const CapturedLog log(MC_INFO);
  cache.inNodeQRMIDCache(78, node);
  cache.inNodeQRMIDCache("77x", node);
  EXPECT_THAT(log.lines(), ElementsAre("LookupQRMID: 78\n", "LookupQRMID: 77x\n", "FoundQRMID:77\n",
                                       "FoundID: n\n"));
}

TEST_F(ZNTopoCacheTest, OtherLookupsAreNotLogged) {
  useInterface("i", 7);
  ZNRefPtr<ZNInterface> interface;
  const CapturedLog log;
  cache.inInterfaceIDCache("i", interface);
  cache.inInterfaceQRMIDCache(7, interface);
  EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(ZNTopoCacheTest, InterfacesAreFoundByTheirWholeLegacyIdentifier) {
  useInterface("i", 77);
  ZNRefPtr<ZNInterface> interface;
  EXPECT_TRUE(cache.inInterfaceQRMIDCache(77, interface));
  EXPECT_FALSE(cache.inInterfaceQRMIDCache("77x", interface));
  EXPECT_FALSE(cache.inInterfaceQRMIDCache(ObjID(), interface));
}

TEST_F(ZNTopoCacheTest, ANullLegacyIdentifierOfAnInterfaceIsNotKept) {
  useInterface(1);
  useInterface(2, 77);
  ZNRefPtr<ZNInterface> interface;
  EXPECT_TRUE(cache.inInterfaceQRMIDCache(77, interface));
  EXPECT_EQ(ObjID(2), interface->getObjID());
  cache.removeInterface(1);
  EXPECT_TRUE(cache.inInterfaceQRMIDCache(77, interface));
}

TEST_F(ZNTopoCacheTest, ALegacyIdentifierOfAnotherKindTakesNothingFromAnInterface) {
  useInterface(1, 77);
  useInterface(2, "text");
  ZNRefPtr<ZNInterface> interface;
  EXPECT_FALSE(cache.inInterfaceQRMIDCache("text", interface));
  cache.removeInterface(2);
  ASSERT_TRUE(cache.inInterfaceQRMIDCache(77, interface));
  EXPECT_EQ(ObjID(1), interface->getObjID());
}

TEST_F(ZNTopoCacheTest, OnlyMonitoredAddressesHaveALegacyIdentifier) {
  cache.useAddress(makeAddress("plain"));
  cache.useAddress(makeMonitoredAddress("null", ObjID()));
  EXPECT_TRUE(peer.getAddressQRMIDMap().empty());
  cache.useAddress(makeMonitoredAddress("monitored", 5));
  ZNRefPtr<ZNAddress> address;
  ASSERT_TRUE(cache.inAddressQRMIDCache(5, address));
  EXPECT_EQ(ObjID("monitored"), address->getAddressID());
  EXPECT_EQ(3u, peer.getAddressIDMap().size());
}

TEST_F(ZNTopoCacheTest, AnEvictionTakesTheLegacyIdentifierToo) {
  ZNTopoConfig& config = cache.getTopoConfig();
  config.setNodeCacheSize(1);
  config.setSubnetCacheSize(1);
  config.setInterfaceCacheSize(1);
  config.setAddressCacheSize(1);
  for (const int id : {1, 2}) {
    useWithLegacyID(cache, id, 10 + id);
  }
  ZNRefPtr<ZNInterface> interface;
  EXPECT_THAT(keysOf(peer.getNodeQRMIDMap()), ElementsAre(12));
  EXPECT_THAT(keysOf(peer.getSubnetQRMIDMap()), ElementsAre(12));
  EXPECT_THAT(keysOf(peer.getAddressQRMIDMap()), ElementsAre(12));
  EXPECT_FALSE(cache.inInterfaceQRMIDCache(11, interface));
  EXPECT_TRUE(cache.inInterfaceQRMIDCache(12, interface));
}

// ---- the switches for addresses ---------------------------------------------------------------

struct AddressSwitches {
  bool fifo, swap, addressSwap;
  std::vector<ObjID> left;  // of the addresses 2, 1 and 3, in this order, and a size of 1
};

class AddressSwitchTest : public testing::TestWithParam<AddressSwitches> {};

TEST_P(AddressSwitchTest, AddressesLeaveOnlyWithBothSwitches) {
  ZNTopoCache cache;
  ZNTopoConfig& config = cache.getTopoConfig();
  config.setAddressCacheSize(1);
  config.setEnableFIFOCacheSwap(GetParam().fifo);
  config.setEnableCacheSwap(GetParam().swap);
  config.setEnableAddressCacheSwap(GetParam().addressSwap);
  for (const int id : {2, 1, 3}) cache.useAddress(makeAddress(id));
  EXPECT_EQ(GetParam().left, keysOf(ZNTopoCachePeer(cache).getAddressIDMap()));
}

INSTANTIATE_TEST_SUITE_P(All, AddressSwitchTest,
                         testing::Values(AddressSwitches{false, true, true, {3}},
                                         AddressSwitches{true, true, true, {3}},
                                         AddressSwitches{false, true, false, {1, 2, 3}},
                                         AddressSwitches{true, true, false, {1, 2, 3}},
                                         AddressSwitches{false, false, true, {1, 2, 3}},
                                         AddressSwitches{true, false, true, {1, 2, 3}}));

TEST_F(ZNTopoCacheTest, AddressesHaveNoAgeWhileTheirSwitchIsOff) {
  useFifo();
  cache.getTopoConfig().setAddressCacheSize(1);
  cache.getTopoConfig().setEnableAddressCacheSwap(false);
  cache.useAddress(makeAddress(1));
  cache.useAddress(makeAddress(2));
  cache.getTopoConfig().setEnableAddressCacheSwap(true);
  cache.useAddress(makeAddress(3));  // no age is known: nothing goes
  EXPECT_EQ(3u, peer.getAddressIDMap().size());
}

// ---- whole kinds ------------------------------------------------------------------------------

TEST_F(ZNTopoCacheTest, AKindIsWholeOnceItIsSaidToBeLoaded) {
  EXPECT_FALSE(cache.isAllVlanInCache());
  EXPECT_FALSE(cache.isAllIfcInCache());
  EXPECT_FALSE(cache.isAllHSRPInCache());
  peer.setAllVlanLoaded();
  EXPECT_TRUE(cache.isAllVlanInCache());
  EXPECT_FALSE(cache.isAllIfcInCache());
  peer.setAllIfcLoaded();
  EXPECT_TRUE(cache.isAllIfcInCache());
  EXPECT_FALSE(cache.isAllHSRPInCache());
  peer.setAllHSRPLoaded();
  EXPECT_TRUE(cache.isAllHSRPInCache());
}

TEST_F(ZNTopoCacheTest, AVlanThatLeavesEndsTheWholeUntilTheCacheIsCleared) {
  cache.getTopoConfig().setVlanCacheSize(1);
  cache.useVlan(Vlans::make(1));
  peer.setAllVlanLoaded();
  cache.useVlan(Vlans::make(2));
  EXPECT_FALSE(cache.isAllVlanInCache());
  EXPECT_TRUE(peer.isAllVlanLoaded());
  peer.setAllVlanLoaded();
  EXPECT_FALSE(cache.isAllVlanInCache());
  cache.clear(true);
  EXPECT_FALSE(cache.isAllVlanInCache());
  peer.setAllVlanLoaded();
  EXPECT_TRUE(cache.isAllVlanInCache());
}

TEST_F(ZNTopoCacheTest, AContainerOrGroupThatLeavesEndsTheWhole) {
  cache.getTopoConfig().setIfcCacheSize(1);
  cache.getTopoConfig().setHSRPCacheSize(1);
  peer.setAllIfcLoaded();
  peer.setAllHSRPLoaded();
  cache.useIfc(Ifcs::make(1));
  cache.useHSRP(HSRPs::make(1));
  EXPECT_TRUE(cache.isAllIfcInCache());
  EXPECT_TRUE(cache.isAllHSRPInCache());
  cache.useIfc(Ifcs::make(2));
  cache.useHSRP(HSRPs::make(2));
  EXPECT_FALSE(cache.isAllIfcInCache());
  EXPECT_FALSE(cache.isAllHSRPInCache());
}

TEST_F(ZNTopoCacheTest, TheWholeKindComesInTheOrderOfIdentifiers) {
  for (const int id : {3, 1, 2}) {
    cache.useVlan(Vlans::make(id));
    cache.useIfc(Ifcs::make(id));
    cache.useHSRP(HSRPs::make(id));
  }
  const auto idsOf = [](const auto& objects) {
    std::vector<ObjID> ids;
    for (const auto& object : *objects) ids.push_back(object->getObjID());
    return ids;
  };
  peer.setAllVlanLoaded();
  peer.setAllIfcLoaded();
  peer.setAllHSRPLoaded();
  const std::vector<ObjID> ordered = {1, 2, 3};
  EXPECT_EQ(ordered, idsOf(peer.getAllVlans()));
  EXPECT_EQ(ordered, idsOf(peer.getAllIfcs()));
  EXPECT_EQ(ordered, idsOf(peer.getAllHSRPs()));
}

TEST_F(ZNTopoCacheTest, TheWholeKindIsNotGivenUnlessItIsThere) {
  cache.getTopoConfig().setVlanCacheSize(1);
  cache.useVlan(Vlans::make(1));
  cache.useIfc(Ifcs::make(1));
  cache.useHSRP(HSRPs::make(1));
  EXPECT_EQ(nullptr, peer.getAllVlans());
  EXPECT_EQ(nullptr, peer.getAllIfcs());
  EXPECT_EQ(nullptr, peer.getAllHSRPs());
  peer.setAllVlanLoaded();
  EXPECT_EQ(1u, peer.getAllVlans()->size());
  cache.useVlan(Vlans::make(2));
  EXPECT_EQ(nullptr, peer.getAllVlans());
}

TEST_F(ZNTopoCacheTest, AKindIsNotWholeIfTheCacheWasClearedWhileItWasLoaded) {
  const auto vlanLosses = peer.vlanLosses();
  const auto ifcLosses = peer.ifcLosses();
  const auto hsrpLosses = peer.hsrpLosses();
  cache.useVlan(Vlans::make(1));
  cache.useIfc(Ifcs::make(1));
  cache.useHSRP(HSRPs::make(1));
  cache.clear(true);
  peer.setAllVlanLoaded(vlanLosses);
  peer.setAllIfcLoaded(ifcLosses);
  peer.setAllHSRPLoaded(hsrpLosses);
  EXPECT_FALSE(cache.isAllVlanInCache());
  EXPECT_FALSE(cache.isAllIfcInCache());
  EXPECT_FALSE(cache.isAllHSRPInCache());
}

TEST_F(ZNTopoCacheTest, AKindIsNotWholeIfSomethingWasRemovedWhileItWasLoaded) {
  const auto ifcLosses = peer.ifcLosses();
  const auto hsrpLosses = peer.hsrpLosses();
  cache.removeIfc(1);
  cache.removeHSRP(1);
  peer.setAllIfcLoaded(ifcLosses);
  peer.setAllHSRPLoaded(hsrpLosses);
  EXPECT_FALSE(cache.isAllIfcInCache());
  EXPECT_FALSE(cache.isAllHSRPInCache());
}

TEST_F(ZNTopoCacheTest, AKindIsNotWholeIfAnObjectOfTheLoadWasRefused) {
  auto losses = peer.vlanLosses();
  cache.useVlan(Vlans::make(1));
  cache.useVlan(Vlans::make(ObjID("of another kind")));
  peer.setAllVlanLoaded(losses);
  EXPECT_FALSE(cache.isAllVlanInCache());
  // For a moment the kind was not to be kept.
  losses = peer.vlanLosses();
  cache.getTopoConfig().setVlanCacheSize(0);
  cache.useVlan(Vlans::make(2));
  cache.getTopoConfig().setVlanCacheSize(10);
  peer.setAllVlanLoaded(losses);
  EXPECT_FALSE(cache.isAllVlanInCache());
}

TEST_F(ZNTopoCacheTest, WhatOtherThreadsUseWhileAKindIsLoadedTakesNothingFromIt) {
  const auto losses = peer.vlanLosses();
  cache.useVlan(Vlans::make(1));
  cache.useVlan(Vlans::make(1));
  cache.removeHSRP(1);
  cache.removeNode(1);
  peer.setAllVlanLoaded(losses);
  EXPECT_TRUE(cache.isAllVlanInCache());
}

TEST_F(ZNTopoCacheTest, TheMapsAreGivenAsCopies) {
  useNode(1, 11);
  useInterface(2, 12);
  cache.useSubnet(makeEntity<ZNSubnet>(3, 13));
  cache.useAddress(makeMonitoredAddress(4, 14));
  cache.useVlan(Vlans::make(5));
  cache.useIfc(Ifcs::make(6));
  cache.useHSRP(HSRPs::make(7));
  const auto nodes = peer.getNodeIDMap();
  const auto interfaces = peer.getInterfaceIDMap();
  const auto subnets = peer.getSubnetIDMap();
  const auto addresses = peer.getAddressIDMap();
  const auto vlans = peer.getVlanObjIDMap();
  const auto groups = peer.getHSRPObjIDMap();
  cache.clear(true);
  EXPECT_THAT(keysOf(nodes), ElementsAre(ObjID(1)));
  EXPECT_THAT(keysOf(interfaces), ElementsAre(ObjID(2)));
  EXPECT_THAT(keysOf(subnets), ElementsAre(ObjID(3)));
  EXPECT_THAT(keysOf(addresses), ElementsAre(ObjID(4)));
  EXPECT_THAT(keysOf(vlans), ElementsAre(ObjID(5)));
  EXPECT_THAT(keysOf(groups), ElementsAre(ObjID(7)));
  EXPECT_THAT(keysOf(peer.getNodeIDMap()), IsEmpty());
  EXPECT_THAT(keysOf(peer.getInterfaceIDMap()), IsEmpty());
  EXPECT_THAT(keysOf(peer.getSubnetIDMap()), IsEmpty());
  EXPECT_THAT(keysOf(peer.getVlanObjIDMap()), IsEmpty());
  EXPECT_THAT(keysOf(peer.getHSRPObjIDMap()), IsEmpty());
  EXPECT_THAT(keysOf(peer.getIfcObjIDMap()), ElementsAre(ObjID(6)));
}

// ---- removals ---------------------------------------------------------------------------------

TEST_F(ZNTopoCacheTest, ARemovalTakesBothIdentifiersAndTheAge) {
  useFifo();
  for (const int id : {1, 2}) {
    useWithLegacyID(cache, id, 10 + id);
  }
  removeEverywhere(cache, 1);
  EXPECT_THAT(keysOf(peer.getNodeIDMap()), ElementsAre(ObjID(2)));
  EXPECT_THAT(keysOf(peer.getNodeQRMIDMap()), ElementsAre(12));
  EXPECT_THAT(keysOf(peer.getSubnetIDMap()), ElementsAre(ObjID(2)));
  EXPECT_THAT(keysOf(peer.getSubnetQRMIDMap()), ElementsAre(12));
  EXPECT_THAT(keysOf(peer.getAddressIDMap()), ElementsAre(ObjID(2)));
  EXPECT_THAT(keysOf(peer.getAddressQRMIDMap()), ElementsAre(12));
  EXPECT_THAT(keysOf(peer.getInterfaceIDMap()), ElementsAre(ObjID(2)));
  ZNRefPtr<ZNInterface> interface;
  EXPECT_FALSE(cache.inInterfaceQRMIDCache(11, interface));
  EXPECT_EQ(1u, peer.subnetAges());
  EXPECT_EQ(1u, peer.interfaceAges());
}

TEST_F(ZNTopoCacheTest, RemovingWhatIsNotThereChangesNothing) {
  useWithLegacyID(cache, 1, 11);
  cache.useIfc(Ifcs::make(1));
  cache.useHSRP(HSRPs::make(1));
  for (const ObjID& id : {ObjID(2), ObjID("text"), ObjID()}) {
    removeEverywhere(cache, id);
  }
  EXPECT_THAT(keysOf(peer.getNodeIDMap()), ElementsAre(ObjID(1)));
  EXPECT_THAT(keysOf(peer.getNodeQRMIDMap()), ElementsAre(11));
  EXPECT_THAT(keysOf(peer.getInterfaceIDMap()), ElementsAre(ObjID(1)));
  EXPECT_THAT(keysOf(peer.getSubnetIDMap()), ElementsAre(ObjID(1)));
  EXPECT_THAT(keysOf(peer.getAddressIDMap()), ElementsAre(ObjID(1)));
  EXPECT_THAT(keysOf(peer.getAddressQRMIDMap()), ElementsAre(11));
  EXPECT_THAT(keysOf(peer.getIfcObjIDMap()), ElementsAre(ObjID(1)));
  EXPECT_THAT(keysOf(peer.getHSRPObjIDMap()), ElementsAre(ObjID(1)));
}

TEST_F(ZNTopoCacheTest, RemovingAContainerOrGroupEndsTheWholeUntilItIsLoadedAgain) {
  cache.useIfc(Ifcs::make(1));
  cache.useHSRP(HSRPs::make(1));
  peer.setAllIfcLoaded();
  peer.setAllHSRPLoaded();
  cache.removeIfc(1);
  cache.removeHSRP(1);
  EXPECT_FALSE(holds<Ifcs>(cache, 1));
  EXPECT_FALSE(holds<HSRPs>(cache, 1));
  EXPECT_FALSE(cache.isAllIfcInCache());
  EXPECT_FALSE(cache.isAllHSRPInCache());
  peer.setAllIfcLoaded();
  peer.setAllHSRPLoaded();
  EXPECT_TRUE(cache.isAllIfcInCache());
  EXPECT_TRUE(cache.isAllHSRPInCache());
}

TEST_F(ZNTopoCacheTest, RemovingAnUnknownContainerOrGroupEndsTheWholeToo) {
  peer.setAllIfcLoaded();
  peer.setAllHSRPLoaded();
  cache.removeIfc(1);
  cache.removeHSRP(1);
  EXPECT_FALSE(cache.isAllIfcInCache());
  EXPECT_FALSE(cache.isAllHSRPInCache());
}

TEST_F(ZNTopoCacheTest, AnEvictionMayPickAContainerThatWasRemoved) {
  useFifo();
  cache.getTopoConfig().setIfcCacheSize(2);
  for (const int id : {1, 2}) cache.useIfc(Ifcs::make(id));
  cache.removeIfc(1);
  EXPECT_EQ(2u, peer.ifcAges());
  cache.useIfc(Ifcs::make(3));
  const CapturedLog log(MC_INFO);
  cache.useIfc(Ifcs::make(4));
  EXPECT_THAT(log.lines(), Contains("Removing Ifc - 1 from cache! \n"));
  EXPECT_THAT(keysOf(peer.getIfcObjIDMap()), ElementsAre(ObjID(2), ObjID(3), ObjID(4)));
}

// ---- clear ------------------------------------------------------------------------------------

TEST_F(ZNTopoCacheTest, ClearingSparesTheContainersAndResetsAllFlags) {
  useFifo();
  cache.useIfc(Ifcs::make(1));
  cache.useHSRP(HSRPs::make(1));
  cache.useVlan(Vlans::make(1));
  peer.setAllIfcLoaded();
  peer.setAllHSRPLoaded();
  peer.setAllVlanLoaded();
  cache.clear(true);
  EXPECT_TRUE(holds<Ifcs>(cache, 1));
  EXPECT_EQ(1u, peer.ifcAges());
  EXPECT_FALSE(holds<HSRPs>(cache, 1));
  EXPECT_FALSE(holds<Vlans>(cache, 1));
  EXPECT_FALSE(cache.isAllIfcInCache());
  EXPECT_FALSE(cache.isAllHSRPInCache());
  EXPECT_FALSE(cache.isAllVlanInCache());
}

TEST_F(ZNTopoCacheTest, ClearingForgetsThatContainersLeft) {
  cache.getTopoConfig().setIfcCacheSize(1);
  cache.useIfc(Ifcs::make(1));
  cache.useIfc(Ifcs::make(2));
  cache.clear(true);
  peer.setAllIfcLoaded();
  EXPECT_TRUE(cache.isAllIfcInCache());
}

TEST_F(ZNTopoCacheTest, ClearingWithoutTheLockWorksUnderIt) {
  useNode(1, 11);
  {
    MutexLockInternal lock(peer.mutex());
    cache.clear(false);
  }
  EXPECT_FALSE(holds<Nodes>(cache, 1));
  EXPECT_TRUE(peer.getNodeQRMIDMap().empty());
}

TEST_F(ZNTopoCacheTest, ClearingForgetsTheLegacyIdentifiersAndTheAgesOfAllOthers) {
  useFifo();
  useWithLegacyID(cache, 1, 11);
  cache.useVlan(Vlans::make(1));
  cache.useHSRP(HSRPs::make(1));
  ASSERT_EQ(6u, peer.clearableAges());
  cache.clear(true);
  EXPECT_EQ(0u, peer.clearableAges());
  EXPECT_THAT(peer.getNodeQRMIDMap(), IsEmpty());
  EXPECT_THAT(peer.getSubnetQRMIDMap(), IsEmpty());
  EXPECT_THAT(peer.getAddressIDMap(), IsEmpty());
  EXPECT_THAT(peer.getAddressQRMIDMap(), IsEmpty());
  ZNRefPtr<ZNInterface> interface;
  EXPECT_FALSE(cache.inInterfaceQRMIDCache(11, interface));
}

// ---- soundness of the address map -------------------------------------------------------------

TEST_F(ZNTopoCacheTest, AnEmptyAddressMapIsValid) { EXPECT_TRUE(cache.isAddressIDMapValid()); }

TEST_F(ZNTopoCacheTest, TheAddressMapStaysValidWhenAnUnknownAddressIsRemoved) {
  cache.removeAddress(1);
  EXPECT_TRUE(cache.isAddressIDMapValid());
  cache.useAddress(makeAddress(2));
  cache.removeAddress(1);
  EXPECT_TRUE(cache.isAddressIDMapValid());
}

TEST_F(ZNTopoCacheTest, EveryAddressEntryWithoutAnObjectIsLogged) {
  cache.useAddress(makeAddress("b"));
  peer.corruptAddress("a");
  peer.corruptAddress("c");
  const CapturedLog log(MC_CRITICAL);
  EXPECT_FALSE(cache.isAddressIDMapValid());
  EXPECT_THAT(log.lines(), ElementsAre("Topo cache is corrupt for AddressID entry: a\n",
                                       "Topo cache is corrupt for AddressID entry: c\n"));
}

TEST_F(ZNTopoCacheTest, AnAddressEntryWithoutAnObjectIsNoHitAndIsFilledByAUse) {
  peer.corruptAddress("a");
  ZNRefPtr<ZNAddress> found = makeAddress("mine");
  EXPECT_FALSE(cache.inAddressIDCache("a", found));
  EXPECT_TRUE(found.isNull());  // what the entry holds is handed over
  cache.removeAddress("b");
  cache.useAddress(makeMonitoredAddress("a", 5));
  EXPECT_TRUE(holds<Addresses>(cache, "a"));
  EXPECT_TRUE(cache.isAddressIDMapValid());
  EXPECT_THAT(keysOf(peer.getAddressQRMIDMap()), ElementsAre(5));
  peer.corruptAddress("c");
  cache.removeAddress("c");
  EXPECT_TRUE(cache.isAddressIDMapValid());
}

// ---- configuration ----------------------------------------------------------------------------

TEST_F(ZNTopoCacheTest, TheConfigurationIsReplacedAsAWholeAndReadLive) {
  ZNTopoConfig config;
  config.setNodeCacheSize(1);
  config.setEnableFIFOCacheSwap(true);
  cache.setTopoConfig(config);
  const ZNTopoConfig& live = cache.getTopoConfig();
  EXPECT_EQ(1, live.getNodeCacheSize());
  EXPECT_TRUE(live.getEnableFIFOCacheSwap());
  config.setNodeCacheSize(2);
  EXPECT_EQ(1, live.getNodeCacheSize());
  cache.setTopoConfig(config);
  EXPECT_EQ(2, live.getNodeCacheSize());
}

TEST_F(ZNTopoCacheTest, SwitchingTheUseOfTheCacheOffHasNoEffect) {
  cache.getTopoConfig().setUseCache(false);
  useNode(1, 11);
  EXPECT_TRUE(holds<Nodes>(cache, 1));
}

TEST_F(ZNTopoCacheTest, TheTopologyModeStartsAtZeroAndIsKept) {
  EXPECT_EQ(0, cache.getTopoMode());
  int mode = 3;
  cache.setTopoMode(mode);
  EXPECT_EQ(3, cache.getTopoMode());
}

// ---- what happens outside the lock ------------------------------------------------------------

/// A node that notes whether the cache's lock was free when it died.
class MortalNode : public ZNNode {
 public:
  MortalNode(const ObjID& id, ZNMutex& mutex, std::vector<bool>& deaths)
      : mutex_(mutex), deaths_(deaths) {
    setObjID(id);
  }
  ~MortalNode() override {
    const bool isFree = pthread_mutex_trylock(mutex_.getMutex()) == 0;
    if (isFree) mutex_.unlock();
    deaths_.push_back(isFree);
  }

 private:
  ZNMutex& mutex_;
  std::vector<bool>& deaths_;
};

TEST_F(ZNTopoCacheTest, ObjectsDieAfterTheLockIsReleased) {
  std::vector<bool> deaths;
  const auto useMortal = [&](const ObjID& id) {
    cache.useNode(ZNRefPtr<ZNNode>(new MortalNode(id, peer.mutex(), deaths)));
  };
  useFifo();
  cache.getTopoConfig().setNodeCacheSize(2);
  for (int id = 1; id <= 6; ++id) useMortal(id);
  EXPECT_EQ(4u, deaths.size());  // by eviction
  cache.removeNode(6);
  EXPECT_EQ(5u, deaths.size());
  ZNRefPtr<ZNNode> found(new MortalNode(100, peer.mutex(), deaths));
  EXPECT_TRUE(cache.inNodeIDCache(5, found));
  EXPECT_EQ(6u, deaths.size());  // the one that the handle held
  found = ZNRefPtr<ZNNode>();
  cache.setSize(0, 0, 0, 0, 0, 0, 0);
  EXPECT_EQ(7u, deaths.size());
  cache.getTopoConfig().setNodeCacheSize(2);
  useMortal(1);
  cache.clear(true);
  EXPECT_THAT(deaths, testing::AllOf(testing::SizeIs(8), testing::Each(true)));
}

}  // namespace
}  // namespace zntopo::test
