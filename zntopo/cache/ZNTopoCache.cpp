#include "zntopo/cache/ZNTopoCache.h"

#include <ctime>
#include <optional>
#include <string>
#include <utility>

#include "zntopo/cache/detail/Shelves.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"

namespace zntopo {

using detail::Shelf;

namespace {

/// Copies the handle of an entry under the lock. What the caller's handle held before is let go
/// after it.
template <typename Map, typename Find>
bool lookUp(ZNMutex& mutex, const Map& map, typename Map::mapped_type& found, Find find) {
  typename Map::mapped_type hit;
  {
    MutexLockInternal lock(mutex);
    const auto entry = find(map);
    if (entry == map.end()) return false;
    hit = entry->second;
  }
  found = std::move(hit);
  return !found.isNull();
}

template <typename Map>
bool lookUpID(ZNMutex& mutex, const Map& map, const ObjID& id, typename Map::mapped_type& found) {
  return lookUp(mutex, map, found, [&](const Map& entries) { return findObjID(entries, id); });
}

template <typename Map>
bool lookUpNumber(ZNMutex& mutex, const Map& map, long number, typename Map::mapped_type& found) {
  return lookUp(mutex, map, found, [&](const Map& entries) { return entries.find(number); });
}

/// The removal of a kind with legacy identifiers: the place in the age order goes as well.
template <typename Kind>
void removeWithAge(ZNMutex& mutex, Shelf<Kind>& shelf, const ObjID& id) {
  typename Shelf<Kind>::Leaving leaving;
  MutexLockInternal lock(mutex);
  shelf.remove(id, leaving);
  shelf.ages().remove(id);
}

/// The removal of a kind whose whole-table loads are remembered. The age order keeps the
/// identifier, so that a later eviction may pick what is gone.
template <typename Kind>
void removeFromWhole(ZNMutex& mutex, Shelf<Kind>& shelf, const ObjID& id) {
  typename Shelf<Kind>::Leaving leaving;
  MutexLockInternal lock(mutex);
  shelf.remove(id, leaving);
  shelf.setNotAllLoaded();
}

/// Calls a step with the oldest identifier while the age order is longer than a size and the
/// step says that it may go on.
template <typename Kind, typename Step>
void shrink(Shelf<Kind>& shelf, int size, const ZNTopoConfig& config, Step step) {
  while (shelf.ages().size() > static_cast<std::size_t>(size) && config.getEnableCacheSwap()) {
    const ObjID oldest = shelf.ages().front();
    if (!step(oldest)) return;
  }
}

template <typename Kind>
void shrinkByAge(Shelf<Kind>& shelf, int size, const ZNTopoConfig& config,
                 typename Shelf<Kind>::Leaving& leaving) {
  shrink(shelf, size, config, [&](const ObjID& oldest) {
    shelf.remove(oldest, leaving);
    shelf.ages().popFront();
    return true;
  });
}

/// VLANs have no legacy map: what the legacy identifier names goes from the map of identifiers.
void shrinkVlans(Shelf<detail::VlanKind>& shelf, int size, const ZNTopoConfig& config,
                 Shelf<detail::VlanKind>::Leaving& leaving) {
  shrink(shelf, size, config, [&](const ObjID& oldest) {
    const auto entry = findObjID(shelf.byID(), oldest);
    if (entry != shelf.byID().end() && !entry->second.isNull()) {
      const ObjID legacyID = entry->second->getQRMObjID();
      shelf.remove(oldest, leaving);
      shelf.remove(legacyID, leaving);
      shelf.setSwappedOut();
    }
    shelf.ages().popFront();
    return true;
  });
}

/// The pass for interfaces shortens the age order of subnets and not its own, so its second step
/// meets an identifier that is gone: it ends there.
void shrinkInterfaces(detail::Shelves& shelves, int size, const ZNTopoConfig& config,
                      Shelf<detail::InterfaceKind>::Leaving& leaving) {
  shrink(shelves.interfaces, size, config, [&](const ObjID& oldest) {
    if (!containsObjID(shelves.interfaces.byID(), oldest)) return false;
    shelves.interfaces.remove(oldest, leaving);
    shelves.subnets.ages().popFront();
    return true;
  });
}

}  // namespace

ZNTopoCache::ZNTopoCache()
    : shelves_(std::make_unique<detail::Shelves>()),
      now_([] { return static_cast<long>(std::time(nullptr)); }) {}

ZNTopoCache::~ZNTopoCache() = default;

bool ZNTopoCache::inNodeIDCache(const ObjID& id, ZNRefPtr<ZNNode>& found) const {
  return lookUpID(myMutex, shelves_->nodes.byID(), id, found);
}

bool ZNTopoCache::inNodeQRMIDCache(const ObjID& id, ZNRefPtr<ZNNode>& found) const {
  const long key = id.getLongValue();
  const bool isHeard = MCLog::isHeard(MC_INFO);
  if (isHeard) MCLog::log(MC_INFO, "LookupQRMID: %s\n", id.getStrValue().c_str());
  if (!lookUpNumber(myMutex, shelves_->nodes.byLegacyID(), key, found)) return false;
  if (isHeard) {
    MCLog::log(MC_INFO, "FoundQRMID:%d\n", static_cast<int>(key));
    MCLog::log(MC_INFO, "FoundID: %s\n", found->getObjID().getStrValue().c_str());
  }
  return true;
}

bool ZNTopoCache::inAddressIDCache(const ObjID& id, ZNRefPtr<ZNAddress>& found) const {
  return lookUpID(myMutex, shelves_->addresses.byID(), id, found);
}

bool ZNTopoCache::inAddressQRMIDCache(const ObjID& id, ZNRefPtr<ZNAddress>& found) const {
  return lookUpNumber(myMutex, shelves_->addresses.byLegacyID(), id.getLongValue(), found);
}

bool ZNTopoCache::inSubnetIDCache(const ObjID& id, ZNRefPtr<ZNSubnet>& found) const {
  return lookUpID(myMutex, shelves_->subnets.byID(), id, found);
}

bool ZNTopoCache::inSubnetQRMIDCache(const ObjID& id, ZNRefPtr<ZNSubnet>& found) const {
  return lookUpNumber(myMutex, shelves_->subnets.byLegacyID(), id.getLongValue(), found);
}

bool ZNTopoCache::inInterfaceIDCache(const ObjID& id, ZNRefPtr<ZNInterface>& found) const {
  return lookUpID(myMutex, shelves_->interfaces.byID(), id, found);
}

bool ZNTopoCache::inInterfaceQRMIDCache(const ObjID& id, ZNRefPtr<ZNInterface>& found) const {
  return lookUpID(myMutex, shelves_->interfaces.byLegacyID(), id, found);
}

bool ZNTopoCache::inVlanObjIDCache(const ObjID& id, ZNRefPtr<ZNVlan>& found) const {
  return lookUpID(myMutex, shelves_->vlans.byID(), id, found);
}

bool ZNTopoCache::inIfcObjIDCache(const ObjID& id, ZNRefPtr<ZNIfc>& found) const {
  return lookUpID(myMutex, shelves_->ifcs.byID(), id, found);
}

bool ZNTopoCache::inHSRPObjIDCache(const ObjID& id, ZNRefPtr<ZNHSRP>& found) const {
  return lookUpID(myMutex, shelves_->hsrps.byID(), id, found);
}

void ZNTopoCache::useNode(const ZNRefPtr<ZNNode>& node) {
  shelves_->nodes.use(node, myTopoConfig, myMutex);
}

void ZNTopoCache::useInterface(const ZNRefPtr<ZNInterface>& interface) {
  shelves_->interfaces.use(interface, myTopoConfig, myMutex);
}

void ZNTopoCache::useAddress(const ZNRefPtr<ZNAddress>& address) {
  shelves_->addresses.use(address, myTopoConfig, myMutex);
}

void ZNTopoCache::useSubnet(const ZNRefPtr<ZNSubnet>& subnet) {
  shelves_->subnets.use(subnet, myTopoConfig, myMutex);
}

void ZNTopoCache::useVlan(const ZNRefPtr<ZNVlan>& vlan) {
  shelves_->vlans.use(vlan, myTopoConfig, myMutex);
}

void ZNTopoCache::useIfc(const ZNRefPtr<ZNIfc>& ifc) {
  shelves_->ifcs.use(ifc, myTopoConfig, myMutex);
}

void ZNTopoCache::useHSRP(const ZNRefPtr<ZNHSRP>& hsrp) {
  shelves_->hsrps.use(hsrp, myTopoConfig, myMutex);
}

bool ZNTopoCache::useHeldNode(const ObjID& id, ZNRefPtr<ZNNode>& found, const char* foundLine) {
  return shelves_->nodes.useHeld(id, found, foundLine, myTopoConfig, myMutex);
}

bool ZNTopoCache::useHeldInterface(const ObjID& id, ZNRefPtr<ZNInterface>& found,
                                   const char* foundLine) {
  return shelves_->interfaces.useHeld(id, found, foundLine, myTopoConfig, myMutex);
}

void ZNTopoCache::removeNode(const ObjID& id) { removeWithAge(myMutex, shelves_->nodes, id); }

void ZNTopoCache::removeInterface(const ObjID& id) {
  removeWithAge(myMutex, shelves_->interfaces, id);
}

void ZNTopoCache::removeSubnet(const ObjID& id) { removeWithAge(myMutex, shelves_->subnets, id); }

void ZNTopoCache::removeAddress(const ObjID& id) {
  removeWithAge(myMutex, shelves_->addresses, id);
}

void ZNTopoCache::removeIfc(const ObjID& id) { removeFromWhole(myMutex, shelves_->ifcs, id); }

void ZNTopoCache::removeHSRP(const ObjID& id) { removeFromWhole(myMutex, shelves_->hsrps, id); }

// Under the lock, so that no one sees a flag and a map that do not belong together.

bool ZNTopoCache::isAllVlanInCache() const {
  MutexLockInternal lock(myMutex);
  return shelves_->vlans.isComplete();
}

bool ZNTopoCache::isAllIfcInCache() const {
  MutexLockInternal lock(myMutex);
  return shelves_->ifcs.isComplete();
}

bool ZNTopoCache::isAllHSRPInCache() const {
  MutexLockInternal lock(myMutex);
  return shelves_->hsrps.isComplete();
}

unsigned long ZNTopoCache::vlanLosses() const { return shelves_->vlans.losses(); }
unsigned long ZNTopoCache::ifcLosses() const { return shelves_->ifcs.losses(); }
unsigned long ZNTopoCache::hsrpLosses() const { return shelves_->hsrps.losses(); }

void ZNTopoCache::setAllVlanLoaded(unsigned long lossesBefore) {
  MutexLockInternal lock(myMutex);
  shelves_->vlans.setAllLoaded(lossesBefore);
}

void ZNTopoCache::setAllIfcLoaded(unsigned long lossesBefore) {
  MutexLockInternal lock(myMutex);
  shelves_->ifcs.setAllLoaded(lossesBefore);
}

void ZNTopoCache::setAllHSRPLoaded(unsigned long lossesBefore) {
  MutexLockInternal lock(myMutex);
  shelves_->hsrps.setAllLoaded(lossesBefore);
}

std::unique_ptr<std::list<ZNRefPtr<ZNVlan>>> ZNTopoCache::getAllVlans() const {
  MutexLockInternal lock(myMutex);
  return shelves_->vlans.isComplete() ? shelves_->vlans.all() : nullptr;
}

std::unique_ptr<std::list<ZNRefPtr<ZNIfc>>> ZNTopoCache::getAllIfcs() const {
  MutexLockInternal lock(myMutex);
  return shelves_->ifcs.isComplete() ? shelves_->ifcs.all() : nullptr;
}

std::unique_ptr<std::list<ZNRefPtr<ZNHSRP>>> ZNTopoCache::getAllHSRPs() const {
  MutexLockInternal lock(myMutex);
  return shelves_->hsrps.isComplete() ? shelves_->hsrps.all() : nullptr;
}

ZNTopoCache::NodeIDMapType ZNTopoCache::getNodeIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->nodes.byID();
}

