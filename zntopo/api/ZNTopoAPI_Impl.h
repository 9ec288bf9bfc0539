#pragma once

#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/cache/ZNTopoCache.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/UserDefVar.h"
#include "zntopo/platform/Export.h"
#include "zntopo/platform/tvdbil/TvDbil.h"
#include "zntopo/store/TableSet.h"

namespace zntopo {

namespace detail {
struct TracedBlock;
}  // namespace detail

/// All query code on the tables of one set, behind the facade ZNTopoAPI, which tells what its
/// operations do. Its base are the names of the tables of its set.
///
/// Several threads may query one instance at once: its table names are set once, and what is
/// shared lies in the cache under the cache's lock.
class ZNTopoAPI_Impl : protected TableSet {
 public:
  using ObjIDSet = ZNTopoAPI::ObjIDSet;
  using OwnedIDList = ZNTopoAPI::OwnedIDList;
  using OwnedNodeList = ZNTopoAPI::OwnedNodeList;
  using OwnedInterfaceList = ZNTopoAPI::OwnedInterfaceList;
  using OwnedAddressVector = ZNTopoAPI::OwnedAddressVector;
  using OwnedSubnetList = ZNTopoAPI::OwnedSubnetList;
  using OwnedVlanList = ZNTopoAPI::OwnedVlanList;
  using OwnedIfcList = ZNTopoAPI::OwnedIfcList;
  using OwnedIfcInfoMap = ZNTopoAPI::OwnedIfcInfoMap;
  using OwnedHSRPList = ZNTopoAPI::OwnedHSRPList;
  using OwnedConnectionList = ZNTopoAPI::OwnedConnectionList;
  using OwnedConnDataVector = ZNTopoAPI::OwnedConnDataVector;
  using OwnedAuditTrailVector = ZNTopoAPI::OwnedAuditTrailVector;
  using OwnedUserVarMap = std::unique_ptr<std::map<ObjID, ZNRefPtr<std::vector<UserDefVar>>>>;
  using OwnedConnDataMap =
      std::unique_ptr<std::map<ObjID, ZNRefPtr<std::vector<ZNRefPtr<ZNConnData>>>>>;
  using OwnedVlanInfoMap = std::unique_ptr<std::map<ObjID, ZNRefPtr<std::list<ZNVlanInfo>>>>;
  using OwnedHSRPInfoMap = std::unique_ptr<std::map<ObjID, ZNRefPtr<std::list<ZNHSRPAddressInfo>>>>;
  using OwnedInterfaceIDMap = std::unique_ptr<std::map<ObjID, ZNRefPtr<std::set<ObjID>>>>;
  using OwnedAddressMap =
      std::unique_ptr<std::map<ObjID, ZNRefPtr<std::vector<ZNRefPtr<ZNAddress>>>>>;
  using OwnedEntityVector = std::unique_ptr<std::vector<ZNRefPtr<ZNEntity>>>;
  using OwnedEndPointMap = std::unique_ptr<std::map<ObjID, ZNRefPtr<std::list<SubnetEndPoint>>>>;

  /// How many identifiers go into one statement.
  static constexpr int NUM_NODE_PER_CALL = 50;
  static constexpr int NUM_INTERFACE_PER_CALL = 50;

  /// The one cache, made when the library is loaded and never destroyed. Code that can run
  /// while libraries are being loaded takes cache().
  static ZNTopoCache* const myCache;
  /// The one cache, made on the first call.
  static ZNTopoCache* cache();

  ZNTopoAPI_Impl();
  explicit ZNTopoAPI_Impl(TopoDBType theDBType);
  virtual ~ZNTopoAPI_Impl();
  ZNTopoAPI_Impl(const ZNTopoAPI_Impl&) = delete;
  ZNTopoAPI_Impl& operator=(const ZNTopoAPI_Impl&) = delete;

