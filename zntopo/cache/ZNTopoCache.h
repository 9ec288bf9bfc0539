#pragma once

#include <atomic>
#include <list>
#include <map>
#include <memory>

#include "zntopo/cache/ZNTopoConfig.h"
#include "zntopo/cache/ZNTopologyState.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNMutex.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

class ZNAddress;
class ZNHSRP;
class ZNIfc;
class ZNInterface;
class ZNNode;
class ZNSubnet;
class ZNVlan;

namespace detail {
struct Shelves;
}  // namespace detail

/// The bounded, process-wide store of topology objects that were built from the relational store.
///
/// It holds handles: an object that leaves it lives on for as long as a caller holds one. An
/// object that is in it is never replaced by a newer copy. The objects of a kind are found by
/// their topology identifier, and those that have one by their legacy identifier too. Nothing
/// here is reported to the caller; what was refused shows in the log.
///
/// Identifiers of another kind than those that a map holds are not found, not stored and erase
/// nothing; the null identifier is never stored.
///
/// Every operation may be called by several threads at once. The objects themselves are shared.
/// The cache's lock comes before those of the pool, of the log and of handles, and validate()
/// holds it across its read of the store. What leaves the cache is let go after the lock,
/// except in clear(false).
class ZNTOPO_EXPORT ZNTopoCache {
 public:
  enum ZNCacheStatus : int {
    ZN_CACHE_RESET = 0,  ///< the model was rebuilt, the cache is empty
    ZN_CACHE_VALID = 1,  ///< the contents belong to the model in the store
    ZN_DB_NOT_READY = 2  ///< the store can't be read or its model is not ready
  };

  using NodeIDMapType = std::map<ObjID, ZNRefPtr<ZNNode>>;
  using NodeQRMIDMapType = std::map<long, ZNRefPtr<ZNNode>>;
  using AddressIDMapType = std::map<ObjID, ZNRefPtr<ZNAddress>>;
  using AddressQRMIDMapType = std::map<long, ZNRefPtr<ZNAddress>>;
  using SubnetIDMapType = std::map<ObjID, ZNRefPtr<ZNSubnet>>;
  using SubnetQRMIDMapType = std::map<long, ZNRefPtr<ZNSubnet>>;
  using InterfaceIDMapType = std::map<ObjID, ZNRefPtr<ZNInterface>>;
  using VlanObjIDMapType = std::map<ObjID, ZNRefPtr<ZNVlan>>;
  using IfcObjIDMapType = std::map<ObjID, ZNRefPtr<ZNIfc>>;
  using HSRPObjIDMapType = std::map<ObjID, ZNRefPtr<ZNHSRP>>;

  /// An empty cache with the default configuration, which has seen no store yet.
  ZNTopoCache();
  ~ZNTopoCache();
  ZNTopoCache(const ZNTopoCache&) = delete;
  ZNTopoCache& operator=(const ZNTopoCache&) = delete;

  /// @name Lookups
  /// Assign the handle on a hit and leave it as it is otherwise; true only for a handle that is
  /// not null. A lookup does not count as a use. The legacy identifiers are taken as numbers
  /// (ObjID::getLongValue()), but for interfaces.
  /// @{
  bool inNodeIDCache(const ObjID& id, ZNRefPtr<ZNNode>& found) const;
  bool inNodeQRMIDCache(const ObjID& id, ZNRefPtr<ZNNode>& found) const;
  bool inAddressIDCache(const ObjID& id, ZNRefPtr<ZNAddress>& found) const;
  bool inAddressQRMIDCache(const ObjID& id, ZNRefPtr<ZNAddress>& found) const;
  bool inSubnetIDCache(const ObjID& id, ZNRefPtr<ZNSubnet>& found) const;
  bool inSubnetQRMIDCache(const ObjID& id, ZNRefPtr<ZNSubnet>& found) const;
  bool inInterfaceIDCache(const ObjID& id, ZNRefPtr<ZNInterface>& found) const;
  bool inInterfaceQRMIDCache(const ObjID& id, ZNRefPtr<ZNInterface>& found) const;
  bool inVlanObjIDCache(const ObjID& id, ZNRefPtr<ZNVlan>& found) const;
  bool inIfcObjIDCache(const ObjID& id, ZNRefPtr<ZNIfc>& found) const;
  bool inHSRPObjIDCache(const ObjID& id, ZNRefPtr<ZNHSRP>& found) const;
  /// @}

  /// @name Uses
  /// Store an object unless one with its identifier is there, and let at most one other go when
  /// the kind is over its size.
  /// @{
  void useNode(const ZNRefPtr<ZNNode>& node);
  void useInterface(const ZNRefPtr<ZNInterface>& interface);
  void useAddress(const ZNRefPtr<ZNAddress>& address);
  void useSubnet(const ZNRefPtr<ZNSubnet>& subnet);
  void useVlan(const ZNRefPtr<ZNVlan>& vlan);
  void useIfc(const ZNRefPtr<ZNIfc>& ifc);
  void useHSRP(const ZNRefPtr<ZNHSRP>& hsrp);
  /// @}

  /// @name Look-ups that count as a use
  /// What a look-up and, on a hit, the use of what it found do, under one lock. In between, the
  /// line is logged at MC_INFO; "%s" in it stands for the identifier.
  /// @{
  bool useHeldNode(const ObjID& id, ZNRefPtr<ZNNode>& found, const char* foundLine);
  bool useHeldInterface(const ObjID& id, ZNRefPtr<ZNInterface>& found, const char* foundLine);
  /// @}

