#pragma once

#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "zntopo/api/BatchInfo.h"
#include "zntopo/api/ZNAuditTrail.h"
#include "zntopo/api/ZNTopoFilter.h"
#include "zntopo/api/ZNTopologyInfo.h"
#include "zntopo/cache/ZNTopoConfig.h"
#include "zntopo/cache/ZNTopologyState.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/model/ZNAddress.h"
#include "zntopo/model/ZNConnData.h"
#include "zntopo/model/ZNConnection.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNIfc.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/ZNSubnet.h"
#include "zntopo/model/ZNVlan.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

class ZNTopoAPI_Impl;

/// The queries of the library on one table set of the store: what applications use.
///
/// All instances share one cache and one pool of connections, so an instance is cheap: make one
/// for a call, or take a shared one from ZNTopoAPIDefaultFactory.
///
/// Nothing is thrown. Every query resets the status that it is given, and tells its outcome in
/// it: ZN_API_DB_NOT_READY while the model may not be read, ZN_API_DB_CONNECTION_FAILURE and
/// the ZN_API_SQL_... codes when the store fails, and what each operation says. On a failure the
/// result is what stood at that moment: an empty or partial container, or a null handle.
/// Containers belong to the caller; the objects in them are shared with the cache and with
/// other callers. A route distinguisher of -1 means none.
///
/// Several threads may query one instance at once. XML filters are kept in the instance: while one
/// thread parses (Parse..., getNodesByRXName), no other may parse or use a filter there.
class ZNTOPO_EXPORT ZNTopoAPI {
 public:
  using ObjIDSet = std::set<ObjID>;
  using OwnedIDList = std::unique_ptr<std::list<ObjID>>;
  using OwnedNodeList = std::unique_ptr<std::list<ZNRefPtr<ZNNode>>>;
  using OwnedInterfaceList = std::unique_ptr<std::list<ZNRefPtr<ZNInterface>>>;
  using OwnedAddressVector = std::unique_ptr<std::vector<ZNRefPtr<ZNAddress>>>;
  using OwnedSubnetList = std::unique_ptr<std::list<ZNRefPtr<ZNSubnet>>>;
  using OwnedVlanList = std::unique_ptr<std::list<ZNRefPtr<ZNVlan>>>;
  using OwnedIfcList = std::unique_ptr<std::list<ZNRefPtr<ZNIfc>>>;
  using OwnedIfcInfoMap = std::unique_ptr<std::map<ObjID, ZNRefPtr<std::list<ZNIfcInfo>>>>;
  using OwnedHSRPList = std::unique_ptr<std::list<ZNRefPtr<ZNHSRP>>>;
  using OwnedConnectionList = std::unique_ptr<std::list<ZNConnection>>;
  using OwnedConnDataVector = std::unique_ptr<std::vector<ZNRefPtr<ZNConnData>>>;
  using OwnedAuditTrailVector = std::unique_ptr<std::vector<ZNRefPtr<ZNAuditTrail>>>;

  /// What the identifier given to getHSRPObjIDsByIFAddressObjID() names.
  enum GetHSRPObjIDsByIFAddressObjID_ObjType : int {
    HSRP_Address = 0,
    HSRP_Interface = 1,
    HSRP_TrackInterface = 2
  };

  /// On the active tables.
  ZNTopoAPI();
  explicit ZNTopoAPI(TopoDBType theDBType);
  /// Takes ownership of theImpl; with a null one, makes one for theDBType.
  ZNTopoAPI(ZNTopoAPI_Impl* theImpl, TopoDBType theDBType);
  virtual ~ZNTopoAPI();
  ZNTopoAPI(const ZNTopoAPI&) = delete;

  /// @name Process-wide settings
  /// @{
  /// Replaces the configuration of the one cache.
  static void setTopoConfiguration(const ZNTopoConfig& theConfig);
  /// The live record.
  static ZNTopoConfig& getTopoConfiguration();
  /// Sets the sizes of the cache, numbers of objects. Nothing changes if one of the first six
  /// is negative; the last is ignored.
  static void setCacheSize(int theNumOfNodes, int theNumOfInterfaces, int theNumOfAddresses,
                           int theNumOfSubnets, int theNumOfVlans, int theNumOfHSRPs,
                           int theNumOfIfcs);
  /// Ends the notification side for good: queues a SHUTDOWN for the consumer and closes the event
  /// session, after the broker has what was sent; that waits for a bounded time. In a process that
  /// never notified it opens the session first. Cache and pool live on until the process ends.
  static void release();
  /// "300".
  std::string getTopoAPIVersion() const;
  /// "300".
  std::string getTopoSchemaVersion() const;
  /// @}