  // Frame: ZNTopoAPI_Impl.cpp.
  ZNTopoCache* getTopoCache() const;
  TopoDBType getDBType() const { return dbType_; }
  /// These hold no information; infer nothing from them.
  bool isValid() const { return false; }
  ZNTopoAPIStatus getAPIStatus() const { return ZNTopoAPIStatus(); }
  bool isLastGetVlansValid() const { return false; }
  bool isLastGetIfcsValid() const { return false; }
  /// The table of a kind of objects, "ERROR" for a kind that has none.
  std::string findTableNameFromEntityType(EntityType theType) const;
  static std::set<ObjID> ConvertObjIDListToSet(const std::list<ObjID>& theList);
  /// The maker of the store's engine, in theVendor.
  void getVendor(TvDbil::DbilRdbmsVendor& theVendor, ZNTopoAPIStatus& theStatus);
  /// An empty pointer: there is no dump of the cache's contents.
  std::unique_ptr<std::list<std::string>> dumpCache() const;
  ZNTopologyState getTopologyState(ZNTopoAPIStatus& theStatus);
  bool isCacheValid() const;

  // The cache as a whole and its objects in their place: ZNTopoAPI_CacheUpdate.cpp,
  // ZNTopoAPI_Preload.cpp.
  ZNTopoStatus refreshTopology(ZNTopoAPIStatus& theStatus);
  void clearCache();
  /// The store's TOPOLOGYREADYCHANGETIME that the cache belongs to, seconds; 0 if unknown.
  long getCacheTimeStamp() const;
  /// Loads kinds of objects of the active tables as wholes, containers, VLANs and HSRP groups
  /// first; pauses for a second after VLANs and after HSRP groups. Ends at the first failure.
  ZNTopoAPIStatus preLoadTopoCache(bool loadSwitchNode, bool loadRouterNode, bool loadVlan,
                                   bool loadHSRP, bool loadConnectedInterfaces, bool loadIfcs);
  /// Changes a status of a cached node, interface, subnet or, by legacy identifier only, of a
  /// monitored address; an HSRP group, by topology identifier only, leaves the cache instead. What
  /// is not cached is no error. ZN_API_NOT_SUPPORTED_OPERATION for everything else.
  /// @param statusChangeTimeUTC of entities: now, unless it is above 0.
  void updateCacheObjectStatus(const ObjID& theObjID, bool isAddress, EntityType theEntityType,
                               int tvwStatus, long statusChangeTimeUTC,
                               ZNEntity::EntityStatusType entStatusType, ZNTopoAPIStatus& theStatus,
                               bool isQRMID);
  /// Changes an attribute of a cached interface, HSRP group or address, or, whatever the attribute,
  /// the SNMP state of a cached node. The status tells nothing: it is reset.
  /// @param theAddrID of HSRP groups: the address of the members that change.
  void updateCacheObjectAttribute(const ObjID& objIDArg, EntityType theEntType,
                                  TopologyAttributeType theAttrType, int theAttrVal,
                                  const ObjID& theAddrID, ZNTopoAPIStatus& theStatus);
  /// Does nothing.
  void refreshCacheObject(const ObjID& theObjID, bool isAddress, EntityType theEntityType,
                          int tvwStatus, long statusChangeTimeUTC, ZNTopoAPIStatus& theStatus);
  static void release();

