// The level-by-level search behind layer-2 paths.

#include <deque>
#include <map>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/connectivity/detail/Walks.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

namespace {

using NodeList = std::list<ZNRefPtr<ZNNode>>;
using DataPath = std::list<ZNRefPtr<ZNConnData>>;
using detail::shown;

/// One level of the search: by which link each node of the next ring was reached.
struct Level {
  const detail::OperationScope scope{"findPath"};
  std::map<ObjID, ZNRefPtr<ZNConnData>> ConnRelatedNodeIDs;

  /// Of several links to one node the last one stays.
  void reach(const ObjID& id, const ZNRefPtr<ZNConnData>& link) {
    const auto [entry, isNew] = ConnRelatedNodeIDs.try_emplace(id, link);
    if (!isNew && entry->first == id) entry->second = link;
  }

  /// The nodes of the next ring.
  std::set<ObjID> NodeIDSet() const {
    std::set<ObjID> ids;
    for (const auto& entry : ConnRelatedNodeIDs) ids.insert(ids.end(), entry.first);
    return ids;
  }

  ZNRefPtr<ZNConnData> linkTo(const ObjID& id) const {
    const auto entry = findObjID(ConnRelatedNodeIDs, id);
    return entry == ConnRelatedNodeIDs.end() ? ZNRefPtr<ZNConnData>() : entry->second;
  }
};

/// The levels that a search has gone down. They end as the levels of a recursion do, the deepest
/// first; a list of their own bounds the depth by memory instead of by the thread's stack.
class Levels {
 public:
  ~Levels() {
    while (!levels_.empty()) levels_.pop_back();
  }
  Level& descend() { return levels_.emplace_back(); }
  void ascend() { levels_.pop_back(); }
  Level* current() { return levels_.empty() ? nullptr : &levels_.back(); }

 private:
  std::deque<Level> levels_;
};

/// Expands rings until one of their nodes has a link to the end node.
class RingSearch {
 public:
  RingSearch(ZNTopoAPI_Impl& api, const ObjID& endID, DataPath& theDataPath,
             std::set<ObjID>& theVisitedNodes)
      : api_(api), endID_(endID), theDataPath_(theDataPath), theVisitedNodes_(theVisitedNodes) {}

  /// The node of the ring that has a link to the end node, null if none has. The link is then the
  /// first of the data path.
  ZNRefPtr<ZNNode> expand(const NodeList& ring, Level& level) {
    for (const ZNRefPtr<ZNNode>& node : ring) {
      if (node.isNull()) continue;
      MCLog::log(MC_INFO, "For start Node ID: %s \n", shown(MC_INFO, node->getObjID()).c_str());
      for (const ZNRefPtr<ZNConnData>& data : node->getConnDataList()) {
        if (!data.isNull() && follow(data, level)) return node;
      }
      insertObjID(theVisitedNodes_, node->getObjID());
    }
    return {};
  }

 private:
  /// True if the record leads to the end node.
  bool follow(const ZNRefPtr<ZNConnData>& data, Level& level) {
    const ObjID& nextHop = detail::farEnd(*data);
    MCLog::log(MC_INFO, "Next hop Node ID: %s \n", shown(MC_INFO, nextHop).c_str());
    if (nextHop.isNull()) return false;
    if (nextHop == endID_) return isEndReadable(data, nextHop);
    if (!containsObjID(theVisitedNodes_, nextHop)) level.reach(nextHop, data);
    return false;
  }

  /// The record goes into the data path either way.
  bool isEndReadable(const ZNRefPtr<ZNConnData>& data, const ObjID& nextHop) {
    MCLog::log(MC_INFO, "Adding Connection Data for Found Node: %s %s \n",
               shown(MC_INFO, data->getDestNodeObjID()).c_str(),
               shown(MC_INFO, data->getSrcNodeObjID()).c_str());
    theDataPath_.push_front(data);
    ZNTopoAPIStatus myStat;
    const ZNRefPtr<ZNNode> end = api_.getNodeByObjID(nextHop, myStat);
    if (myStat.isOK() && !end.isNull()) return true;
    MCLog::log(MC_CRITICAL, "Error in getNodeByObjID(). Skip to Next connData  : Err %s : %s \n",
               myStat.getStatusMsg().c_str(), myStat.getAuxMsg().c_str());
    return false;
  }