  /// @name State and cache
  /// @{
  /// The state row of the store, read anew and without a look at readiness. An empty or
  /// half-filled row is no error: it gives UNKNOWN.
  ZNTopologyState getTopologyState(ZNTopoAPIStatus& theStatus);
  /// ZN_API_NOT_SUPPORTED_OPERATION, always; the status argument stays as it is.
  ZNTopoStatus refreshTopology(ZNTopoAPIStatus& theStatus);
  /// False if the cache's address map is unsound. Says nothing about readiness.
  bool isCacheValid();
  /// Empties the cache, containers excepted. The next query reads the store's state.
  void clearCache();
  /// Loads whole kinds of objects ahead of the queries, and pauses for a second after VLANs and
  /// after HSRP groups. Returns the status of what failed first.
  ZNTopoAPIStatus preLoadTopoCache(bool loadSwitchNode, bool loadRouterNode, bool loadVlan,
                                   bool loadHSRP, bool loadConnectedInterfaces);
  /// Changes a status of a cached node, interface, subnet or, by legacy identifier only, of a
  /// monitored address, in the cache alone; an HSRP group, by topology identifier only, leaves the
  /// cache instead. What is not cached is no error. ZN_API_NOT_SUPPORTED_OPERATION for everything
  /// else.
  /// @param statusChangeTimeUTC seconds; of entities: now, unless it is above 0.
  void updateCacheObjectStatus(const ObjID& theObjID, bool isAddress, EntityType theEntityType,
                               int tvwStatus, long statusChangeTimeUTC,
                               ZNEntity::EntityStatusType entStatusType, ZNTopoAPIStatus& theStatus,
                               bool isQRMID);
  /// The counters of the stored topology, read one by one: a discovery that runs meanwhile makes
  /// them disagree. All 0 after a failure: ZN_API_DB_NOT_READY while the model is not ready.
  ZNTopologyInfo getTopologyInfo(ZNTopoAPIStatus& theStatus);
  /// What discovery did to its objects between two times, seconds UTC, both included: a trail for
  /// each object in the order of their first entries, as the store gives them. A time of 0 leaves a
  /// side open; TypeDontCare and ObjectTypeDontCare take every kind. A start behind the end gives
  /// nothing, with a good status.
  OwnedAuditTrailVector getAuditTrail(long actionStartTime, long actionEndTime,
                                      ZNAuditAction::Type actionType,
                                      ZNAuditTrail::ObjectType objType, ZNTopoAPIStatus& theStatus);
  /// @}

