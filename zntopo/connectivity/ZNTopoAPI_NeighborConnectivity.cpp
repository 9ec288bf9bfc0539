// The walk over the layer-2 connections around nodes.

#include <string>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/connectivity/detail/Walks.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

namespace {

using NodeList = std::list<ZNRefPtr<ZNNode>>;
using ConnectionList = std::list<ZNConnection>;
using detail::farEnd;
using detail::shown;

/// What one walk keeps while it crosses its rings.
struct Walk {
  std::set<ObjID> theNodeSet;                // every node admitted so far
  std::set<ObjID> theProcessedSet;           // nodes whose connections have been walked
  std::set<ObjID> theNodesInConnectionList;  // both ends of what was reported
  std::unique_ptr<ConnectionList> theConnectionList = std::make_unique<ConnectionList>();
};

void logNotAvailable(const ZNConnData& data) {
  MCLog::log(MC_MAJOR, "SrcNodeID - %s, DestNodeID - %s \n",
             shown(MC_MAJOR, data.getSrcNodeObjID()).c_str(),
             shown(MC_MAJOR, data.getDestNodeObjID()).c_str());
  MCLog::log(MC_MAJOR, "SrcInt %s or DstInt %s Not available from Connection !\n",
             shown(MC_MAJOR, data.getSrcInterfaceObjID()).c_str(),
             shown(MC_MAJOR, data.getDestInterfaceObjID()).c_str());
}

/// True if both ends are interfaces of two different nodes.
bool isReportable(const ZNConnData& data) {
  return !data.getSrcInterfaceObjID().isNull() && !data.getDestInterfaceObjID().isNull() &&
         data.getSrcNodeObjID() != data.getDestNodeObjID();
}

/// Reports a connection; true if the ceiling is reached with it, which it is at equality.
bool report(Walk& walk, const ZNConnData& data, int maxNumNodes) {
  walk.theConnectionList->push_back(ZNConnection(data));
  MCLog::log(MC_INFO, "ConnData = (%s,%s,%s,%s) \n",
             shown(MC_INFO, data.getDestInterfaceObjID()).c_str(),
             shown(MC_INFO, data.getDestNodeObjID()).c_str(),
             shown(MC_INFO, data.getSrcInterfaceObjID()).c_str(),
             shown(MC_INFO, data.getSrcNodeObjID()).c_str());
  insertObjID(walk.theNodesInConnectionList, data.getSrcNodeObjID());
  insertObjID(walk.theNodesInConnectionList, data.getDestNodeObjID());
  // Unsigned on purpose: a negative ceiling is none.
  const auto count = static_cast<unsigned>(walk.theNodesInConnectionList.size());
  if (count < static_cast<unsigned>(maxNumNodes)) return false;
  MCLog::log(MC_INFO, "theNodesInConnectionList  = %d  > maxNumNodes = %d\n",
             static_cast<int>(count), maxNumNodes);
  return true;
}

/// Takes one record of a node; true if the ceiling is reached with it.
bool walkRecord(Walk& walk, const ZNConnData& data, int maxNumNodes) {
  const ObjID& theFarEnd = farEnd(data);
  // The other end of a link that was reported from there.
  if (containsObjID(walk.theProcessedSet, theFarEnd)) {
    MCLog::log(MC_INFO, "%s has been processed\n", shown(MC_INFO, theFarEnd).c_str());
    return false;
  }
  if (data.getSrcNodeObjID().isNull() || data.getDestNodeObjID().isNull()) return false;
  if (!containsObjID(walk.theNodeSet, data.getSrcNodeObjID()) ||
      !containsObjID(walk.theNodeSet, data.getDestNodeObjID())) {
    return false;
  }
  if (isReportable(data)) return report(walk, data, maxNumNodes);
  logNotAvailable(data);
  return false;
}

/// Walks the connections of one node; true if the ceiling is reached on the way.
bool walkNode(Walk& walk, const ZNNode& node, int maxNumNodes) {
  const std::vector<ZNRefPtr<ZNConnData>>& theConnData = node.getConnDataList();
  MCLog::log(MC_INFO, "Processing L2Conn for Node = %s, ConnDataSize = %d \n",
             shown(MC_INFO, node.getObjID()).c_str(), static_cast<int>(theConnData.size()));
  bool exceeded = false;
  for (const ZNRefPtr<ZNConnData>& data : theConnData) {
    if (exceeded) break;
    if (!data.isNull()) exceeded = walkRecord(walk, *data, maxNumNodes);
  }
  MCLog::log(MC_INFO, " NodeID : %s has been processed \n",
             shown(MC_INFO, node.getObjID()).c_str());
  insertObjID(walk.theProcessedSet, node.getObjID());
  return exceeded;
}

/// Walks a ring in its order; true if the ceiling is reached on the way.
bool walkRing(Walk& walk, const NodeList& ring, int maxNumNodes) {
  MCLog::log(MC_INFO, "Processing List size = %d \n", static_cast<int>(ring.size()));
  bool exceeded = false;
  for (const ZNRefPtr<ZNNode>& node : ring) {
    if (exceeded) break;
    if (!node.isNull()) exceeded = walkNode(walk, *node, maxNumNodes);
  }
  return exceeded;
}

/// Lets the outermost ring's own connections be walked in the last hop: links between two nodes
/// of it would never be seen otherwise.
void appendEdgeNodes(NodeList& processingList, const NodeList& newNodeList, int hop) {
  MCLog::log(MC_INFO, "In last hop : hopno = %d \n", hop);
  for (const ZNRefPtr<ZNNode>& node : newNodeList) {
    if (node.isNull()) {
      MCLog::log(MC_CRITICAL, "NULL NODE!! \n");
      continue;
    }
    MCLog::log(MC_INFO, "Adding edge Node = %s to Processing List \n",
               shown(MC_INFO, node->getObjID()).c_str());
    processingList.push_back(node);
  }
}

std::set<ObjID> idsOf(const NodeList& nodes) {
  std::set<ObjID> ids;
  for (const ZNRefPtr<ZNNode>& node : nodes) {
    if (!node.isNull()) insertObjID(ids, node->getObjID());
  }
  return ids;
}

/// The far ends of a ring's connections that are neither admitted nor in the ring itself.
std::set<ObjID> farEndsBeyond(const NodeList& ring, const std::set<ObjID>& admitted) {
  const std::set<ObjID> theRingIDs = idsOf(ring);
  std::set<ObjID> theNewNodeObjIDSet;
  for (const ZNRefPtr<ZNNode>& node : ring) {
    if (node.isNull()) continue;
    const std::vector<ZNRefPtr<ZNConnData>>& theConnData = node->getConnDataList();
    MCLog::log(MC_INFO, "theConnDataList %d \n", static_cast<int>(theConnData.size()));
    for (const ZNRefPtr<ZNConnData>& data : theConnData) {
      if (data.isNull()) continue;
      const ObjID& id = farEnd(*data);
      if (id.isNull() || containsObjID(admitted, id) || containsObjID(theRingIDs, id)) continue;
      insertObjID(theNewNodeObjIDSet, id);
      MCLog::log(MC_INFO, "Node to add to newNodeList : %s\n", shown(MC_INFO, id).c_str());
    }
  }
  return theNewNodeObjIDSet;
}

}  // namespace

