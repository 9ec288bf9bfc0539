#include "zntopo/api/ZNTopoAPI.h"

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/CommandTrail.h"
#include "zntopo/core/LogFunction.h"
#include "zntopo/core/ltos.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo {

namespace {

constexpr const char* kVersion = "300";

/// Leaves the trail of a request by identifiers; of one for everything where that has a name.
void logRequest(bool everything, const char* nameOfAll, const char* name,
                const std::set<ObjID>& identifiers) {
  if (!everything) {
    detail::commandLog(name, identifiers);
  } else if (nameOfAll) {
    detail::commandLog(nameOfAll);
  }
}

}  // namespace

ZNTopoAPI::ZNTopoAPI() : ZNTopoAPI(nullptr, ActiveDB) {}

ZNTopoAPI::ZNTopoAPI(TopoDBType theDBType) : ZNTopoAPI(nullptr, theDBType) {}

ZNTopoAPI::ZNTopoAPI(ZNTopoAPI_Impl* theImpl, TopoDBType theDBType)
    : _impl(theImpl ? theImpl : new ZNTopoAPI_Impl(theDBType)) {}

ZNTopoAPI::~ZNTopoAPI() { delete _impl; }

// ---- operations with a behaviour of their own ----

void ZNTopoAPI::setTopoConfiguration(const ZNTopoConfig& theConfig) {
  ZNTopoAPI_Impl::cache()->setTopoConfig(theConfig);
}

ZNTopoConfig& ZNTopoAPI::getTopoConfiguration() { return ZNTopoAPI_Impl::cache()->getTopoConfig(); }

void ZNTopoAPI::setCacheSize(int theNumOfNodes, int theNumOfInterfaces, int theNumOfAddresses,
                             int theNumOfSubnets, int theNumOfVlans, int theNumOfHSRPs,
                             int theNumOfIfcs) {
  const LogFunction log("setCacheSize");
  // The cache takes the sizes in another order.
  ZNTopoAPI_Impl::cache()->setSize(theNumOfNodes, theNumOfAddresses, theNumOfSubnets,
                                   theNumOfInterfaces, theNumOfVlans, theNumOfHSRPs, theNumOfIfcs);
}

void ZNTopoAPI::release() { ZNTopoAPI_Impl::release(); }

std::string ZNTopoAPI::getTopoAPIVersion() const { return kVersion; }

std::string ZNTopoAPI::getTopoSchemaVersion() const { return kVersion; }

ZNTopoStatus ZNTopoAPI::refreshTopology(ZNTopoAPIStatus& theStatus) {
  return _impl->refreshTopology(theStatus);
}

ZNTopoAPIStatus ZNTopoAPI::preLoadTopoCache(bool loadSwitchNode, bool loadRouterNode, bool loadVlan,
                                            bool loadHSRP, bool loadConnectedInterfaces) {
  return _impl->preLoadTopoCache(loadSwitchNode, loadRouterNode, loadVlan, loadHSRP,
                                 loadConnectedInterfaces, false);
}

ZNRefPtr<ZNNode> ZNTopoAPI::getNodeByMmgtAddr(const std::string& /*theIP*/, int /*theRD*/,
                                              ZNTopoAPIStatus& /*theStatus*/) {
  return {};
}

ZNRefPtr<ZNEntity> ZNTopoAPI::getEntityByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  // The order is that of likelihood.
  const ZNRefPtr<ZNNode> node = getNodeByObjID(theObjID, theStatus);
  if (theStatus.isOK()) return ZNRefPtrConversion::ZNNode2ZNEntity(node);
  const ZNRefPtr<ZNInterface> interface = getInterfaceByObjID(theObjID, theStatus);
  if (theStatus.isOK()) return ZNRefPtrConversion::ZNInterface2ZNEntity(interface);
  ObjIDSet notFound;
  const OwnedHSRPList groups = getHSRPsByObjIDList({theObjID}, notFound, theStatus, false, -1);
  if (theStatus.isOK() && groups && !groups->empty()) {
    return ZNRefPtrConversion::ZNHSRP2ZNEntity(groups->front());
  }
  const ZNRefPtr<ZNSubnet> subnet = getSubnetByObjID(theObjID, theStatus);
  if (theStatus.isOK()) return ZNRefPtrConversion::ZNSubnet2ZNEntity(subnet);
  const ZNRefPtr<ZNVlan> vlan = getVlanByObjID(theObjID, theStatus);
  if (theStatus.isOK()) return ZNRefPtrConversion::ZNVlan2ZNEntity(vlan);
  return {};
}

// ---- operations that the implementation carries out ----

