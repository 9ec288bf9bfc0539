#pragma once

#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/ZNIfcInfo.h"

namespace zntopo {

class ZNHSRPAddressInfo;
class ZNInterface;
class ZNNode;

/// All that a topology object may ask of the floors above it: the store's readiness, writes of
/// states, events, and the objects that it does not hold.
///
/// The library's programming interface defines topologyGateway() when the library is linked, so
/// nothing is registered. An operation says which door it goes through: "implementation" is a
/// fresh implementation for the table set given, "facade" a fresh facade with one, "shared" the
/// instance that a factory keeps. They differ in what they look at before they work.
///
/// Operations are called by several threads at once, some with the calling object's mutex held.
class TopologyGateway {
 public:
  /// How an HSRP group is asked for; the numbers of the facade's own enumeration.
  enum HSRPObjType : int { HSRP_Address = 0, HSRP_Interface = 1 };

  using AddressVector = std::vector<ZNRefPtr<ZNAddress>>;
  using InterfaceList = std::list<ZNRefPtr<ZNInterface>>;
  using IfcInfoMap = std::map<ObjID, ZNRefPtr<std::list<ZNIfcInfo>>>;

  /// A change of a status, as the event tells it.
  struct StatusChange {
    EntityType entityType;
    ObjID objID;
    ObjectStatus newStatus;
    ObjectStatus previousStatus;
    long statusChangeTimeUTC;
    ZNEntity::EntityStatusType statusType;
  };

  /// A change of an attribute to a number, as the event tells it.
  struct AttributeChange {
    EntityType entityType;
    ObjID objID;
    /// A TopologyAttributeType, or 7 for the state of an association of containers.
    int attribute;
    int value;
    ObjID hsrpOrIfcObjID;
    int assocType;
  };

  virtual ~TopologyGateway() = default;

  // Readiness.

  /// The topology mode of the cache, through an implementation; 0 is ready.
  virtual int getTopoMode(TopoDBType dbType) = 0;

  // Writes to the store: through an implementation for the object's table set.

  virtual ZNTopoAPIStatus setEntityStatus(TopoDBType dbType, const ObjID& id, int newStatus,
                                          long statusChangeTimeUTC,
                                          ZNEntity::EntityStatusType statusType,
                                          EntityType entityType) = 0;
  virtual ZNTopoAPIStatus setAddressState(TopoDBType dbType, const ObjID& id, int state) = 0;
  virtual ZNTopoAPIStatus setNWNodeStatus(TopoDBType dbType, const ObjID& id, int newStatus,
                                          int statusType) = 0;
  virtual ZNTopoAPIStatus setNWInterfaceState(TopoDBType dbType, const ObjID& id, int newValue,
                                              int attributeType) = 0;
  virtual ZNTopoAPIStatus setHSRPAddressInfo(TopoDBType dbType, const ZNHSRPAddressInfo& info) = 0;
  virtual ZNTopoAPIStatus setL2DomainIdOfNode(TopoDBType dbType, ZNNode& node, int& id) = 0;
  virtual ZNTopoAPIStatus setL2DomainIdOfInterface(TopoDBType dbType, ZNInterface& interface,
                                                   int& id) = 0;
  /// Through the implementation that the factory shares for the active tables; its status when
  /// there is none.
  virtual ZNTopoAPIStatus setNWIfcAssocInfoState(const ObjID& leftIfcObjID,
                                                 const ObjID& rightIfcObjID, int assocType,
                                                 int state) = 0;

  // Events.

  /// Sees to it that there is a notification client: if the factory holds none, makes one with an
  /// empty source name. The status of that.
  virtual ZNTopoAPIStatus ensureNotificationClient() = 0;
  /// Send an event through the client that ensureNotificationClient() saw to.
  virtual ZNTopoAPIStatus sendStatusNotification(const StatusChange& change) = 0;
  virtual ZNTopoAPIStatus sendAttributeNotification(const AttributeChange& change) = 0;

  // Reads. All report through the status and give what they had; an owner may be empty.

  /// Facade on the active tables, with getAllAddresses false and the type IPv4.
  virtual std::unique_ptr<AddressVector> getAddrsByObjIDs(const std::list<ObjID>& ids,
                                                          ZNTopoAPIStatus& status) = 0;
  /// Facade.
  virtual ZNRefPtr<ZNAddress> getAddressByObjID(TopoDBType dbType, const ObjID& id,
                                                ZNTopoAPIStatus& status) = 0;
  /// The facade that the default factory shares for the active tables; its status when there is
  /// none.
  virtual ZNRefPtr<ZNAddress> getAddressByIP(const std::string& ip, ZNTopoAPIStatus& status,
                                             int routeDistinguisher) = 0;
  /// Facade.
  virtual ZNRefPtr<ZNNode> getNodeByObjID(TopoDBType dbType, const ObjID& id,
                                          ZNTopoAPIStatus& status) = 0;
  /// Facade.
  virtual ZNRefPtr<ZNInterface> getInterfaceByObjID(TopoDBType dbType, const ObjID& id,
                                                    ZNTopoAPIStatus& status) = 0;
  /// Facade on the active tables, with isQRMID and getAllConnectedInterfaces false.
  virtual std::unique_ptr<InterfaceList> getInterfacesByObjIDList(const std::set<ObjID>& ids,
                                                                  std::set<ObjID>& notFound,
                                                                  ZNTopoAPIStatus& status) = 0;
  /// Implementation.
  virtual std::unique_ptr<InterfaceList> getInterfacesByNodeObjIDList(
      TopoDBType dbType, const std::list<ObjID>& nodeIDs, ZNTopoAPIStatus& status) = 0;
  /// Facade on the active tables, with useNodeAsKey true and getAll false.
  virtual std::unique_ptr<IfcInfoMap> getIfcInfosByObjIDList(const std::set<ObjID>& nodeIDs,
                                                             ZNTopoAPIStatus& status,
                                                             int ifcType) = 0;
  /// Facade.
  virtual std::unique_ptr<std::list<ObjID>> getHSRPObjIDsByIFAddressObjID(
      TopoDBType dbType, const ObjID& id, HSRPObjType objType, ZNTopoAPIStatus& status) = 0;
};

/// The one gateway of the process, never destroyed. Defined where the programming interface is.
TopologyGateway& topologyGateway();

}  // namespace zntopo