  // Nodes: ZNTopoAPI_Node.cpp.
  ZNRefPtr<ZNNode> getNodeByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  ZNRefPtr<ZNNode> getNodeByQRMObjID(const ObjID& theQRMObjID, ZNTopoAPIStatus& theStatus);
  OwnedNodeList getNodesByObjIDList(const ObjIDSet& theNodeIDs, ObjIDSet& theNotFoundIDs,
                                    ZNTopoAPIStatus& theStatus, bool toGetInterfaces, bool isQRMID,
                                    bool getAllNodes, ZNEntity::IPLevel ipLevel, int aRD);
  /// One statement, whatever the number of identifiers. Does not ask for readiness.
  OwnedNodeList getNodesByObjIDList_Int(const ObjIDSet& theNodeIDs, ObjIDSet& theNotFoundIDs,
                                        ZNTopoAPIStatus& theStatus, bool toGetInterfaces,
                                        bool isQRMID, bool getAllNodes, ZNEntity::IPLevel ipLevel,
                                        int aRD);
  /// Runs the big select of nodes; the tables must give the node table the alias NODE.
  OwnedNodeList getNodesByWhere(const std::string& theSQLWhere, const std::string& tbls,
                                ZNTopoAPIStatus& theStatus, bool getAllNodes);
  ZNRefPtr<ZNNode> getNodeByName(const std::string& theName, ZNTopoAPIStatus& theStatus, int theRD);
  OwnedNodeList getNodesByRXName(const std::string& theName, ZNTopoAPIStatus& theStatus, int theRD);
  /// Runs a statement with one column of identifiers; NULL values are left out.
  OwnedIDList getObjIDListFromSQL(const std::string& theSQL, ZNTopoAPIStatus& theStatus);

  // What hangs on objects, by their identifiers: ZNTopoAPI_Attachments.cpp.
  OwnedUserVarMap getUserDefVarsByObjIDList(const std::list<ObjID>& theObjIDList,
                                            ZNTopoAPIStatus& theStatus);
  /// With E_Unknown the variables of the identifiers, else those of all objects of the kind.
  OwnedUserVarMap getUserDefVarsByObjIDList_Int(const std::list<ObjID>& theObjIDList,
                                                ZNTopoAPIStatus& theStatus, EntityType eType);
  /// The layer-2 connections of nodes; the keys are the identifiers asked for.
  OwnedConnDataMap getConnDatasByNodeObjIDList(const std::list<ObjID>& theObjIDList,
                                               ZNTopoAPIStatus& theStatus, bool getAll);
  OwnedConnDataMap getConnDatasByNodeObjIDList_Int(const std::list<ObjID>& theObjIDList,
                                                   ZNTopoAPIStatus& theStatus, bool getAll);
  /// The VLANs of nodes, or the nodes of VLANs.
  OwnedVlanInfoMap getVlanInfosByObjIDList(const std::list<ObjID>& theObjIDList,
                                           ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
                                           bool getAll);
  OwnedVlanInfoMap getVlanInfosByObjIDList_Int(const std::list<ObjID>& theObjIDList,
                                               ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
                                               bool getAll);
  /// The containers of nodes, or the nodes of containers.
  OwnedIfcInfoMap getIfcInfosByObjIDList(const ObjIDSet& theObjIDs, ZNTopoAPIStatus& theStatus,
                                         bool useNodeAsKey, bool getAll, int IFCType);
  OwnedIfcInfoMap getIfcInfosByObjIDList_Int(const std::list<ObjID>& theObjIDList,
                                             ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
                                             bool getAll, int IFCType);