ZNTopoCache::NodeQRMIDMapType ZNTopoCache::getNodeQRMIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->nodes.byLegacyID();
}

ZNTopoCache::AddressIDMapType ZNTopoCache::getAddressIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->addresses.byID();
}

ZNTopoCache::AddressQRMIDMapType ZNTopoCache::getAddressQRMIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->addresses.byLegacyID();
}

ZNTopoCache::SubnetIDMapType ZNTopoCache::getSubnetIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->subnets.byID();
}

ZNTopoCache::SubnetQRMIDMapType ZNTopoCache::getSubnetQRMIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->subnets.byLegacyID();
}

ZNTopoCache::InterfaceIDMapType ZNTopoCache::getInterfaceIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->interfaces.byID();
}

ZNTopoCache::VlanObjIDMapType ZNTopoCache::getVlanObjIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->vlans.byID();
}

ZNTopoCache::IfcObjIDMapType ZNTopoCache::getIfcObjIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->ifcs.byID();
}

ZNTopoCache::HSRPObjIDMapType ZNTopoCache::getHSRPObjIDMap() const {
  MutexLockInternal lock(myMutex);
  return shelves_->hsrps.byID();
}

void ZNTopoCache::clear(bool lock) {
  detail::Shelves::Cleared cleared;  // dies after the lock
  std::optional<MutexLockInternal> held;
  if (lock) held.emplace(myMutex);
  cleared = shelves_->clear();
  myTimeStamp = 0;
  myModelStatus = ZNTopologyState::UNKNOWN;
}