ZNTopoAPI_Impl::OwnedConnectionList ZNTopoAPI_Impl::getNodeNeighbors(const std::string& theNodeName,
                                                                     ZNTopoAPIStatus& theStatus,
                                                                     int numHops, int maxNumNodes) {
  const detail::OperationScope scope("getNodeNeighbors");
  theStatus.reset();
  auto theList = std::make_unique<ConnectionList>();
  MCLog::log(MC_INFO, "Number of hop = %d \n", numHops);
  MCLog::log(MC_INFO, "Max number of nodes = %d \n", maxNumNodes);
  if (!validate(theStatus)) {
    MCLog::log(MC_INFO, "Topology is not ready ! \n");
    return theList;
  }
  if (numHops <= 0) {
    MCLog::log(MC_INFO, "Number of hop <= 0 \n");
    theStatus.setStatus(ZN_API_INVALID_NUM_HOPS);
    return theList;
  }
  const ZNRefPtr<ZNNode> theNode = getNodeByName(theNodeName, theStatus, -1);
  if (!theStatus.isOK()) {
    MCLog::log(MC_INFO, "Fail to get Node name : %s \n", theNodeName.c_str());
    return theList;
  }
  if (theNode.isNull()) {
    detail::setFailure(theStatus, ZN_API_INVALID_ID, "Invalid start node ID");
    return theList;
  }
  bool maxNodesExceeded = false;
  theList = getNeighbors2({theNode}, numHops, maxNumNodes, maxNodesExceeded, true);
  if (maxNodesExceeded) {
    detail::setFailure(theStatus, ZN_API_INCOMPLETE_NEIGHBOR_INFO,
                       "Neighbor processing returns more than specified maximum number of nodes");
  }
  return theList;
}