  // Interfaces: ZNTopoAPI_Interface.cpp.
  ZNRefPtr<ZNInterface> getInterfaceByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  OwnedInterfaceList getInterfacesByObjIDList(const ObjIDSet& theIFIDs, ObjIDSet& theNotFoundIDs,
                                              ZNTopoAPIStatus& theStatus, bool isQRMID,
                                              bool getAllConnectedInterfaces);
  OwnedInterfaceList getInterfacesByObjIDList_Int(const ObjIDSet& theIFIDs,
                                                  ObjIDSet& theNotFoundIDs,
                                                  ZNTopoAPIStatus& theStatus, bool isQRMID,
                                                  bool getAllConnectedInterfaces);
  /// All interfaces of nodes, read from the store.
  OwnedInterfaceList getInterfacesByNodeObjIDList(const std::list<ObjID>& theNodeIDs,
                                                  ZNTopoAPIStatus& theStatus);
  /// The identifiers of the interfaces of nodes, by node.
  OwnedInterfaceIDMap getInterfaceIDsByNodeObjIDList(const std::list<ObjID>& theNodeIDs,
                                                     ZNTopoAPIStatus& theStatus);
  ZNRefPtr<ZNInterface> getInterfaceByIfName(const std::string& theName,
                                             const std::string& theNodeName,
                                             ZNTopoAPIStatus& theStatus);
  ZNRefPtr<ZNInterface> getInterfaceByIPV4(const std::string& theIP, ZNTopoAPIStatus& theStatus,
                                           int theRD);
  /// Asks for the interfaces of a container and answers with an empty set, always.
  std::set<ObjID> getInterfacesByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  /// The mesh that an interface is in, null if it is in none. Does not ask for readiness.
  ObjID getMeshID(ObjID theIFObjID, ZNTopoAPIStatus& theStatus);
  /// Ends in ZN_API_EMPTY_OBJID_LIST, always.
  std::list<ZNRefPtr<ZNInterface>> getMeshInterfaces(const ObjID& theObjID,
                                                     ZNTopoAPIStatus& theStatus);

  // Addresses: ZNTopoAPI_Address.cpp.
  ZNRefPtr<ZNAddress> getAddressByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  OwnedAddressVector getAddrsByObjIDs(const std::list<ObjID>& theAddrObjIDs,
                                      ZNTopoAPIStatus& theStatus, bool getAllAddresses,
                                      ZNAddress::AddressType addrType);
  ZNRefPtr<ZNAddress> getAddressByQRMObjID(const ObjID& theQRMObjID, ZNTopoAPIStatus& theStatus);
  ZNRefPtr<MonitoredInetAddressIPv6> getMonitoredIPv6AddressByObjID(const ObjID& theObjID,
                                                                    ZNTopoAPIStatus& theStatus);
  ZNRefPtr<MonitoredInetAddressIPv6> getMonitoredIPv6AddressByQRMObjID(const ObjID& theQRMObjID,
                                                                       ZNTopoAPIStatus& theStatus);
  OwnedIDList getInetAddressIPv6IDsFromDNSExpression(const std::string& theExpression,
                                                     ZNTopoAPIStatus& theStatus);
  std::unique_ptr<std::list<std::string>> resolveIPv6ToDNS(const ObjID& theObjID,
                                                           ZNTopoAPIStatus& theStatus);
  ZNRefPtr<ZNAddress> getAddressByIP(const std::string& theIP, ZNTopoAPIStatus& theStatus,
                                     int theRD);

  // Connectivity: zntopo/connectivity/.
  OwnedConnectionList getNodeNeighbors(const std::string& theNodeName, ZNTopoAPIStatus& theStatus,
                                       int numHops, int maxNumNodes);
  OwnedInterfaceList getL2Path(const std::string& srcIP, const std::string& destIP, int theMaxDepth,
                               ZNTopoAPIStatus& theStat, ZNAddress::AddressType addrType,
                               bool toCrossRouter);
  OwnedInterfaceList getL2PathBetweenNodes(const std::string& srcNodeName,
                                           const std::string& destNodeName, int theMaxDepth,
                                           ZNTopoAPIStatus& theStat,
                                           ZNAddress::AddressType addrType, bool toCrossRouter);
  OwnedInterfaceList getL2PathBetweenInterfaces(
      ZNRefPtr<ZNNode> SrcNode, ZNRefPtr<ZNInterface> theSrcInterface, ZNRefPtr<ZNNode> DestNode,
      ZNRefPtr<ZNInterface> theDestInterface, int theMaxDepth, ZNTopoAPIStatus& theStat,
      ZNAddress::AddressType addrType, bool toCrossRouter);
  OwnedConnDataVector convertPathInterfaceListToConnDataList(
      const std::list<ZNRefPtr<ZNInterface>>& ifList, ZNTopoAPIStatus& theStat);
  OwnedConnectionList getConnectivity(const ObjIDSet& theNodeIdList, ObjIDSet& theNotFoundIDs,
                                      ZNTopoAPIStatus& theStat, bool includeHopNodeFlag,
                                      bool isQRMID);
  OwnedIDList getNSubnetConnectivity(int theNumHops, const ObjID& theStartNodeID,
                                     const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus);

