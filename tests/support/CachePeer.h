#pragma once

#include <list>
#include <memory>

#include "zntopo/cache/ZNTopoCache.h"
#include "zntopo/cache/detail/Shelves.h"

namespace zntopo {

/// What tests may see and do of a cache beyond its public surface.
class ZNTopoCachePeer {
 public:
  explicit ZNTopoCachePeer(ZNTopoCache& cache) : cache_(cache) {}

  /// Replaces the clock that validate() reads; seconds.
  void setClock(long (*now)()) {
    MutexLockInternal lock(cache_.myMutex);
    cache_.now_ = now;
  }

  auto vlanLosses() { return cache_.vlanLosses(); }
  auto ifcLosses() { return cache_.ifcLosses(); }
  auto hsrpLosses() { return cache_.hsrpLosses(); }
  void setAllVlanLoaded(unsigned long since) { cache_.setAllVlanLoaded(since); }
  void setAllIfcLoaded(unsigned long since) { cache_.setAllIfcLoaded(since); }
  void setAllHSRPLoaded(unsigned long since) { cache_.setAllHSRPLoaded(since); }
  /// Of a load in which nothing was lost.
  void setAllVlanLoaded() { setAllVlanLoaded(vlanLosses()); }
  void setAllIfcLoaded() { setAllIfcLoaded(ifcLosses()); }
  void setAllHSRPLoaded() { setAllHSRPLoaded(hsrpLosses()); }
  auto getAllVlans() { return cache_.getAllVlans(); }
  auto getAllIfcs() { return cache_.getAllIfcs(); }
  auto getAllHSRPs() { return cache_.getAllHSRPs(); }

  auto getNodeIDMap() { return cache_.getNodeIDMap(); }
  auto getNodeQRMIDMap() { return cache_.getNodeQRMIDMap(); }
  auto getAddressIDMap() { return cache_.getAddressIDMap(); }
  auto getAddressQRMIDMap() { return cache_.getAddressQRMIDMap(); }
  auto getSubnetIDMap() { return cache_.getSubnetIDMap(); }
  auto getSubnetQRMIDMap() { return cache_.getSubnetQRMIDMap(); }
  auto getInterfaceIDMap() { return cache_.getInterfaceIDMap(); }
  auto getVlanObjIDMap() { return cache_.getVlanObjIDMap(); }
  auto getIfcObjIDMap() { return cache_.getIfcObjIDMap(); }
  auto getHSRPObjIDMap() { return cache_.getHSRPObjIDMap(); }

  /// Puts an address entry without an object into the map.
  void corruptAddress(const ObjID& id) { cache_.shelves_->addresses.contents_.byID[id]; }

  bool isAllVlanLoaded() { return cache_.shelves_->vlans.allLoaded_; }
  std::size_t subnetAges() { return cache_.shelves_->subnets.ages().size(); }
  std::size_t interfaceAges() { return cache_.shelves_->interfaces.ages().size(); }
  /// The ages of all kinds but containers.
  std::size_t clearableAges() {
    detail::Shelves& shelves = *cache_.shelves_;
    return shelves.nodes.ages().size() + shelves.addresses.ages().size() +
           shelves.subnets.ages().size() + shelves.interfaces.ages().size() +
           shelves.vlans.ages().size() + shelves.hsrps.ages().size();
  }
  std::size_t ifcAges() { return cache_.shelves_->ifcs.ages().size(); }

  /// Keeps the cache's lock for a while.
  ZNMutex& mutex() { return cache_.myMutex; }

 private:
  ZNTopoCache& cache_;
};

}  // namespace zntopo
