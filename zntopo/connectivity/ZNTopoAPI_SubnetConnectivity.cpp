// What lies around given nodes: their layer-2 connections, and the subnets within so many hops.

#include <map>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo {

namespace {

using NodeList = std::list<ZNRefPtr<ZNNode>>;
using NodeMap = std::map<ObjID, ZNRefPtr<ZNNode>>;
using detail::shown;

/// getConnectivity() looks one hop out and stops at this many nodes.
constexpr int kConnectivityHops = 1;
constexpr int kConnectivityNodes = 200;

/// Calls visit() with the subnet of each IPv6 address of an interface; it may be null.
template <typename Visit>
void visitSubnetsOf(const ZNInterface& interface, const Visit& visit) {
  MCLog::log(MC_INFO, "Processing Interface: %s \n", shown(MC_INFO, interface.getObjID()).c_str());
  for (const ZNRefPtr<ZNAddress>& address : interface.getAddresses()) {
    if (address.isNull()) continue;
    MCLog::log(MC_INFO, "Processing Address: %s \n",
               shown(MC_INFO, address->getAddressID()).c_str());
    if (address->getAddressType() != ZNAddress::IPv6) continue;
    MCLog::log(MC_INFO, "HAVE IPV6 ADDRESS \n");
    const ZNRefPtr<InetAddressIPv6> ipv6 = ZNRefPtrConversion::Address2IPv6(address);
    if (!ipv6.isNull()) visit(ipv6->getSubnetObjID());
  }
}

/// The same for all interfaces of the nodes.
template <typename Visit>
void visitSubnetsOf(const NodeList& nodes, const Visit& visit) {
  for (const ZNRefPtr<ZNNode>& node : nodes) {
    MCLog::log(MC_INFO, "Processing Node: %s \n", shown(MC_INFO, node->getObjID()).c_str());
    for (const ZNRefPtr<ZNInterface>& interface : node->getInterfaceList()) {
      if (!interface.isNull()) visitSubnetsOf(*interface, visit);
    }
  }
}

}  // namespace