  ZNTopoAPI_Impl& api_;
  const ObjID endID_;
  DataPath& theDataPath_;
  std::set<ObjID>& theVisitedNodes_;
};

/// Takes out of a ring what may not be searched through: routers end a layer-2 path unless they
/// may be crossed.
void removeBarriers(NodeList& ring, bool toCrossRouter) {
  ring.remove_if([toCrossRouter](const ZNRefPtr<ZNNode>& node) {
    if (node.isNull()) return true;
    const std::string id = shown(MC_INFO, node->getObjID());
    if (!node->isRouter()) {
      MCLog::log(MC_INFO, "New Node: %s is NOT a router \n", id.c_str());
      return false;
    }
    if (toCrossRouter) {
      MCLog::log(MC_INFO, "Cross Router behavior enable : %s  \n", id.c_str());
      return false;
    }
    MCLog::log(MC_INFO,
               "New Node: %s IS a router. Discard - L2 path does not span across router \n",
               id.c_str());
    return true;
  });
}

}  // namespace

ZNRefPtr<ZNNode> ZNTopoAPI_Impl::findPath(const NodeList& startNodeList, ZNRefPtr<ZNNode>& endNode,
                                          int theHop, int theMaxDepth, DataPath& theDataPath,
                                          std::set<ObjID>& theVisitedNodes,
                                          ZNTopoAPIStatus& theStat, bool toCrossRouter) {
  if (endNode.isNull()) return {};
  const ObjID endID = endNode->getObjID();
  RingSearch search(*this, endID, theDataPath, theVisitedNodes);
  Levels levels;
  ZNRefPtr<ZNNode> theKeyNode;
  NodeList ring = startNodeList;
  for (;; ++theHop) {
    Level& level = levels.descend();
    MCLog::log(MC_TRACE_L2, "EndNodeID %s \n", shown(MC_TRACE_L2, endID).c_str());
    if (theMaxDepth < theHop) return {};
    theKeyNode = search.expand(ring, level);
    if (!theKeyNode.isNull()) break;
    if (level.ConnRelatedNodeIDs.empty()) return {};

    std::set<ObjID> notFoundSet;
    const auto theNewNodeList = getNodesByObjIDList(level.NodeIDSet(), notFoundSet, theStat, false,
                                                    false, false, ZNEntity::AllProtocol, -1);
    if (!theStat.isOK() || theNewNodeList->empty()) return {};
    ring = std::move(*theNewNodeList);
    removeBarriers(ring, toCrossRouter);
  }
  // Back up: each level puts the link before those of the deeper ones, and hands its caller the
  // member of its own ring that the link comes from.
  levels.ascend();
  for (Level* level = levels.current(); level; levels.ascend(), level = levels.current()) {
    MCLog::log(MC_TRACE_L2, "Node from findPath = %s\n",
               shown(MC_TRACE_L2, theKeyNode->getObjID()).c_str());
    const ZNRefPtr<ZNConnData> theRelatedData = level->linkTo(theKeyNode->getObjID());
    if (theRelatedData.isNull()) {
      MCLog::log(MC_MAJOR, "Unable to correlate data coming back for node = %s \n",
                 shown(MC_MAJOR, theKeyNode->getObjID()).c_str());
      continue;
    }
    theDataPath.push_front(theRelatedData);
    const bool isSource = theKeyNode->getObjID() == theRelatedData->getSrcNodeObjID();
    theKeyNode = getNodeByObjID(
        isSource ? theRelatedData->getDestNodeObjID() : theRelatedData->getSrcNodeObjID(), theStat);
    if (theKeyNode.isNull()) return {};
  }
  return theKeyNode;
}

}  // namespace zntopo