ZNTopologyState ZNTopoAPI::getTopologyState(ZNTopoAPIStatus& theStatus) {
  return _impl->getTopologyState(theStatus);
}

bool ZNTopoAPI::isCacheValid() { return _impl->isCacheValid(); }

void ZNTopoAPI::clearCache() { _impl->clearCache(); }

void ZNTopoAPI::updateCacheObjectStatus(const ObjID& theObjID, bool isAddress,
                                        EntityType theEntityType, int tvwStatus,
                                        long statusChangeTimeUTC,
                                        ZNEntity::EntityStatusType entStatusType,
                                        ZNTopoAPIStatus& theStatus, bool isQRMID) {
  _impl->updateCacheObjectStatus(theObjID, isAddress, theEntityType, tvwStatus, statusChangeTimeUTC,
                                 entStatusType, theStatus, isQRMID);
}

ZNTopologyInfo ZNTopoAPI::getTopologyInfo(ZNTopoAPIStatus& theStatus) {
  detail::commandLog("getTopologyInfo");
  return _impl->getTopologyInfo(theStatus);
}

ZNTopoAPI::OwnedAuditTrailVector ZNTopoAPI::getAuditTrail(long actionStartTime, long actionEndTime,
                                                          ZNAuditAction::Type actionType,
                                                          ZNAuditTrail::ObjectType objType,
                                                          ZNTopoAPIStatus& theStatus) {
  return _impl->getAuditTrail(actionStartTime, actionEndTime, actionType, objType, theStatus);
}

ZNRefPtr<ZNNode> ZNTopoAPI::getNodeByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  return _impl->getNodeByObjID(theObjID, theStatus);
}

ZNRefPtr<ZNNode> ZNTopoAPI::getNodeByQRMObjID(const ObjID& theQRMObjID,
                                              ZNTopoAPIStatus& theStatus) {
  return _impl->getNodeByQRMObjID(theQRMObjID, theStatus);
}

ZNTopoAPI::OwnedNodeList ZNTopoAPI::getNodesByObjIDList(
    const ObjIDSet& theNodeIDs, ObjIDSet& theNotFoundIDs, ZNTopoAPIStatus& theStatus,
    bool toGetInterfaces, bool isQRMID, bool getAllNodes, ZNEntity::IPLevel ipLevel, int aRD) {
  logRequest(getAllNodes, nullptr, "getNodesByObjIDList", theNodeIDs);
  return _impl->getNodesByObjIDList(theNodeIDs, theNotFoundIDs, theStatus, toGetInterfaces, isQRMID,
                                    getAllNodes, ipLevel, aRD);
}

ZNRefPtr<ZNNode> ZNTopoAPI::getNodeByName(const std::string& theName, ZNTopoAPIStatus& theStatus,
                                          int theRD) {
  return _impl->getNodeByName(theName, theStatus, theRD);
}

ZNTopoAPI::OwnedNodeList ZNTopoAPI::getNodesByRXName(const std::string& theName,
                                                     ZNTopoAPIStatus& theStatus, int theRD) {
  return _impl->getNodesByRXName(theName, theStatus, theRD);
}

ZNRefPtr<ZNInterface> ZNTopoAPI::getInterfaceByObjID(const ObjID& theObjID,
                                                     ZNTopoAPIStatus& theStatus) {
  return _impl->getInterfaceByObjID(theObjID, theStatus);
}

ZNTopoAPI::OwnedInterfaceList ZNTopoAPI::getInterfacesByObjIDList(const ObjIDSet& theIFIDs,
                                                                  ObjIDSet& theNotFoundIDs,
                                                                  ZNTopoAPIStatus& theStatus,
                                                                  bool isQRMID,
                                                                  bool getAllConnectedInterfaces) {
  logRequest(getAllConnectedInterfaces, nullptr, "getInterfacesByObjIDList", theIFIDs);
  return _impl->getInterfacesByObjIDList(theIFIDs, theNotFoundIDs, theStatus, isQRMID,
                                         getAllConnectedInterfaces);
}

ZNRefPtr<ZNInterface> ZNTopoAPI::getInterfaceByIfName(const std::string& theName,
                                                      const std::string& theNodeName,
                                                      ZNTopoAPIStatus& theStatus) {
  return _impl->getInterfaceByIfName(theName, theNodeName, theStatus);
}

ZNRefPtr<ZNInterface> ZNTopoAPI::getInterfaceByIPV4(const std::string& theIP,
                                                    ZNTopoAPIStatus& theStatus, int theRD) {
  return _impl->getInterfaceByIPV4(theIP, theStatus, theRD);
}