void ZNTopoCache::setSize(int theNumOfNodes, int theNumOfAddresses, int theNumOfSubnets,
                          int theNumOfInterfaces, int theNumOfVlans, int theNumOfHSRPs,
                          int /*theNumOfIfcs*/) {
  for (const int size : {theNumOfNodes, theNumOfAddresses, theNumOfSubnets, theNumOfInterfaces,
                         theNumOfVlans, theNumOfHSRPs}) {
    if (size < 0) return;
  }
  Shelf<detail::NodeKind>::Leaving nodes;  // these die after the lock
  Shelf<detail::VlanKind>::Leaving vlans;
  Shelf<detail::AddressKind>::Leaving addresses;
  Shelf<detail::SubnetKind>::Leaving subnets;
  Shelf<detail::InterfaceKind>::Leaving interfaces;
  MutexLockInternal lock(myMutex);
  myTopoConfig.setNodeCacheSize(theNumOfNodes);
  myTopoConfig.setAddressCacheSize(theNumOfAddresses);
  myTopoConfig.setSubnetCacheSize(theNumOfSubnets);
  myTopoConfig.setInterfaceCacheSize(theNumOfInterfaces);
  myTopoConfig.setVlanCacheSize(theNumOfVlans);
  myTopoConfig.setHSRPCacheSize(theNumOfHSRPs);
  shrinkByAge(shelves_->nodes, theNumOfNodes, myTopoConfig, nodes);
  shrinkVlans(shelves_->vlans, theNumOfVlans, myTopoConfig, vlans);
  shrinkByAge(shelves_->addresses, theNumOfAddresses, myTopoConfig, addresses);
  shrinkByAge(shelves_->subnets, theNumOfSubnets, myTopoConfig, subnets);
  shrinkInterfaces(*shelves_, theNumOfInterfaces, myTopoConfig, interfaces);
}

bool ZNTopoCache::isAddressIDMapValid() const {
  bool isValid = true;
  MutexLockInternal lock(myMutex);
  for (const auto& [id, address] : shelves_->addresses.byID()) {
    if (!address.isNull()) continue;
    isValid = false;
    MCLog::log(MC_CRITICAL, "Topo cache is corrupt for AddressID entry: %s\n",
               id.getStrValue().c_str());
  }
  return isValid;
}

void ZNTopoCache::setTopoConfig(const ZNTopoConfig& config) { myTopoConfig = config; }

void ZNTopoCache::setTopoMode(int& mode) { myTopoMode = mode; }

int ZNTopoCache::getTopoMode() const { return myTopoMode; }

}  // namespace zntopo