  /// An object of any kind but a container. Tries nodes, interfaces, HSRP groups, subnets and VLANs
  /// in this order; null if all fail, with the status of the last attempt. Where the kind is known,
  /// its own operation asks the store less.
  ZNRefPtr<ZNEntity> getEntityByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);

  /// @name Nodes
  /// @{
  /// ZN_API_INVALID_ID for a null identifier and for whatever else goes wrong.
  ZNRefPtr<ZNNode> getNodeByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  /// The same by the legacy identifier.
  ZNRefPtr<ZNNode> getNodeByQRMObjID(const ObjID& theQRMObjID, ZNTopoAPIStatus& theStatus);
  /// Nodes by their identifiers, or all of them.
  ///
  /// A request that the cache can serve wholly gives the cached nodes. Any other gives only the
  /// nodes that were read from the store, and the cached ones count as not found.
  /// @param theNotFoundIDs what was not delivered; of a request of more than 50 identifiers,
  ///        what the last batch did not deliver.
  /// @param toGetInterfaces has no effect.
  /// @param isQRMID the identifiers are legacy identifiers.
  /// @param getAllNodes ignores theNodeIDs; only then ipLevel and aRD restrict the result.
  /// Errors: ZN_API_EMPTY_OBJID_LIST for no identifiers.
  OwnedNodeList getNodesByObjIDList(const ObjIDSet& theNodeIDs, ObjIDSet& theNotFoundIDs,
                                    ZNTopoAPIStatus& theStatus, bool toGetInterfaces, bool isQRMID,
                                    bool getAllNodes, ZNEntity::IPLevel ipLevel, int aRD);
  /// The one node of a text: an identifier, an IPv4 address, a name with a full stop, an IPv6
  /// address, or else the beginning of a name.
  ///
  /// Without a route distinguisher an address is looked for among the public IPv4 addresses and
  /// the IPv6 addresses, with one among the private ones of that domain. The text goes into
  /// statements unescaped. Errors: ZN_API_ILLEGAL_INPUT for an empty text,
  /// ZN_API_OBJ_NOT_EXIST, ZN_API_NONUNIQUE_NAME.
  ZNRefPtr<ZNNode> getNodeByName(const std::string& theName, ZNTopoAPIStatus& theStatus, int theRD);
  /// The nodes of an identifier, or of a pattern of names or IPv4 addresses, with "*" and "?": a
  /// text with a letter in it is one of names. It goes into a filter document as it stands, which
  /// is parsed as by ParseXmlString(), with the name "op1"; so "<" and "&" have to be escaped.
  /// @param theRD the route distinguisher of addresses, unless it is below 0.
  /// Errors: ZN_API_ILLEGAL_INPUT for an empty text, ZN_API_EMPTY_OBJID_LIST if nothing fits,
  /// ZN_API_OBJ_NOT_EXIST if what fits can't be read, and those of ParseAndGetNodesByTopoFilter().
  OwnedNodeList getNodesByRXName(const std::string& theName, ZNTopoAPIStatus& theStatus, int theRD);
  /// A null handle, always; use getNodeByName(). The status stays as it is.
  ZNRefPtr<ZNNode> getNodeByMmgtAddr(const std::string& theIP, int theRD,
                                     ZNTopoAPIStatus& theStatus);
  /// @}

  /// @name Interfaces
  /// @{
  /// ZN_API_INVALID_ID for a null identifier and for whatever else goes wrong.
  ZNRefPtr<ZNInterface> getInterfaceByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  /// Interfaces by their identifiers, or all that have a layer-2 connection. Cached ones come
  /// first. Of a request of more than 50 identifiers, theNotFoundIDs is that of the last batch.
  /// Errors: ZN_API_EMPTY_OBJID_LIST.
  OwnedInterfaceList getInterfacesByObjIDList(const ObjIDSet& theIFIDs, ObjIDSet& theNotFoundIDs,
                                              ZNTopoAPIStatus& theStatus, bool isQRMID,
                                              bool getAllConnectedInterfaces);
  /// The first interface of a name on a node, or of a description on any node.
  /// Errors: ZN_API_ILLEGAL_INPUT, ZN_API_OBJ_NOT_EXIST, ZN_API_INVALID_ID.
  ZNRefPtr<ZNInterface> getInterfaceByIfName(const std::string& theName,
                                             const std::string& theNodeName,
                                             ZNTopoAPIStatus& theStatus);
  /// The first interface that owns an IPv4 address: the public one without a route
  /// distinguisher. Errors: ZN_API_ILLEGAL_INPUT, ZN_API_OBJ_NOT_EXIST, ZN_API_INVALID_ID.
  ZNRefPtr<ZNInterface> getInterfaceByIPV4(const std::string& theIP, ZNTopoAPIStatus& theStatus,
                                           int theRD);
  /// @}

  /// @name Addresses
  /// @{
  /// Errors: ZN_API_INVALID_ID for a null or unknown identifier.
  ZNRefPtr<ZNAddress> getAddressByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  /// Addresses by their identifiers, cached ones first; or all of a type.
  /// Errors: ZN_API_EMPTY_OBJID_LIST, ZN_API_INVALID_ID.
  OwnedAddressVector getAddrsByObjIDs(const std::list<ObjID>& theAddrObjIDs,
                                      ZNTopoAPIStatus& theStatus, bool getAllAddresses,
                                      ZNAddress::AddressType addrType);
  ZNRefPtr<ZNAddress> getAddressByQRMObjID(const ObjID& theQRMObjID, ZNTopoAPIStatus& theStatus);
  /// As getAddressByObjID(); ZN_API_INVALID_ID for an address that is not a monitored one.
  ZNRefPtr<MonitoredInetAddressIPv6> getMonitoredIPv6AddressByObjID(const ObjID& theObjID,
                                                                    ZNTopoAPIStatus& theStatus);
  ZNRefPtr<MonitoredInetAddressIPv6> getMonitoredIPv6AddressByQRMObjID(const ObjID& theQRMObjID,
                                                                       ZNTopoAPIStatus& theStatus);
  /// The IPv6 addresses whose DNS name fits a pattern of the store's "like".
  OwnedIDList getInetAddressIPv6IDsFromDNSExpression(const std::string& theExpression,
                                                     ZNTopoAPIStatus& theStatus);
  /// The DNS names of an IPv6 address. Errors: ZN_API_INVALID_ID for a null identifier.
  std::unique_ptr<std::list<std::string>> resolveIPv6ToDNS(const ObjID& theObjID,
                                                           ZNTopoAPIStatus& theStatus);
  /// The first address of a text. Errors: ZN_API_ILLEGAL_INPUT, ZN_API_OBJ_NOT_EXIST.
  ZNRefPtr<ZNAddress> getAddressByIP(const std::string& theIP, ZNTopoAPIStatus& theStatus,
                                     int theRD);
  /// @}

  /// @name Subnets
  /// Rows of nwentity of EntityType 7, each with its user variables, the identifiers of its
  /// addresses, and its end points: the rows of address whose SubnetObjID it is, with the interface
  /// and the NodeObjID of that. The cache is looked at and not offered what is read.
  /// @{
  /// A subnet of any IP level. If its end points could not be read it comes without them, with the
  /// status of that. Errors: ZN_API_INVALID_ID for a null identifier, and for one that names no
  /// subnet.
  ZNRefPtr<ZNSubnet> getSubnetByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  /// Subnets by their identifiers, or all of them. Cached ones come first; what is not found is
  /// just not there.
  /// @param isQRMID the identifiers are legacy ones (QRMObjID); the store is always read.
  /// @param getAllSubnets ignores theSubnetIDs; only then ipLevel (any but IPv4 and IPv6 for both)
  ///        and aRD (below 0 for any) restrict the result.
  /// Errors: ZN_API_EMPTY_OBJID_LIST for no identifiers.
  OwnedSubnetList getSubnetsByObjIDList(const ObjIDSet& theSubnetIDs, ZNTopoAPIStatus& theStatus,
                                        bool isQRMID, bool getAllSubnets, ZNEntity::IPLevel ipLevel,
                                        int aRD);
  /// As getSubnetByObjID(), by the legacy identifier.
  ZNRefPtr<ZNSubnet> getSubnetByQRMObjID(const ObjID& theQRMObjID, ZNTopoAPIStatus& theStatus);
  /// @}

  /// @name VLANs, containers and HSRP groups
  /// One by its identifier, some by a list, or all of a kind.
  ///
  /// A list is taken from the cache as far as that goes, cached ones first, and the rest is read
  /// and cached; theNotFoundIDs is then replaced by what was asked for and is not there, objects
  /// of another kind among it, and left as it is if the cache had all. With getAll... the
  /// identifiers and theNotFoundIDs are not looked at. All that were read once, and of which none
  /// has left the cache since, are served from it, whatever aRD says; else those of the route
  /// distinguisher aRD are read, or of any with one below 0. A request that is limited in this way
  /// marks the kind as read, too: ask for all first if you need both.
  ///
  /// When a part of the objects can't be read they come back without it, with the status of that,
  /// and are not cached. Errors of the lists: ZN_API_EMPTY_OBJID_LIST for no identifiers.
  /// @{
  /// The errors are those of the list, and ZN_API_INVALID_ID for an identifier that names no VLAN.
  ZNRefPtr<ZNVlan> getVlanByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  /// Rows of nwentity of EntityType 4, with the interfaces that containment names for them. All
  /// VLANs are those of IPLevel 4. Loaded all at once a VLAN has its user variables, but
  /// ZNVlan::getVlanID() is null: read the variable "VlanId".
  OwnedVlanList getVlansByObjIDList(const ObjIDSet& theObjIDs, ObjIDSet& theNotFoundIDs,
                                    ZNTopoAPIStatus& theStatus, bool getAllVlans, int aRD);
  /// The errors are those of the list, and ZN_API_INVALID_ID for an identifier that names no
  /// container.
  ZNRefPtr<ZNIfc> getIfcByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus);
  /// Rows of nwifc, with their members (nwifcctm) and their associations, whichever end of one they
  /// are (nwifcasc). Each container costs two statements. They have no user variables, and
  /// ZNIfc::willCleanUpIfEmpty() is false: no column holds it.
  OwnedIfcList getIfcsByObjIDList(const ObjIDSet& theObjIDs, ObjIDSet& theNotFoundIDs,
                                  ZNTopoAPIStatus& theStatus, bool getAll, int aRD);
  /// The containers of a type (nwifc, column IFCType). Served from the cache if all containers are
  /// there, whatever aRD says; else read, and not cached.
  OwnedIfcList getIfcsByType(const int& theIfcType, ZNTopoAPIStatus& theStatus, int aRD);
  /// What containers hold (nwifcctm), by node (useNodeAsKey) or by container, read from the store
  /// whether that is ready or not. Identifiers without members have no entry; no identifiers give
  /// an empty map, unless getAll asks for the whole table.
  /// @param IFCType containers of this type alone; of any with 0.
  OwnedIfcInfoMap getIfcInfosByObjIDList(const ObjIDSet& theObjIDs, ZNTopoAPIStatus& theStatus,
                                         bool useNodeAsKey, bool getAll, int IFCType);
  /// Rows of nwentity of EntityType 11, with their user variables and members (hsrpaddress). All
  /// groups are those of IPLevel 4.
  OwnedHSRPList getHSRPsByObjIDList(const ObjIDSet& theObjIDs, ObjIDSet& theNotFoundIDs,
                                    ZNTopoAPIStatus& theStatus, bool getAllHSRPs, int aRD);
  /// The HSRP groups (hsrpaddress, column ObjID) that an address (AddressID) or an interface
  /// (AddressIfObjID) is a member of, read from the store whether that is ready or not. Groups
  /// can't be asked for by an interface that they track: with HSRP_TrackInterface the store
  /// refuses, with ZN_API_SQL_BIND_STATEMENT_ERROR or ZN_API_SQL_EXEC_ERROR.
  OwnedIDList getHSRPObjIDsByIFAddressObjID(const ObjID& theObjID,
                                            GetHSRPObjIDsByIFAddressObjID_ObjType objType,
                                            ZNTopoAPIStatus& theStatus);
  /// @}

  /// @name Attribute filters
  /// Identifiers of what has all attributes of a filter; each operation reads the fields that its
  /// comment names and no other. Texts are patterns of the store's "like", with "%" and "_" of the
  /// caller's own, and go into the statement as they stand: escape quotes in them. A statement that
  /// the store does not take ends in ZN_API_SQL_BIND_STATEMENT_ERROR or ZN_API_SQL_EXEC_ERROR.
  /// Paging is not carried out: the batch is not looked at.
  /// @{
  /// Nodes, by IP level, by name or description (the name, if it is not empty), and by the
  /// capabilities (columns of nwnode) of which they have at least one.
  ///
  /// With the address type ZNAddress::IPv4 and an address that is not empty: the owners of the
  /// interfaces with this address (address.V4Address), whatever else is set, one for each
  /// interface. Capabilities beside an address end in a failed statement. Errors:
  /// ZN_API_DB_NOT_READY.
  OwnedIDList getNodeIDsByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus,
                                 BatchInfo* theBatch = nullptr);
  /// The first node of getNodeIDsByFilter() and no more, in a list.
  /// Errors: those of getNodesByObjIDList(); ZN_API_EMPTY_OBJID_LIST stands for no node and for
  /// every failure of the filter's statement.
  OwnedNodeList getNodesByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus,
                                 BatchInfo* theBatch = nullptr);
  /// Subnets that have an address of their own (address.ObjId), by IP level, by name or
  /// description, and by the scope of that address. Does not ask for readiness.
  OwnedIDList getSubnetIDsByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus,
                                   BatchInfo* theBatch = nullptr);
  /// Addresses other than those of subnets, by scope, type, IP level, text (address.V4Address or
  /// V6Address, as the type says) and prefix: a prefix address and a length are compared with the
  /// bits of IPv6 addresses (address.V6AddressBS).
  /// Errors: ZN_API_DB_NOT_READY.
  OwnedIDList getAddressIDsByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus,
                                    BatchInfo* theBatch = nullptr);
  /// Entities (nwentity), by IP level, kind and name. A filter without any of these ends in a
  /// failed statement. Does not ask for readiness.
  OwnedIDList getEntityIDsByFilter(const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus,
                                   BatchInfo* theBatch = nullptr);
  /// @}

  /// @name Connectivity
  /// @{
  /// The layer-2 connections within numHops of a node, each once.
  /// Errors: those of getNodeByName(), ZN_API_INVALID_NUM_HOPS for 0 and less,
  /// ZN_API_INCOMPLETE_NEIGHBOR_INFO with a partial list when maxNumNodes nodes are reached.
  OwnedConnectionList getNodeNeighbors(const std::string& theNodeName, ZNTopoAPIStatus& theStatus,
                                       int numHops, int maxNumNodes);
  /// The interfaces that a frame crosses from one address to another.
  /// @param theMaxDepth how many links at most.
  /// @param toCrossRouter whether the way may pass through a router.
  /// Errors: ZN_API_UNKNOWN_IP, ZN_API_NO_PATH, ZN_API_PATH_PROCESSING_ERROR.
  OwnedInterfaceList getL2Path(const std::string& srcIP, const std::string& destIP, int theMaxDepth,
                               ZNTopoAPIStatus& theStat, ZNAddress::AddressType addrType,
                               bool toCrossRouter);
  /// The same between two nodes, for the first pair of connected interfaces that has a path.
  /// Errors: ZN_API_OBJ_NOT_EXIST, ZN_API_NO_PATH, ZN_API_PATH_PROCESSING_ERROR.
  OwnedInterfaceList getL2PathBetweenNodes(const std::string& srcNodeName,
                                           const std::string& destNodeName, int theMaxDepth,
                                           ZNTopoAPIStatus& theStat,
                                           ZNAddress::AddressType addrType, bool toCrossRouter);
  /// The links between the interfaces of a path.
  /// Errors: ZN_API_PATH_PROCESSING_ERROR for an empty path.
  OwnedConnDataVector convertPathInterfaceListToConnDataList(
      const std::list<ZNRefPtr<ZNInterface>>& ifList, ZNTopoAPIStatus& theStat);
  /// The identifiers of the subnets within theNumHops subnet hops of an IPv6 node, in their order:
  /// those of the IPv6 addresses on its interfaces are one hop away, those of the nodes that have
  /// an end point in these are two.
  ///
  /// A subnet that does not pass the filter is neither delivered nor crossed. Of the filter the
  /// IP level and the scope of IPv6 addresses are looked at, and nothing else. What can't be read
  /// on the way shortens the result, and the status does not tell. The batch is not looked at.
  /// @param theNumHops at least 1.
  /// Errors: ZN_API_INVALID_ID for a null or unknown node, ZN_API_INVALID_NUM_HOPS,
  /// ZN_API_NON_V6_NODE for a node whose IP level (nwnode.IPLevel) is not 6.
  OwnedIDList getNSubnetConnectivity(int theNumHops, const ObjID& theStartNodeID,
                                     const ZNTopoFilter& theFilter, ZNTopoAPIStatus& theStatus,
                                     BatchInfo* theBatch = nullptr);
  /// The layer-2 connections around a set of nodes, one hop out, each once.
  ///
  /// The nodes are those that getNodesByObjIDList() gives, and theNotFoundIDs is what it leaves
  /// out. The walk stops when it has met 200 nodes; the list is shorter then, and the status does
  /// not tell.
  /// @param includeHopNodeFlag if false, only the connections between the nodes of the set.
  /// @param isQRMID the identifiers are legacy identifiers.
  /// Errors: ZN_API_EMPTY_OBJID_LIST, ZN_API_INVALID_ID if none of the nodes is there.
  OwnedConnectionList getConnectivity(const ObjIDSet& theNodeIdList, ObjIDSet& theNotFoundIDs,
                                      ZNTopoAPIStatus& theStat, bool includeHopNodeFlag,
                                      bool isQRMID);
  /// @}

  /// @name XML filters
  /// A facade knows the filters of all documents that it has parsed; one of a name that is known
  /// already replaces the other in silence. Parsing is for one thread at a time, and no query of a
  /// filter may run on the facade meanwhile; else threads may share it, if they ask for filters
  /// that are there. Every query runs its filter on the active tables, whatever the facade's set.
  /// @{
  /// Load the filters of a document, which stay as long as this instance: of the default file
  /// TopoFilters.xml of the filter configuration directory, of a file, of a text. A filter of a
  /// name that is known already is replaced. Of a document that is not valid, or can't be
  /// transformed, nothing is loaded; other failures may leave some of its filters. A status is only
  /// touched by a failure.
  int ParseDefaultFile(ZNTopoAPIStatus& theStatus);
  int ParseXmlFile(const std::string& aFileName, ZNTopoAPIStatus& theStatus);
  int ParseXmlString(const std::string& aXmlString, ZNTopoAPIStatus& theStatus);
  /// The names of the filters loaded from any document. Every name comes with (E_Node, "").
  std::map<std::string, std::pair<EntityType, std::string>> getDefaultFileFilterName(
      ZNTopoAPIStatus& theStatus);
  /// The identifiers of the nodes or interfaces that a filter selects, or of the owners of the
  /// addresses (address.ObjId). The four do the same: none looks at what the filter selects, or at
  /// the store's readiness.
  /// Errors: ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR, ZN_API_INTERNAL_ERROR without a connection,
  /// ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_BIND_COLUMN_ERROR, ZN_API_SQL_EXEC_ERROR.
  OwnedIDList getNodeIDsByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getInterfaceIDsByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getAddresseIDsByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedIDList getObjIDsByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  /// The nodes or interfaces that a filter selects, as getNodesByObjIDList() and
  /// getInterfacesByObjIDList() give them: of nodes, if the cache has some and not all, those in
  /// the cache are missing.
  /// Errors: those of the identifiers; ZN_API_EMPTY_OBJID_LIST if nothing is selected;
  /// ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR for a filter that selects something else, which
  /// is told after it ran.
  OwnedNodeList getNodesByTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  OwnedInterfaceList getInterfacesByTopoFilter(const std::string& aFilter,
                                               ZNTopoAPIStatus& theStatus);
  /// Finds nothing, on any store whose identifiers are unique: it asks for addresses by the
  /// identifiers of their owners. Take getAddressesOfTopoFilter().
  /// Errors: as for nodes.
  OwnedAddressVector getAddressesByTopoFilter(const std::string& aFilter,
                                              ZNTopoAPIStatus& theStatus);
  /// The same of a filter in a document, which is parsed first, as by ParseXmlString(). What the
  /// filter selects is not looked at.
  OwnedNodeList ParseAndGetNodesByTopoFilter(const std::string& aXmlString,
                                             const std::string& aFilter,
                                             ZNTopoAPIStatus& theStatus);
  OwnedInterfaceList ParseAndGetInterfacesByTopoFilter(const std::string& aXmlString,
                                                       const std::string& aFilter,
                                                       ZNTopoAPIStatus& theStatus);
  OwnedAddressVector ParseAndGetAddressesByTopoFilter(const std::string& aXmlString,
                                                      const std::string& aFilter,
                                                      ZNTopoAPIStatus& theStatus);
  /// The identifiers of the addresses that a filter selects (address.AddressId), each once and in
  /// their order.
  /// Errors: ZN_API_DB_NOT_READY, ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR for a filter that
  /// does not select addresses, and those of getObjIDsByTopoFilter().
  OwnedIDList getAddressIDsOfTopoFilter(const std::string& aFilter, ZNTopoAPIStatus& theStatus);
  /// The addresses that a filter selects; an empty list, without an error, if it selects none.
  /// Errors: those of getAddressIDsOfTopoFilter() and getAddrsByObjIDs().
  OwnedAddressVector getAddressesOfTopoFilter(const std::string& aFilter,
                                              ZNTopoAPIStatus& theStatus);
  /// @}

 protected:
  ZNTopoAPI_Impl* getImpl() const { return _impl; }

 private:
  ZNTopoAPI& operator=(const ZNTopoAPI&) = delete;

  ZNTopoAPI_Impl* _impl;
};

}  // namespace zntopo

/// "NT": the platform that this build counts as.
extern "C" ZNTOPO_EXPORT const char* _TVgetURL_OS();
/// 0: the number of the consolidated patch.
extern "C" ZNTOPO_EXPORT int _TVgetConsolidatedPatchNum();