ZNTopoAPI_Impl::OwnedConnectionList ZNTopoAPI_Impl::getConnectivity(const ObjIDSet& theNodeIdList,
                                                                    ObjIDSet& theNotFoundIDs,
                                                                    ZNTopoAPIStatus& theStat,
                                                                    bool includeHopNodeFlag,
                                                                    bool isQRMID) {
  const detail::OperationScope scope("getConnectivity");
  theStat.reset();
  auto theList = std::make_unique<std::list<ZNConnection>>();
  if (theNodeIdList.empty()) {
    detail::setFailure(theStat, ZN_API_EMPTY_OBJID_LIST,
                       "The Node ID List is empty for getConnectivity()");
    return theList;
  }
  if (!validate(theStat)) {
    MCLog::log(MC_CRITICAL, "Topology is not ready\n");
    return theList;
  }
  const auto theNodes = getNodesByObjIDList(theNodeIdList, theNotFoundIDs, theStat, false, isQRMID,
                                            false, ZNEntity::AllProtocol, -1);
  if (!theStat.isOK()) {
    MCLog::log(MC_INFO, " getNodesByObjIDList() call fail ! \n");
    return theList;
  }
  if (theNodes->empty()) {
    detail::setFailure(theStat, ZN_API_INVALID_ID,
                       "Unable to find any nodes associated with the entered Node Id List");
    return theList;
  }
  // Nobody is told that the ceiling was reached: the list is shorter then.
  bool exceeded = false;
  return getNeighbors2(*theNodes, kConnectivityHops, kConnectivityNodes, exceeded,
                       includeHopNodeFlag);
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getNSubnetConnectivity(int theNumHops,
                                                                   const ObjID& theStartNodeID,
                                                                   const ZNTopoFilter& theFilter,
                                                                   ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getNSubnetConnectivity");
  theStatus.reset();
  auto theList = std::make_unique<std::list<ObjID>>();
  if (theStartNodeID.isNull()) {
    detail::setFailure(theStatus, ZN_API_INVALID_ID,
                       "Null Node Object ID Entered in getNSubnetConnectivity()");
    return theList;
  }
  if (theNumHops <= 0) {
    detail::setFailure(theStatus, ZN_API_INVALID_NUM_HOPS,
                       "Number of Hops specific <= 0 in getNSubnetConnectivity()");
    return theList;
  }
  if (!validate(theStatus)) return theList;

  const ZNRefPtr<ZNNode> theNode = getNodeByObjID(theStartNodeID, theStatus);
  if (!theStatus.isOK() || theNode.isNull()) {
    detail::setFailure(theStatus, ZN_API_INVALID_ID,
                       "Unable to obtain Node for Entered Node ID in getSubnetConnectivity()");
    return theList;
  }
  if (theNode->getIPLevel() != ZNEntity::IPv6) {
    detail::setFailure(
        theStatus, ZN_API_NON_V6_NODE,
        "Unable to caculate subnet NHops for non-IPV6 Node in getSubnetConnectivity()");
    return theList;
  }
  getSubnetConnectivity(theList, theNumHops, theNode, theFilter);
  return theList;
}

void ZNTopoAPI_Impl::getSubnetConnectivity(OwnedIDList& theList, int theNumHops,
                                           const ZNRefPtr<ZNNode>& theStartNode,
                                           const ZNTopoFilter& theFilter) {
  const detail::OperationScope scope("getSubnetConnectivity");
  if (!theList) theList = std::make_unique<std::list<ObjID>>();
  if (theStartNode.isNull()) return;

  NodeMap theNodeMap = {{theStartNode->getObjID(), theStartNode}};
  NodeList theProcessingList = {theStartNode};
  // The subnets of all hops so far; the next ring of nodes is drawn from all of them, and the map
  // keeps out those that were walked.
  ObjIDSet theSubnetIDSet;
  MCLog::log(MC_INFO, "Number of hops for getSubnetConnectivity: %d \n", theNumHops);
  for (int i = 0; i < theNumHops && !theProcessingList.empty();) {
    visitSubnetsOf(theProcessingList, [&](const ObjID& id) {
      if (!id.isNull() && !containsObjID(theSubnetIDSet, id) &&
          doesSubnetPassFilter(id, theFilter)) {
        insertObjID(theSubnetIDSet, id);
      }
    });
    if (++i < theNumHops) {
      theProcessingList.clear();
      prepareProcessingList(theSubnetIDSet, theProcessingList, theNodeMap);
    }
  }
  theList->insert(theList->end(), theSubnetIDSet.begin(), theSubnetIDSet.end());
}

void ZNTopoAPI_Impl::prepareProcessingList(const ObjIDSet& theSubnetIDSet, NodeList& theNodeList,
                                           NodeMap& theNodeMap) {
  const detail::OperationScope scope("prepareProcessingList");
  for (const ObjID& subnetID : theSubnetIDSet) {
    ZNTopoAPIStatus subnetStatus;
    const ZNRefPtr<ZNSubnet> subnet = getSubnetByObjID(subnetID, subnetStatus);
    if (subnet.isNull()) continue;
    for (const SubnetEndPoint& point : subnet->getSubnetEndPointList()) {
      if (point.getNodeObjID().isNull()) continue;
      // A node whose identifier is of another kind than the first one's has no entry of its own:
      // it shares one with all others, so the walk passes it by instead of meeting it again and
      // again.
      ZNRefPtr<ZNNode>& met = theNodeMap[point.getNodeObjID()];
      if (!met.isNull()) continue;
      // The null entry of a node that can't be read stays, and a later hop tries again.
      ZNTopoAPIStatus nodeStatus;
      const ZNRefPtr<ZNNode> node = getNodeByObjID(point.getNodeObjID(), nodeStatus);
      if (node.isNull() || !nodeStatus.isOK()) continue;
      theNodeList.push_back(node);
      met = node;
    }
  }
}

bool ZNTopoAPI_Impl::doesSubnetPassFilter(const ObjID& theSubnetID, const ZNTopoFilter& theFilter) {
  const detail::OperationScope scope("doesSubnetPassFilter");
  ZNTopoAPIStatus myStat;
  const ZNRefPtr<ZNSubnet> subnet = getSubnetByObjID(theSubnetID, myStat);
  if (subnet.isNull()) return false;
  if (!theFilter.isFieldIgnored(ZNTopoFilter::F_IPLevel) &&
      subnet->getIPLevel() != theFilter.getIPLevel()) {
    return false;
  }
  if (theFilter.isFieldIgnored(ZNTopoFilter::F_V6ScopeType)) return true;
  const InetAddressIPv6::ScopeType scopeType = subnet->getSubnetScopeType();
  if (scopeType == theFilter.getV6ScopeType()) return true;
  MCLog::log(MC_TRACE_L2, "SubnetScopeType = %d \n", static_cast<int>(scopeType));
  MCLog::log(MC_TRACE_L2, "FilterScopeType = %d \n", static_cast<int>(theFilter.getV6ScopeType()));
  return false;
}

}  // namespace zntopo