  /// @name Removals
  /// An unknown identifier is no error. Containers and HSRP groups are no longer all loaded then.
  /// @{
  void removeNode(const ObjID& id);
  void removeInterface(const ObjID& id);
  void removeSubnet(const ObjID& id);
  void removeAddress(const ObjID& id);
  void removeIfc(const ObjID& id);
  void removeHSRP(const ObjID& id);
  /// @}

  /// @name Whole kinds
  /// True if all objects of the kind in the store were loaded and none has left since.
  /// @{
  bool isAllVlanInCache() const;
  bool isAllIfcInCache() const;
  bool isAllHSRPInCache() const;
  /// @}

  /// Empties the cache, containers excepted, and forgets what it knew of the store's state.
  /// @param lock false if the caller holds the cache's lock.
  void clear(bool lock);

  /// Sets the sizes of six kinds; nothing at all if one of the six is negative. With first-in
  /// first-out swapping nodes, VLANs, addresses and subnets shrink at once, otherwise a use each.
  /// @param theNumOfIfcs ignored: the size for containers is set through the configuration.
  void setSize(int theNumOfNodes, int theNumOfAddresses, int theNumOfSubnets,
               int theNumOfInterfaces, int theNumOfVlans, int theNumOfHSRPs, int theNumOfIfcs);

  /// False if an entry of the address map holds a null handle; each is logged.
  bool isAddressIDMapValid() const;

  /// Replaces the configuration. Lower sizes take effect a use each.
  void setTopoConfig(const ZNTopoConfig& config);
  /// The live record, for as long as the cache lives.
  ZNTopoConfig& getTopoConfig() { return myTopoConfig; }
  const ZNTopoConfig& getTopoConfig() const { return myTopoConfig; }

  void setTopoMode(int& mode);
  /// 0, the only mode in which states may be set.
  int getTopoMode() const;

  /// Tells whether the contents may be trusted, and empties the cache if not.
  ///
  /// The state row is read if the model was not ready, or if 30 seconds or more have passed since
  /// the call before this one; every call starts the 30 seconds again.
  /// @param status what the read of the state row gave, left as it is without one.
  ZNCacheStatus validate(ZNTopoAPIStatus& status);
  /// True if the store's model was ready when validate() last read it. Reads no store.
  bool isModelReady() const;
  /// The store's TOPOLOGYREADYCHANGETIME that the contents belong to, seconds; 0 if unknown.
  long getTimeStamp() const;

  /// Reads the state row; takes no lock of the cache. An empty or half-filled row is no error:
  /// it gives UNKNOWN.
  ZNTopologyState getTopologyState(ZNTopoAPIStatus& status);
  /// Reads the columns TopologyReadyChangeTime and TopologyReady of the state row; both 0 on a
  /// failure. What the store complains of goes to standard error.
  void getModelReadiness(long& timeStamp, int& status, ZNTopoAPIStatus& apiStatus);

 private:
  friend class ZNTopoAPI_Impl;
  friend class ZNTopoCachePeer;  // of the tests

  using Clock = long (*)();

  // For the retrieval operations, which load whole tables.

  /// What a load of a whole kind notes before it reads the store: how often objects of the kind
  /// were lost other than by an eviction.
  unsigned long vlanLosses() const;
  unsigned long ifcLosses() const;
  unsigned long hsrpLosses() const;
  /// The kind was read as a whole and used. It does not count as loaded if something was lost
  /// since then: another thread may have cleared the cache in the midst of it.
  void setAllVlanLoaded(unsigned long lossesBefore);
  void setAllIfcLoaded(unsigned long lossesBefore);
  void setAllHSRPLoaded(unsigned long lossesBefore);
  /// All objects of a kind, in the order of their identifiers; null unless they are all there.
  std::unique_ptr<std::list<ZNRefPtr<ZNVlan>>> getAllVlans() const;
  std::unique_ptr<std::list<ZNRefPtr<ZNIfc>>> getAllIfcs() const;
  std::unique_ptr<std::list<ZNRefPtr<ZNHSRP>>> getAllHSRPs() const;

  // Copies of the maps.
  NodeIDMapType getNodeIDMap() const;
  NodeQRMIDMapType getNodeQRMIDMap() const;
  AddressIDMapType getAddressIDMap() const;
  AddressQRMIDMapType getAddressQRMIDMap() const;
  SubnetIDMapType getSubnetIDMap() const;
  SubnetQRMIDMapType getSubnetQRMIDMap() const;
  InterfaceIDMapType getInterfaceIDMap() const;
  VlanObjIDMapType getVlanObjIDMap() const;
  IfcObjIDMapType getIfcObjIDMap() const;
  HSRPObjIDMapType getHSRPObjIDMap() const;

  static const int readinessCheckInterval;

  // Read without the lock.
  std::atomic<long> myTimeStamp{0};
  std::atomic<ZNTopologyState::TopoState> myModelStatus{ZNTopologyState::UNKNOWN};
  std::atomic<int> myTopoMode{0};
  ZNTopoConfig myTopoConfig;

  // Guarded by myMutex.
  mutable ZNMutex myMutex;
  std::unique_ptr<detail::Shelves> shelves_;
  long lastReadinessCheckTime = 0;
  Clock now_;
};

}  // namespace zntopo
