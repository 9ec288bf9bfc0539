#include "tests/support/StoreUpdates.h"

namespace zntopo::test {
namespace {

constexpr const char* kRightEnd = "right";
constexpr int kRelation = 3;
constexpr int kTime = 123456;

template <int attributeType>
ZNTopoAPIStatus interfaceState(ZNTopoAPI_Impl& impl, const ObjID& id) {
  return impl.setNWInterfaceState(id, 2, attributeType);
}

template <int statType>
ZNTopoAPIStatus nodeStatus(ZNTopoAPI_Impl& impl, const ObjID& id) {
  return impl.setNWNodeStatus(id, 5, statType);
}

template <ZNEntity::EntityStatusType statType, EntityType entType>
ZNTopoAPIStatus entityStatus(ZNTopoAPI_Impl& impl, const ObjID& id) {
  return impl.setEntityStatus(id, 6, kTime, statType, entType);
}

ZNTopoAPIStatus hsrpAddress(ZNTopoAPI_Impl& impl, const ObjID& id) {
  return impl.setHSRPAddressInfo(
      ZNHSRPAddressInfo(1, ObjID("interface"), id, 110, ZNHSRPAddressInfo::Active, "", 70));
}

ZNTopoAPIStatus nodeDomain(ZNTopoAPI_Impl& impl, const ObjID& id) {
  ZNNode node;
  node.setObjID(id);
  int domain = 12;
  return impl.setL2DomainIdOfNode(node, domain);
}

ZNTopoAPIStatus interfaceDomain(ZNTopoAPI_Impl& impl, const ObjID& id) {
  ZNInterface interface;
  interface.setObjID(id);
  int domain = 13;
  return impl.setL2DomainIdOfInterface(interface, domain);
}

constexpr StoreUpdate kUpdates[] = {
    {"setHSRPAddressInfo", "hsrpaddress", "AddressID", "state", 6, hsrpAddress},
    {"setHSRPAddressInfo", "hsrpaddress", "AddressID", "HSRPStateCertainty", 70, hsrpAddress},
    {"setHSRPAddressInfo", "hsrpaddress", "AddressID", "HSRPPriority", 110, hsrpAddress},
    {"setNWInterfaceState", "nwinterface", "ObjId", "IfAdminState", 2, interfaceState<0>},
    {"setNWInterfaceState", "nwinterface", "ObjId", "IfOperStatus", 2, interfaceState<1>},
    {"setAddressState", "address", "AddressId", "PingState", 1,
     [](ZNTopoAPI_Impl& impl, const ObjID& id) { return impl.setAddressState(id, 1); }},
    {"setNWNodeStatus", "nwnode", "ObjId", "V6CompoundStatus", 5, nodeStatus<0>},
    {"setNWNodeStatus", "nwnode", "ObjId", "V6SiteStatus", 5, nodeStatus<1>},
    {"setNWNodeStatus", "nwnode", "ObjId", "V6SiteStatus", 5, nodeStatus<2>},
    {"setNWNodeStatus", "nwnode", "ObjId", "V6GlobalStatus", 5, nodeStatus<3>},
    {"setNWNodeStatus", "nwnode", "ObjId", "Status", 5, nodeStatus<4>},
    {"setNWNodeStatus", "nwnode", "ObjId", "Status", 5, nodeStatus<5>},
    {"setNWNodeStatus", "nwnode", "ObjId", "SNMPState", 5, nodeStatus<6>},
    {"setEntityStatus", "nwnode", "ObjId", "V6CompoundStatus", 6,
     entityStatus<ZNEntity::IPv6Overall, E_Node>},
    {"setEntityStatus", "nwnode", "ObjId", "V6SiteStatus", 6,
     entityStatus<ZNEntity::IPv6LinkLocal, E_Node>},
    {"setEntityStatus", "nwnode", "ObjId", "V6SiteStatus", 6,
     entityStatus<ZNEntity::IPv6SiteLocal, E_Node>},
    {"setEntityStatus", "nwnode", "ObjId", "V6GlobalStatus", 6,
     entityStatus<ZNEntity::IPv6Global, E_Node>},
    {"setEntityStatus", "nwnode", "ObjId", "Status", 6,
     entityStatus<ZNEntity::IPv4Overall, E_Node>},
    {"setEntityStatus", "nwnode", "ObjId", "Status", 6, entityStatus<ZNEntity::Overall, E_Node>},
    {"setEntityStatus", "nwnode", "ObjId", "StatusChangeTimeUTC", kTime,
     entityStatus<ZNEntity::Overall, E_Node>},
    {"setEntityStatus", "nwinterface", "ObjId", "Status", 6,
     entityStatus<ZNEntity::Overall, E_Interface>},
    {"setEntityStatus", "nwifc", "ObjId", "Status", 6, entityStatus<ZNEntity::Overall, E_IfC>},
    {"setEntityStatus", "nwentity", "ObjId", "Status", 6,
     entityStatus<ZNEntity::Overall, E_Subnet>},
    {"setEntityStatus", "nwentity", "ObjId", "Status", 6, entityStatus<ZNEntity::Overall, E_Vlan>},
    {"setEntityStatus", "nwentity", "ObjId", "Status", 6, entityStatus<ZNEntity::Overall, E_HSRP>},
    {"setL2DomainIdOfNode", "nwnode", "ObjId", "L2DomainId", 12, nodeDomain},
    {"setL2DomainIdOfInterface", "nwinterface", "ObjId", "L2DomainId", 13, interfaceDomain},
    {"setNWIfcAssocInfoState", "nwifcasc", "LeftIFContainerObjID", "State", 4,
     [](ZNTopoAPI_Impl& impl, const ObjID& id) {
       return impl.setNWIfcAssocInfoState(id, ObjID(kRightEnd), kRelation, 4);
     }},
};

}  // namespace

std::string StoreUpdate::name() const {
  return std::string(member) + " of " + table + "." + column;
}

std::string StoreUpdate::written(TestStore& store, const std::string& id, TopoDBType set) const {
  const std::string inSet = std::string(table) + (set == WorkingDB ? "_update" : "");
  const std::string sql = std::string("select ") + column + " from " + inSet + " where " + key +
                          " = " + Value(id).literal();
  return store.value(sql).value_or("NULL");
}

std::span<const StoreUpdate> storeUpdates() { return kUpdates; }

void addUpdated(TestStore& store, const std::string& id, TopoDBType set) {
  const TableSet tables(set);
  for (const std::string& table :
       {tables.nwentityTbl_, tables.nwnodeTbl_, tables.nwinterfaceTbl_, tables.nwifcTbl_}) {
    store.insert(table, {{"ObjId", id}});
  }
  store.insert(tables.addressTbl_, {{"AddressId", id}});
  store.insert(tables.hsrpaddressTbl_, {{"ObjID", "group"}, {"AddressID", id}});
  store.insert(
      tables.nwifcascTbl_,
      {{"LeftIFContainerObjID", id}, {"RightIFContainerObjID", kRightEnd}, {"RelType", kRelation}});
}

}  // namespace zntopo::test