ZNRefPtr<ZNAddress> ZNTopoAPI::getAddressByObjID(const ObjID& theObjID,
                                                 ZNTopoAPIStatus& theStatus) {
  return _impl->getAddressByObjID(theObjID, theStatus);
}

ZNTopoAPI::OwnedAddressVector ZNTopoAPI::getAddrsByObjIDs(const std::list<ObjID>& theAddrObjIDs,
                                                          ZNTopoAPIStatus& theStatus,
                                                          bool getAllAddresses,
                                                          ZNAddress::AddressType addrType) {
  return _impl->getAddrsByObjIDs(theAddrObjIDs, theStatus, getAllAddresses, addrType);
}

ZNRefPtr<ZNAddress> ZNTopoAPI::getAddressByQRMObjID(const ObjID& theQRMObjID,
                                                    ZNTopoAPIStatus& theStatus) {
  return _impl->getAddressByQRMObjID(theQRMObjID, theStatus);
}

ZNRefPtr<MonitoredInetAddressIPv6> ZNTopoAPI::getMonitoredIPv6AddressByObjID(
    const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  return _impl->getMonitoredIPv6AddressByObjID(theObjID, theStatus);
}

ZNRefPtr<MonitoredInetAddressIPv6> ZNTopoAPI::getMonitoredIPv6AddressByQRMObjID(
    const ObjID& theQRMObjID, ZNTopoAPIStatus& theStatus) {
  return _impl->getMonitoredIPv6AddressByQRMObjID(theQRMObjID, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getInetAddressIPv6IDsFromDNSExpression(
    const std::string& theExpression, ZNTopoAPIStatus& theStatus) {
  return _impl->getInetAddressIPv6IDsFromDNSExpression(theExpression, theStatus);
}

std::unique_ptr<std::list<std::string>> ZNTopoAPI::resolveIPv6ToDNS(const ObjID& theObjID,
                                                                    ZNTopoAPIStatus& theStatus) {
  return _impl->resolveIPv6ToDNS(theObjID, theStatus);
}

ZNRefPtr<ZNAddress> ZNTopoAPI::getAddressByIP(const std::string& theIP, ZNTopoAPIStatus& theStatus,
                                              int theRD) {
  return _impl->getAddressByIP(theIP, theStatus, theRD);
}

ZNRefPtr<ZNSubnet> ZNTopoAPI::getSubnetByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  return _impl->getSubnetByObjID(theObjID, theStatus);
}

ZNTopoAPI::OwnedSubnetList ZNTopoAPI::getSubnetsByObjIDList(const ObjIDSet& theSubnetIDs,
                                                            ZNTopoAPIStatus& theStatus,
                                                            bool isQRMID, bool getAllSubnets,
                                                            ZNEntity::IPLevel ipLevel, int aRD) {
  return _impl->getSubnetsByObjIDList(theSubnetIDs, theStatus, isQRMID, getAllSubnets, ipLevel,
                                      aRD);
}

ZNRefPtr<ZNSubnet> ZNTopoAPI::getSubnetByQRMObjID(const ObjID& theQRMObjID,
                                                  ZNTopoAPIStatus& theStatus) {
  return _impl->getSubnetByQRMObjID(theQRMObjID, theStatus);
}

ZNRefPtr<ZNVlan> ZNTopoAPI::getVlanByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  return _impl->getVlanByObjID(theObjID, theStatus);
}

ZNTopoAPI::OwnedVlanList ZNTopoAPI::getVlansByObjIDList(const ObjIDSet& theObjIDs,
                                                        ObjIDSet& theNotFoundIDs,
                                                        ZNTopoAPIStatus& theStatus,
                                                        bool getAllVlans, int aRD) {
  logRequest(getAllVlans, "getAllVlans", "getVlansByObjIDList", theObjIDs);
  return _impl->getVlansByObjIDList(theObjIDs, theNotFoundIDs, theStatus, getAllVlans, aRD);
}

ZNRefPtr<ZNIfc> ZNTopoAPI::getIfcByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  return _impl->getIfcByObjID(theObjID, theStatus);
}

ZNTopoAPI::OwnedIfcList ZNTopoAPI::getIfcsByObjIDList(const ObjIDSet& theObjIDs,
                                                      ObjIDSet& theNotFoundIDs,
                                                      ZNTopoAPIStatus& theStatus, bool getAll,
                                                      int aRD) {
  logRequest(getAll, nullptr, "getIfcsByObjIDList", theObjIDs);
  return _impl->getIfcsByObjIDList(theObjIDs, theNotFoundIDs, theStatus, getAll, aRD);
}