ZNTopoAPI_Impl::OwnedConnectionList ZNTopoAPI_Impl::getNeighbors2(const NodeList& theNodeList,
                                                                  int numHops, int maxNumNodes,
                                                                  bool& maxNodesExceeded,
                                                                  bool theUpdateFlag) {
  const detail::OperationScope scope("getNeighbors2");
  Walk walk;
  MCLog::log(MC_INFO, "Number of elements in theNodeList %d \n",
             static_cast<int>(theNodeList.size()));
  if (theNodeList.empty()) return std::move(walk.theConnectionList);

  walk.theNodeSet = idsOf(theNodeList);
  auto processingList = std::make_unique<NodeList>(theNodeList);
  for (int i = 0; i < numHops && !maxNodesExceeded; ++i) {
    MCLog::log(MC_TRACE_L2, "No Hop In Processing = %d \n", i);
    if (processingList->empty()) {
      MCLog::log(MC_INFO, "processingList is empty \n");
      break;
    }
    auto newNodeList = std::make_unique<NodeList>();
    if (theUpdateFlag) {
      newNodeList = createNewNodeList(*processingList, walk.theNodeSet);
      MCLog::log(MC_INFO, "NUMBER OF NODES IN NEW NODE LIST = %d \n",
                 static_cast<int>(newNodeList->size()));
      if (i == numHops - 1 && !newNodeList->empty()) {
        appendEdgeNodes(*processingList, *newNodeList, i);
      }
    }
    maxNodesExceeded = walkRing(walk, *processingList, maxNumNodes);
    processingList = std::move(newNodeList);
  }
  return std::move(walk.theConnectionList);
}

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::createNewNodeList(const NodeList& theProcList,
                                                                std::set<ObjID>& theSet) {
  const detail::OperationScope scope("createNewNodeList");
  MCLog::log(MC_TRACE_L2, "theProcList %d \n", static_cast<int>(theProcList.size()));
  const std::set<ObjID> theNewNodeObjIDSet = farEndsBeyond(theProcList, theSet);

  auto theNewNodeList = std::make_unique<NodeList>();
  if (!theNewNodeObjIDSet.empty()) {
    // A failure stays here: the walk goes on with what came back.
    ZNTopoAPIStatus myStat;
    std::set<ObjID> notFoundSet;
    theNewNodeList = getNodesByObjIDList(theNewNodeObjIDSet, notFoundSet, myStat, false, false,
                                         false, ZNEntity::AllProtocol, -1);
    if (!myStat.isOK()) {
      MCLog::log(MC_CRITICAL, "Fail in  getNodesByObjIDList(),%s:%s\n ", myStat.getAuxMsg().c_str(),
                 myStat.getStatusMsg().c_str());
    }
  }

  std::string theNextIDs;
  for (const ZNRefPtr<ZNNode>& node : *theNewNodeList) {
    if (node.isNull()) {
      MCLog::log(MC_CRITICAL, "FOUND NULL POINTER IN LIST OF NODES! \n");
      continue;
    }
    insertObjID(theSet, node->getObjID());
    if (MCLog::isHeard(MC_INFO)) theNextIDs += node->getObjID().getStrValue() + " ";
  }
  MCLog::log(MC_INFO, "Next level of ObjIDs : %s \n", theNextIDs.c_str());
  return theNewNodeList;
}

bool ZNTopoAPI_Impl::processedNode(const ObjID& theObjID, const std::set<ObjID>& theSet) {
  return containsObjID(theSet, theObjID);
}

}  // namespace zntopo
