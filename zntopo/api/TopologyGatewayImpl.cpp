#include "zntopo/api/ZNTopoAPIDefaultFactory.h"
#include "zntopo/api/ZNTopoAPIImplFactory.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/StoreTime.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/model/TopologyGateway.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/detail/OwningStatusNotification.h"

namespace zntopo {

namespace {

/// What topology objects ask of the API. Implementations and facades are made for one call.
class TopologyGatewayImpl : public TopologyGateway {
 public:
  int getTopoMode(TopoDBType dbType) override {
    return ZNTopoAPI_Impl(dbType).getTopoCache()->getTopoMode();
  }

  ZNTopoAPIStatus setEntityStatus(TopoDBType dbType, const ObjID& id, int newStatus,
                                  long statusChangeTimeUTC, ZNEntity::EntityStatusType statusType,
                                  EntityType entityType) override {
    return ZNTopoAPI_Impl(dbType).setEntityStatus(
        id, newStatus, detail::storeTime(statusChangeTimeUTC), statusType, entityType);
  }

  ZNTopoAPIStatus setAddressState(TopoDBType dbType, const ObjID& id, int state) override {
    return ZNTopoAPI_Impl(dbType).setAddressState(id, state);
  }

  ZNTopoAPIStatus setNWNodeStatus(TopoDBType dbType, const ObjID& id, int newStatus,
                                  int statusType) override {
    return ZNTopoAPI_Impl(dbType).setNWNodeStatus(id, newStatus, statusType);
  }

  ZNTopoAPIStatus setNWInterfaceState(TopoDBType dbType, const ObjID& id, int newValue,
                                      int attributeType) override {
    return ZNTopoAPI_Impl(dbType).setNWInterfaceState(id, newValue, attributeType);
  }

  ZNTopoAPIStatus setHSRPAddressInfo(TopoDBType dbType, const ZNHSRPAddressInfo& info) override {
    return ZNTopoAPI_Impl(dbType).setHSRPAddressInfo(info);
  }

  ZNTopoAPIStatus setL2DomainIdOfNode(TopoDBType dbType, ZNNode& node, int& id) override {
    return ZNTopoAPI_Impl(dbType).setL2DomainIdOfNode(node, id);
  }

  ZNTopoAPIStatus setL2DomainIdOfInterface(TopoDBType dbType, ZNInterface& interface,
                                           int& id) override {
    return ZNTopoAPI_Impl(dbType).setL2DomainIdOfInterface(interface, id);
  }

  ZNTopoAPIStatus setNWIfcAssocInfoState(const ObjID& leftIfcObjID, const ObjID& rightIfcObjID,
                                         int assocType, int state) override {
    ZNTopoAPIStatus status;
    const auto impl = ZNTopoAPIImplFactory().getImplInstance(status, ActiveDB);
    if (impl.isNull()) return status;
    return impl->setNWIfcAssocInfoState(leftIfcObjID, rightIfcObjID, assocType, state);
  }

  ZNTopoAPIStatus ensureNotificationClient() override {
    auto* const factory = TopoNotificationClientFactory::instance();
    if (factory == nullptr) return noClient();
    ZNTopoAPIStatus status;
    if (factory->getNotificationClient().isNull()) factory->createNotificationClient("", status);
    return status;
  }

  ZNTopoAPIStatus sendStatusNotification(const StatusChange& change) override {
    return send(new detail::OwningStatusNotification(
        change.entityType, change.objID, change.newStatus, change.previousStatus,
        detail::storeTime(change.statusChangeTimeUTC), change.statusType));
  }

  ZNTopoAPIStatus sendAttributeNotification(const AttributeChange& change) override {
    return send(new TopologyAttrChangeNotification(
        change.entityType, AttributeChangeNotif, change.objID,
        static_cast<TopologyAttributeType>(change.attribute), E_Integer, change.value, "",
        change.hsrpOrIfcObjID, change.assocType));
  }

  std::unique_ptr<AddressVector> getAddrsByObjIDs(const std::list<ObjID>& ids,
                                                  ZNTopoAPIStatus& status) override {
    return ZNTopoAPI().getAddrsByObjIDs(ids, status, false, ZNAddress::IPv4);
  }

  ZNRefPtr<ZNAddress> getAddressByObjID(TopoDBType dbType, const ObjID& id,
                                        ZNTopoAPIStatus& status) override {
    return ZNTopoAPI(dbType).getAddressByObjID(id, status);
  }

  ZNRefPtr<ZNAddress> getAddressByIP(const std::string& ip, ZNTopoAPIStatus& status,
                                     int routeDistinguisher) override {
    const auto api = ZNTopoAPIDefaultFactory().getRDInstance(status, ActiveDB);
    return api.isNull() ? ZNRefPtr<ZNAddress>()
                        : api->getAddressByIP(ip, status, routeDistinguisher);
  }

  ZNRefPtr<ZNNode> getNodeByObjID(TopoDBType dbType, const ObjID& id,
                                  ZNTopoAPIStatus& status) override {
    return ZNTopoAPI(dbType).getNodeByObjID(id, status);
  }

  ZNRefPtr<ZNInterface> getInterfaceByObjID(TopoDBType dbType, const ObjID& id,
                                            ZNTopoAPIStatus& status) override {
    return ZNTopoAPI(dbType).getInterfaceByObjID(id, status);
  }

  std::unique_ptr<InterfaceList> getInterfacesByObjIDList(const std::set<ObjID>& ids,
                                                          std::set<ObjID>& notFound,
                                                          ZNTopoAPIStatus& status) override {
    return ZNTopoAPI().getInterfacesByObjIDList(ids, notFound, status, false, false);
  }

  std::unique_ptr<InterfaceList> getInterfacesByNodeObjIDList(TopoDBType dbType,
                                                              const std::list<ObjID>& nodeIDs,
                                                              ZNTopoAPIStatus& status) override {
    return ZNTopoAPI_Impl(dbType).getInterfacesByNodeObjIDList(nodeIDs, status);
  }

  std::unique_ptr<IfcInfoMap> getIfcInfosByObjIDList(const std::set<ObjID>& nodeIDs,
                                                     ZNTopoAPIStatus& status,
                                                     int ifcType) override {
    return ZNTopoAPI().getIfcInfosByObjIDList(nodeIDs, status, true, false, ifcType);
  }

  std::unique_ptr<std::list<ObjID>> getHSRPObjIDsByIFAddressObjID(
      TopoDBType dbType, const ObjID& id, HSRPObjType objType, ZNTopoAPIStatus& status) override {
    return ZNTopoAPI(dbType).getHSRPObjIDsByIFAddressObjID(
        id, static_cast<ZNTopoAPI::GetHSRPObjIDsByIFAddressObjID_ObjType>(int{objType}), status);
  }

 private:
  static ZNTopoAPIStatus noClient() {
    ZNTopoAPIStatus status;
    detail::setFailure(status, ZN_API_INTERNAL_ERROR, "There is no notification client");
    return status;
  }

  static ZNTopoAPIStatus send(const ZNRefPtr<TopologyNotification>& notification) {
    auto* const factory = TopoNotificationClientFactory::instance();
    if (factory == nullptr) return noClient();
    const auto client = factory->getNotificationClient();
    return client.isNull() ? noClient() : client->sendNotification(notification);
  }
};

}  // namespace

TopologyGateway& topologyGateway() {
  static TopologyGateway* const theGateway = new TopologyGatewayImpl();
  return *theGateway;
}

}  // namespace zntopo
