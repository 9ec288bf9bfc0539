#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/NodeRow.h"
#include "zntopo/api/detail/NodeSql.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

constexpr AccessTexts kNodeTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for Entity"},
    .infoBindsStatement = true,
};

/// The nodes of a statement, and what of them has to be asked for.
struct NodesRead {
  std::list<ZNRefPtr<ZNNode>> nodes;
  std::list<ObjID> ids;
  std::set<ObjID> idSet;
  std::list<ObjID> withDynamicProperty;
  bool isCutShort = false;

  /// False for a row that a node can't be made of; nothing behind it is read.
  bool add(const Row& row, TopoDBType dbType) {
    if (row.isPresent(detail::N_hasDynamicProperty) &&
        row.integer(detail::N_hasDynamicProperty) != 0) {
      withDynamicProperty.emplace_back(row.text(detail::N_ObjId));
    }
    if (!detail::isNodeRowComplete(row)) {
      MCLog::log(MC_INFO, "Received NULL values for critical data\n");
      MCLog::log(MC_INFO, "Unable to create Entity!\n");
      isCutShort = true;
      return false;
    }
    nodes.push_back(detail::makeNode(row, dbType));
    ids.push_back(nodes.back()->getObjID());
    idSet.insert(nodes.back()->getObjID());
    return true;
  }
};

/// Gives each node that has an entry in the map what it holds.
template <typename Map, typename Setter>
void giveToNodes(NodesRead& read, const Map& map, Setter setter) {
  for (const ZNRefPtr<ZNNode>& node : read.nodes) {
    const auto found = findObjID(map, node->getObjID());
    if (found != map.end()) (node.getObjectPointer()->*setter)(*found->second);
  }
}

/// Loads what hangs on the nodes that were read. Each operation is false after a failure, which
/// the status tells.
class NodeAttachments {
 public:
  NodeAttachments(ZNTopoAPI_Impl& api, NodesRead& read, ZNTopoAPIStatus& status, bool all)
      : api_(api), read_(read), status_(status), all_(all) {}

  bool load(const ZNTopoConfig& config) {
    if (!read_.withDynamicProperty.empty() && !loadUserVars()) return false;
    if (read_.ids.empty()) return true;
    return (!config.toLoadNodeL2ConnectionInfo() || loadConnections()) &&
           (!config.toLoadNodeIfcInfo() || loadContainers()) &&
           (!config.toLoadNodeVlanInfo() || loadVlans());
  }

 private:
  bool loadUserVars() {
    const auto map = api_.getUserDefVarsByObjIDList(read_.withDynamicProperty, status_);
    return give(*map, &ZNNode::setUserVars, "Failed in getUserDefVarsByObjIDLIst \n");
  }

  bool loadConnections() {
    MCLog::log(MC_INFO, "Populating Layer 2 information ..\n");
    const auto map = api_.getConnDatasByNodeObjIDList(read_.ids, status_, all_);
    return give(*map, &ZNNode::setConnDataList, "Failed in getConnDatasByNodeObjIDList \n");
  }

  bool loadContainers() {
    MCLog::log(MC_INFO, "Begin getting IfcInfo Objects ..\n");
    const auto map = api_.getIfcInfosByObjIDList(read_.idSet, status_, true, all_, 0);
    if (!give(*map, &ZNNode::setIfcInfoList, "Failed in getIfcInfoByObjIDList \n")) return false;
    MCLog::log(MC_INFO, "End getting IfcInfo Objects ..\n");
    return true;
  }

  bool loadVlans() {
    MCLog::log(MC_INFO, "Begin getting VlanInfo Objects ..\n");
    const auto map = api_.getVlanInfosByObjIDList(read_.ids, status_, true, all_);
    if (!give(*map, &ZNNode::setVlanInfoList, "Failed in getVlanInfoByObjIDList \n")) return false;
    MCLog::log(MC_INFO, "End getting VlanInfo Objects ..\n");
    return true;
  }

  template <typename Map, typename Setter>
  bool give(const Map& map, Setter setter, const char* failureLine) {
    if (!status_.isOK()) {
      MCLog::log(MC_MAJOR, "%s", failureLine);
      return false;
    }
    giveToNodes(read_, map, setter);
    return true;
  }

  ZNTopoAPI_Impl& api_;
  NodesRead& read_;
  ZNTopoAPIStatus& status_;
  const bool all_;
};

}  // namespace

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::getNodesByWhere(const std::string& theSQLWhere,
                                                              const std::string& tbls,
                                                              ZNTopoAPIStatus& theStatus,
                                                              bool getAllNodes) {
  const detail::OperationScope scope("getNodesByWhere");
  theStatus.reset();
  auto result = std::make_unique<std::list<ZNRefPtr<ZNNode>>>();
  // The connection is held while what hangs on the nodes is loaded through others.
  StoreAccess access(theStatus, kNodeTexts);
  NodesRead read;
  const bool isRead = access.run(detail::nodeSelect(theSQLWhere, tbls), detail::kNodeColumns,
                                 [&](const Row& row) { return read.add(row, dbType_); });
  // A read that failed or that a row cut short gives the bare nodes, and the cache gets none.
  if (isRead && !read.isCutShort &&
      NodeAttachments(*this, read, theStatus, getAllNodes).load(cache()->getTopoConfig())) {
    for (const ZNRefPtr<ZNNode>& node : read.nodes) useNode(node);
  }
  result->swap(read.nodes);
  return result;
}

}  // namespace zntopo