ZNTopoAPI::OwnedIfcList ZNTopoAPI::getIfcsByType(const int& theIfcType, ZNTopoAPIStatus& theStatus,
                                                 int aRD) {
  return _impl->getIfcsByType(theIfcType, theStatus, aRD);
}

ZNTopoAPI::OwnedIfcInfoMap ZNTopoAPI::getIfcInfosByObjIDList(const ObjIDSet& theObjIDs,
                                                             ZNTopoAPIStatus& theStatus,
                                                             bool useNodeAsKey, bool getAll,
                                                             int IFCType) {
  logRequest(getAll, nullptr, "getIfcInfosByObjIDList", theObjIDs);
  return _impl->getIfcInfosByObjIDList(theObjIDs, theStatus, useNodeAsKey, getAll, IFCType);
}

ZNTopoAPI::OwnedHSRPList ZNTopoAPI::getHSRPsByObjIDList(const ObjIDSet& theObjIDs,
                                                        ObjIDSet& theNotFoundIDs,
                                                        ZNTopoAPIStatus& theStatus,
                                                        bool getAllHSRPs, int aRD) {
  logRequest(getAllHSRPs, "getAllHSRPs", "getHSRPsByObjIDList", theObjIDs);
  return _impl->getHSRPsByObjIDList(theObjIDs, theNotFoundIDs, theStatus, getAllHSRPs, aRD);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getHSRPObjIDsByIFAddressObjID(
    const ObjID& theObjID, GetHSRPObjIDsByIFAddressObjID_ObjType objType,
    ZNTopoAPIStatus& theStatus) {
  return _impl->getHSRPObjIDsByIFAddressObjID(theObjID, objType, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getNodeIDsByFilter(const ZNTopoFilter& theFilter,
                                                     ZNTopoAPIStatus& theStatus,
                                                     BatchInfo* /*theBatch*/) {
  return _impl->getNodeIDsByFilter(theFilter, theStatus);
}

ZNTopoAPI::OwnedNodeList ZNTopoAPI::getNodesByFilter(const ZNTopoFilter& theFilter,
                                                     ZNTopoAPIStatus& theStatus,
                                                     BatchInfo* /*theBatch*/) {
  return _impl->getNodesByFilter(theFilter, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getSubnetIDsByFilter(const ZNTopoFilter& theFilter,
                                                       ZNTopoAPIStatus& theStatus,
                                                       BatchInfo* /*theBatch*/) {
  return _impl->getSubnetIDsByFilter(theFilter, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getAddressIDsByFilter(const ZNTopoFilter& theFilter,
                                                        ZNTopoAPIStatus& theStatus,
                                                        BatchInfo* /*theBatch*/) {
  return _impl->getAddressIDsByFilter(theFilter, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getEntityIDsByFilter(const ZNTopoFilter& theFilter,
                                                       ZNTopoAPIStatus& theStatus,
                                                       BatchInfo* /*theBatch*/) {
  return _impl->getEntityIDsByFilter(theFilter, theStatus);
}

ZNTopoAPI::OwnedConnectionList ZNTopoAPI::getNodeNeighbors(const std::string& theNodeName,
                                                           ZNTopoAPIStatus& theStatus, int numHops,
                                                           int maxNumNodes) {
  detail::commandLog("getNodeNeighbors",
                     theNodeName + " " + ltos(numHops) + " " + ltos(maxNumNodes));
  return _impl->getNodeNeighbors(theNodeName, theStatus, numHops, maxNumNodes);
}

ZNTopoAPI::OwnedInterfaceList ZNTopoAPI::getL2Path(const std::string& srcIP,
                                                   const std::string& destIP, int theMaxDepth,
                                                   ZNTopoAPIStatus& theStat,
                                                   ZNAddress::AddressType addrType,
                                                   bool toCrossRouter) {
  return _impl->getL2Path(srcIP, destIP, theMaxDepth, theStat, addrType, toCrossRouter);
}

ZNTopoAPI::OwnedInterfaceList ZNTopoAPI::getL2PathBetweenNodes(
    const std::string& srcNodeName, const std::string& destNodeName, int theMaxDepth,
    ZNTopoAPIStatus& theStat, ZNAddress::AddressType addrType, bool toCrossRouter) {
  return _impl->getL2PathBetweenNodes(srcNodeName, destNodeName, theMaxDepth, theStat, addrType,
                                      toCrossRouter);
}

ZNTopoAPI::OwnedConnDataVector ZNTopoAPI::convertPathInterfaceListToConnDataList(
    const std::list<ZNRefPtr<ZNInterface>>& ifList, ZNTopoAPIStatus& theStat) {
  return _impl->convertPathInterfaceListToConnDataList(ifList, theStat);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getNSubnetConnectivity(int theNumHops,
                                                         const ObjID& theStartNodeID,
                                                         const ZNTopoFilter& theFilter,
                                                         ZNTopoAPIStatus& theStatus,
                                                         BatchInfo* /*theBatch*/) {
  return _impl->getNSubnetConnectivity(theNumHops, theStartNodeID, theFilter, theStatus);
}

ZNTopoAPI::OwnedConnectionList ZNTopoAPI::getConnectivity(const ObjIDSet& theNodeIdList,
                                                          ObjIDSet& theNotFoundIDs,
                                                          ZNTopoAPIStatus& theStat,
                                                          bool includeHopNodeFlag, bool isQRMID) {
  return _impl->getConnectivity(theNodeIdList, theNotFoundIDs, theStat, includeHopNodeFlag,
                                isQRMID);
}

int ZNTopoAPI::ParseDefaultFile(ZNTopoAPIStatus& theStatus) {
  return _impl->ParseDefaultFile(theStatus);
}

int ZNTopoAPI::ParseXmlFile(const std::string& aFileName, ZNTopoAPIStatus& theStatus) {
  return _impl->ParseXmlFile(aFileName, theStatus);
}

int ZNTopoAPI::ParseXmlString(const std::string& aXmlString, ZNTopoAPIStatus& theStatus) {
  return _impl->ParseXmlString(aXmlString, theStatus);
}

std::map<std::string, std::pair<EntityType, std::string>> ZNTopoAPI::getDefaultFileFilterName(
    ZNTopoAPIStatus& theStatus) {
  return _impl->getDefaultFileFilterName(theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getNodeIDsByTopoFilter(const std::string& aFilter,
                                                         ZNTopoAPIStatus& theStatus) {
  return _impl->getNodeIDsByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getInterfaceIDsByTopoFilter(const std::string& aFilter,
                                                              ZNTopoAPIStatus& theStatus) {
  return _impl->getInterfaceIDsByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getAddresseIDsByTopoFilter(const std::string& aFilter,
                                                             ZNTopoAPIStatus& theStatus) {
  return _impl->getAddresseIDsByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getObjIDsByTopoFilter(const std::string& aFilter,
                                                        ZNTopoAPIStatus& theStatus) {
  return _impl->getObjIDsByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI::OwnedNodeList ZNTopoAPI::getNodesByTopoFilter(const std::string& aFilter,
                                                         ZNTopoAPIStatus& theStatus) {
  return _impl->getNodesByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI::OwnedInterfaceList ZNTopoAPI::getInterfacesByTopoFilter(const std::string& aFilter,
                                                                   ZNTopoAPIStatus& theStatus) {
  return _impl->getInterfacesByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI::OwnedAddressVector ZNTopoAPI::getAddressesByTopoFilter(const std::string& aFilter,
                                                                  ZNTopoAPIStatus& theStatus) {
  return _impl->getAddressesByTopoFilter(aFilter, theStatus);
}

ZNTopoAPI::OwnedNodeList ZNTopoAPI::ParseAndGetNodesByTopoFilter(const std::string& aXmlString,
                                                                 const std::string& aFilter,
                                                                 ZNTopoAPIStatus& theStatus) {
  return _impl->ParseAndGetNodesByTopoFilter(aXmlString, aFilter, theStatus);
}

ZNTopoAPI::OwnedInterfaceList ZNTopoAPI::ParseAndGetInterfacesByTopoFilter(
    const std::string& aXmlString, const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  return _impl->ParseAndGetInterfacesByTopoFilter(aXmlString, aFilter, theStatus);
}

ZNTopoAPI::OwnedAddressVector ZNTopoAPI::ParseAndGetAddressesByTopoFilter(
    const std::string& aXmlString, const std::string& aFilter, ZNTopoAPIStatus& theStatus) {
  return _impl->ParseAndGetAddressesByTopoFilter(aXmlString, aFilter, theStatus);
}

ZNTopoAPI::OwnedIDList ZNTopoAPI::getAddressIDsOfTopoFilter(const std::string& aFilter,
                                                            ZNTopoAPIStatus& theStatus) {
  return _impl->getAddressIDsOfTopoFilter(aFilter, theStatus);
}

ZNTopoAPI::OwnedAddressVector ZNTopoAPI::getAddressesOfTopoFilter(const std::string& aFilter,
                                                                  ZNTopoAPIStatus& theStatus) {
  return _impl->getAddressesOfTopoFilter(aFilter, theStatus);
}

}  // namespace zntopo

const char* _TVgetURL_OS() { return "NT"; }

int _TVgetConsolidatedPatchNum() { return 0; }