  // Subnets: ZNTopoAPI_Subnet.cpp.
  ZNRefPtr<ZNSubnet> getSubnetByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  ZNRefPtr<ZNSubnet> getSubnetByQRMObjID(const ObjID& theQRMObjID, ZNTopoAPIStatus& theStatus);
  OwnedSubnetList getSubnetsByObjIDList(const ObjIDSet& theSubnetIDs, ZNTopoAPIStatus& theStatus,
                                        bool isQRMID, bool getAllSubnets, ZNEntity::IPLevel ipLevel,
                                        int aRD);

  // VLANs, containers and HSRP groups: ZNTopoAPI_Group.cpp, ZNTopoAPI_Ifc.cpp, ZNTopoAPI_HSRP.cpp.
  ZNRefPtr<ZNVlan> getVlanByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  OwnedVlanList getVlansByObjIDList(const ObjIDSet& theObjIDs, ObjIDSet& theNotFoundIDs,
                                    ZNTopoAPIStatus& theStatus, bool getAllVlans, int aRD);
  ZNRefPtr<ZNIfc> getIfcByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  OwnedIfcList getIfcsByObjIDList(const ObjIDSet& theObjIDs, ObjIDSet& theNotFoundIDs,
                                  ZNTopoAPIStatus& theStatus, bool getAll, int aRD);
  OwnedIfcList getIfcsByType(const int& theIfcType, ZNTopoAPIStatus& theStatus, int aRD);
  /// The columns IFCType, AppsID and isOrdered of a row of nwifc; without a row they stay as they
  /// are. cleanUpOnEmpty is false: no column holds it.
  ZNTopoAPIStatus getIfcDataByObjID(const ObjID& theIfcID, int& ifcType, int& appsId,
                                    bool& isOrdered, bool& cleanUpOnEmpty);
  /// Appends the associations (nwifcasc) of a container, whichever end it is.
  ZNTopoAPIStatus getIfcAssocInfosByObjID(const ObjID& theIfcID,
                                          std::list<ZNRefPtr<ZNIfcAssocInfo>>& theList);
  OwnedHSRPList getHSRPsByObjIDList(const ObjIDSet& theObjIDs, ObjIDSet& theNotFoundIDs,
                                    ZNTopoAPIStatus& theStatus, bool getAllHSRPs, int aRD);
  /// The members (hsrpaddress) of groups, by group, or of all; of those that have some.
  OwnedHSRPInfoMap getHSRPInfosByObjIDList(const std::list<ObjID>& theObjIDList,
                                           ZNTopoAPIStatus& theStatus, bool getAllHSRPs);
  OwnedIDList getHSRPObjIDsByIFAddressObjID(
      const ObjID& theObjID, ZNTopoAPI::GetHSRPObjIDsByIFAddressObjID_ObjType objType,
      ZNTopoAPIStatus& theStatus);

