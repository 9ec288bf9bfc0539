#pragma once

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "tests/support/CachePeer.h"
#include "zntopo/cache/ZNTopoCache.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/InetAddressIPv6.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNIfc.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/ZNSubnet.h"
#include "zntopo/model/ZNVlan.h"

/// @file
/// How the tests make, use and look up objects of each cached kind.

namespace zntopo::test {

template <typename T>
ZNRefPtr<T> makeEntity(const ObjID& id, const ObjID& legacyID = ObjID()) {
  T* const entity = new T();
  entity->setObjID(id);
  entity->setQRMObjID(legacyID);
  return ZNRefPtr<T>(entity);
}

inline ZNRefPtr<ZNAddress> makeAddress(const ObjID& id) {
  InetAddressIPv4* const address = new InetAddressIPv4();
  address->setAddressID(id);
  return ZNRefPtr<ZNAddress>(address);
}

inline ZNRefPtr<ZNAddress> makeMonitoredAddress(const ObjID& id, const ObjID& legacyID) {
  auto* const address = new MonitoredInetAddressIPv6();
  address->setAddressID(id);
  address->setQRMObjID(legacyID);
  return ZNRefPtr<ZNAddress>(address);
}

/// One kind: its operations, its size, and the words of its log lines.
template <typename ObjectType, auto Use, auto Find, auto SetSize>
struct Kind {
  using Object = ObjectType;
  using Handle = ZNRefPtr<Object>;

  static void use(ZNTopoCache& cache, const Handle& object) { (cache.*Use)(object); }
  static bool find(const ZNTopoCache& cache, const ObjID& id, Handle& found) {
    return (cache.*Find)(id, found);
  }
  static void setSize(ZNTopoCache& cache, int size) { (cache.getTopoConfig().*SetSize)(size); }
  static Handle make(const ObjID& id) { return makeEntity<Object>(id); }
  static ObjID idOf(const Handle& object) {
    if constexpr (std::is_same_v<Object, ZNAddress>) {
      return object->getAddressID();
    } else {
      return object->getObjID();
    }
  }
};

struct Nodes : Kind<ZNNode, &ZNTopoCache::useNode, &ZNTopoCache::inNodeIDCache,
                    &ZNTopoConfig::setNodeCacheSize> {
  static constexpr const char* kName = "Node";
  static constexpr const char* kNullLine = "Exiting ZNTopoCache::useNode because Null Node \n";
  static constexpr const char* kRemoving = "Removing node - ";
  static constexpr bool kTestsNullID = true;
};

struct Interfaces : Kind<ZNInterface, &ZNTopoCache::useInterface, &ZNTopoCache::inInterfaceIDCache,
                         &ZNTopoConfig::setInterfaceCacheSize> {
  static constexpr const char* kName = "Interface";
  static constexpr const char* kNullLine =
      "Exiting ZNTopoCache::useInterface because of Null Interface\n";
  static constexpr const char* kRemoving = "Removing Interface - ";
  static constexpr bool kTestsNullID = false;
};

struct Addresses : Kind<ZNAddress, &ZNTopoCache::useAddress, &ZNTopoCache::inAddressIDCache,
                        &ZNTopoConfig::setAddressCacheSize> {
  static constexpr const char* kName = "Address";
  static constexpr const char* kNullLine =
      "Exiting ZNTopoCache::useAddress becuase of Null Address \n";
  static constexpr const char* kRemoving = "Removing Address - ";
  static constexpr bool kTestsNullID = false;
  static Handle make(const ObjID& id) { return makeAddress(id); }
};

struct Subnets : Kind<ZNSubnet, &ZNTopoCache::useSubnet, &ZNTopoCache::inSubnetIDCache,
                      &ZNTopoConfig::setSubnetCacheSize> {
  static constexpr const char* kName = "Subnet";
  static constexpr const char* kNullLine =
      "Exiting ZNTopoCache::useSubnet because of Null Subnet \n";
  static constexpr const char* kRemoving = "Removing Subnet - ";
  static constexpr bool kTestsNullID = false;
};

struct Vlans : Kind<ZNVlan, &ZNTopoCache::useVlan, &ZNTopoCache::inVlanObjIDCache,
                    &ZNTopoConfig::setVlanCacheSize> {
  static constexpr const char* kName = "Vlan";
  static constexpr const char* kNullLine = "Exiting ZNTopoCache::useVlan because Null Vlan \n";
  static constexpr const char* kRemoving = "Removing Vlan - ";
  static constexpr bool kTestsNullID = true;
};

struct Ifcs : Kind<ZNIfc, &ZNTopoCache::useIfc, &ZNTopoCache::inIfcObjIDCache,
                   &ZNTopoConfig::setIfcCacheSize> {
  static constexpr const char* kName = "Ifc";
  static constexpr const char* kNullLine = "Exiting ZNTopoCache::useIfc because Null Vlan \n";
  static constexpr const char* kRemoving = "Removing Ifc - ";
  static constexpr bool kTestsNullID = true;
};

struct HSRPs : Kind<ZNHSRP, &ZNTopoCache::useHSRP, &ZNTopoCache::inHSRPObjIDCache,
                    &ZNTopoConfig::setHSRPCacheSize> {
  static constexpr const char* kName = "HSRP";
  static constexpr const char* kNullLine = "Exiting ZNTopoCache::useHSRP because Null HSRP \n";
  static constexpr const char* kRemoving = "Removing HSRP - ";
  static constexpr bool kTestsNullID = true;
};

using AllKinds = testing::Types<Nodes, Interfaces, Addresses, Subnets, Vlans, Ifcs, HSRPs>;

struct KindNames {
  template <typename K>
  static std::string GetName(int) {
    return K::kName;
  }
};

/// True if the cache finds an object of the kind under the identifier.
template <typename K>
bool holds(const ZNTopoCache& cache, const ObjID& id) {
  typename K::Handle found;
  return K::find(cache, id, found);
}

/// Removes an identifier from every kind that can be removed from.
inline void removeEverywhere(ZNTopoCache& cache, const ObjID& id) {
  cache.removeNode(id);
  cache.removeInterface(id);
  cache.removeSubnet(id);
  cache.removeAddress(id);
  cache.removeIfc(id);
  cache.removeHSRP(id);
}

/// Uses one object of each kind with a legacy identifier, under the same two identifiers.
inline void useWithLegacyID(ZNTopoCache& cache, const ObjID& id, const ObjID& legacyID) {
  cache.useNode(makeEntity<ZNNode>(id, legacyID));
  cache.useInterface(makeEntity<ZNInterface>(id, legacyID));
  cache.useSubnet(makeEntity<ZNSubnet>(id, legacyID));
  cache.useAddress(makeMonitoredAddress(id, legacyID));
}

}  // namespace zntopo::test