  // Attribute filters: ZNTopoAPI_ByFilter.cpp.
  OwnedIDList getNodeIDsByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus);
  OwnedNodeList getNodesByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getSubnetIDsByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getEntityIDsByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getAddressIDsByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus);
  /// An empty pointer: there is never a next page. The status stays as it is.
  OwnedIDList getAddressIDsByFilterNext(ZNTopoAPIStatus& theStatus);

  // Updates of the store: ZNTopoAPI_Update.cpp. They touch neither the cache nor an object, and
  // tell nobody. That no row has the identifier is no failure; nor is that the change could not be
  // committed, which the log tells.
  ZNTopoAPIStatus setHSRPAddressInfo(const ZNHSRPAddressInfo& anInfo);
  ZNTopoAPIStatus setNWInterfaceState(const ObjID& theObjID, int newAttrVal, int attributeType);
  ZNTopoAPIStatus setAddressState(const ObjID& theObjID, int newAttrVal);
  ZNTopoAPIStatus setNWNodeStatus(const ObjID& theObjID, int newStatus, int statType);
  ZNTopoAPIStatus setEntityStatus(const ObjID& theObjID, int newStatus, int statusChangeTimeUTC,
                                  ZNEntity::EntityStatusType statType, EntityType entType);
  ZNTopoAPIStatus setL2DomainIdOfNode(ZNNode& aNode, int& id);
  ZNTopoAPIStatus setL2DomainIdOfInterface(ZNInterface& aInterface, int& id);
  /// In nwifcasc, whichever the table set, and without a look at readiness.
  ZNTopoAPIStatus setNWIfcAssocInfoState(const ObjID& leftIfcObjID, const ObjID& rightIfcObjID,
                                         int assocType, int state);

  // Audit trail and statistics: ZNTopoAPI_AuditTrail.cpp, ZNTopoAPI_TopologyInfo.cpp.
  OwnedAuditTrailVector getAuditTrail(long actionStartTime, long actionEndTime,
                                      ZNAuditAction::Type actionType,
                                      ZNAuditTrail::ObjectType objType, ZNTopoAPIStatus& theStatus);
  ZNTopologyInfo getTopologyInfo(ZNTopoAPIStatus& theStatus);
  /// Runs a statement with one column of numbers: the last that is not NULL, 0 without one.
  int getStatistic(const std::string& theSQL, ZNTopoAPIStatus& theStatus);
  /// Runs a statement with a column of texts and one of numbers, and puts them into the map; NULL
  /// is an empty text or 0. The number of entries in the map.
  int get_String_Int_Map(const std::string& theSQL, std::map<std::string, int>& theMap,
                         ZNTopoAPIStatus& theStatus);

  // XML filters: ZNTopoAPI_ByTopoFilter.cpp.
  int ParseDefaultFile(ZNTopoAPIStatus& theStatus);
  int ParseXmlFile(const std::string& aFileName, ZNTopoAPIStatus& theStatus);
  int ParseXmlString(const std::string& aXmlString, ZNTopoAPIStatus& theStatus);
  std::map<std::string, std::pair<EntityType, std::string>> getDefaultFileFilterName(
      ZNTopoAPIStatus& theStatus);
  OwnedIDList getNodeIDsByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getInterfaceIDsByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getAddresseIDsByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getObjIDsByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedNodeList getNodesByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedInterfaceList getInterfacesByTopoFilter(const std::string& aFilter,
                                               ZNTopoAPIStatus& theStatus);
  OwnedAddressVector getAddressesByTopoFilter(const std::string& aFilter,
                                              ZNTopoAPIStatus& theStatus);
  OwnedNodeList ParseAndGetNodesByTopoFilter(const std::string& aXmlString,
                                             const std::string& aFilter,
                                             ZNTopoAPIStatus& theStatus);
  OwnedInterfaceList ParseAndGetInterfacesByTopoFilter(const std::string& aXmlString,
                                                       const std::string& aFilter,
                                                       ZNTopoAPIStatus& theStatus);
  OwnedAddressVector ParseAndGetAddressesByTopoFilter(const std::string& aXmlString,
                                                      const std::string& aFilter,
                                                      ZNTopoAPIStatus& theStatus);
  OwnedIDList getAddressIDsOfTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedAddressVector getAddressesOfTopoFilter(const std::string& aFilter,
                                              ZNTopoAPIStatus& theStatus);

 protected:
  /// The gate that query operations pass first: false, with the status set, if the active
  /// tables may not be read. The working tables are not subject to readiness.
  bool validate(ZNTopoAPIStatus& theStatus);
  void setUpTblNames(TopoDBType theDBType);
  /// Renders a list of messages, 3000 characters of it at most, into the auxiliary text.
  void addErrorListMessage(TvXplMsg::MessageList_t& theMessages, ZNTopoAPIStatus& theStatus);

  /// Hand an object to the cache.
  void useNode(const ZNRefPtr<ZNNode>& theNode);
  void useInterface(const ZNRefPtr<ZNInterface>& theInterface);
  void useAddress(const ZNRefPtr<ZNAddress>& theAddress);
  void useSubnet(const ZNRefPtr<ZNSubnet>& theSubnet);
  void useVlan(const ZNRefPtr<ZNVlan>& theVlan);
  void useIfc(const ZNRefPtr<ZNIfc>& theIfc);
  void useHSRP(const ZNRefPtr<ZNHSRP>& theHSRP);

  // Interfaces and addresses.
  /// @param mode 0 by identifiers, 1 by nodes, 2 all connected interfaces (not cached).
  OwnedInterfaceList getInterfacesByWhereQuery(const std::string& partOfWhere,
                                               ZNTopoAPIStatus& theStatus, int mode,
                                               const std::list<ObjID>& aNodeList);
  OwnedAddressVector getAddressesByWhereClause(const std::string& theWhereClause,
                                               const std::string& tblNames,
                                               ZNTopoAPIStatus& theStatus);
  /// @param mode 0 by owners, 1 by the owners' nodes, 2 and above of all interfaces.
  OwnedAddressMap getAddrsByAssociatedObjIDList(const std::list<ObjID>& theObjIDList,
                                                ZNTopoAPIStatus& theStatus, int mode);
  OwnedIDList getObjIDs(const std::string& sql, ZNTopoAPIStatus& theStatus);

  // Connectivity.
  /// A walk of numHops rings from the nodes given; with theUpdateFlag false, on these alone.
  OwnedConnectionList getNeighbors2(const std::list<ZNRefPtr<ZNNode>>& theNodeList, int numHops,
                                    int maxNumNodes, bool& maxNodesExceeded, bool theUpdateFlag);
  /// The next ring; its nodes enter theSet.
  OwnedNodeList createNewNodeList(const std::list<ZNRefPtr<ZNNode>>& theProcList,
                                  std::set<ObjID>& theSet);
  bool processedNode(const ObjID& theObjID, const std::set<ObjID>& theSet);
  ZNRefPtr<ZNNode> findPath(const std::list<ZNRefPtr<ZNNode>>& startNodeList,
                            ZNRefPtr<ZNNode>& endNode, int theHop, int theMaxDepth,
                            std::list<ZNRefPtr<ZNConnData>>& theDataPath,
                            std::set<ObjID>& theVisitedNodes, ZNTopoAPIStatus& theStat,
                            bool toCrossRouter);
  /// Appends the subnets to the list; failures shorten it.
  void getSubnetConnectivity(OwnedIDList& theList, int theNumHops,
                             const ZNRefPtr<ZNNode>& theStartNode, const ZNTopoFilter& theFilter);
  bool doesSubnetPassFilter(const ObjID& theSubnetID, const ZNTopoFilter& theFilter);
  /// Appends the nodes on the subnets that are not in the map yet, and enters them there.
  void prepareProcessingList(const std::set<ObjID>& theSubnetIDSet,
                             std::list<ZNRefPtr<ZNNode>>& theNodeList,
                             std::map<ObjID, ZNRefPtr<ZNNode>>& theNodeMap);

  // Entities: ZNTopoAPI_Entity.cpp. The end points of subnets: ZNTopoAPI_Subnet.cpp.
  /// One statement, whatever it finds. An empty clause finds nothing.
  OwnedEntityVector getEntitiesByWhereClause(std::string& theWhereClause,
                                             ZNTopoAPIStatus& theStatus, bool loadUDV);
  /// The same of containers, with IP level 4 and no user variables. An empty clause finds all.
  OwnedEntityVector getIfcEntitiesByWhereClause(std::string& theWhereClause,
                                                ZNTopoAPIStatus& theStatus, bool loadUDVs);
  /// The end points of one subnet, with the nodes that contain the interfaces.
  std::list<SubnetEndPoint> getSubnetEndPoints(ZNEntity& theEntity, ZNTopoAPIStatus& theStatus);
  /// By subnet, of those that have some, with the nodes that the interfaces name: the two forms
  /// ask other tables.
  OwnedEndPointMap getSubnetEndPointsByObjIDList(const std::list<ObjID>& theSubnetIDs,
                                                 ZNTopoAPIStatus& theStatus);

  TopoDBType dbType_;
  /// The XML filters of this instance, for one thread at a time.
  TopoFiltHandler m_FiltHandler;
  /// Working storage of neighbour walking, for one thread at a time.
  std::map<std::string, ZNRefPtr<ZNNode>> myNodeMap;

 private:
  /// Has the filters' handler load definitions, and tells the status of a failure.
  template <typename Load>
  int loadFilters(ZNTopoAPIStatus& theStatus, const Load& load);

  enum class UpdateLog { Plain, WithTableSet };

  /// The course of all updates of the store but that of associations: ZNTopoAPI_Update.cpp.
  ZNTopoAPIStatus update(const detail::TracedBlock& member, UpdateLog log, const std::string& sql);

  /// What differs between the requests for VLANs, containers and HSRP groups.
  template <typename T>
  struct GroupKind;

  /// The request for groups of one kind, by identifiers or for all: ZNTopoAPI_Group.cpp.
  template <typename T>
  std::unique_ptr<std::list<ZNRefPtr<T>>> groupsByObjIDList(const GroupKind<T>& kind,
                                                            const ObjIDSet& theObjIDs,
                                                            ObjIDSet& theNotFoundIDs,
                                                            ZNTopoAPIStatus& theStatus, bool getAll,
                                                            int aRD);
  /// All groups of a kind, null unless the cache holds them all.
  template <typename T>
  std::unique_ptr<std::list<ZNRefPtr<T>>> allCachedGroups(const GroupKind<T>& kind);
  template <typename T>
  void readGroups(const GroupKind<T>& kind, std::string& condition,
                  std::list<ZNRefPtr<T>>& theGroups, ZNTopoAPIStatus& theStatus, bool getAll);
  ZNRefPtr<ZNNode> singleNode(const ObjID& id, bool isQRMID, ZNTopoAPIStatus& theStatus);
  /// The parts of the requests for nodes and interfaces that the cache does not have.
  OwnedNodeList readNodes(const std::list<ObjID>& missing, const ObjIDSet& theNodeIDs,
                          ObjIDSet& theNotFoundIDs, ZNTopoAPIStatus& theStatus, bool isQRMID);
  void readInterfaces(const std::list<ObjID>& missing, const ObjIDSet& theIFIDs,
                      std::list<ZNRefPtr<ZNInterface>>& theList, ObjIDSet& theNotFoundIDs,
                      ZNTopoAPIStatus& theStatus, bool isQRMID);
  /// What an XML filter selects, with a complaint unless it is of the kind.
  OwnedIDList idsOfKind(EntityType theType, const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  /// What a filter selects once a document was parsed.
  OwnedIDList idsOfDocument(const std::string& aXmlString, const std::string& aFilter,
                            ZNTopoAPIStatus& theStatus);
  ZNRefPtr<ZNSubnet> singleSubnet(const ObjID& theID, bool isQRMID, ZNTopoAPIStatus& theStatus);
};

}  // namespace zntopo
