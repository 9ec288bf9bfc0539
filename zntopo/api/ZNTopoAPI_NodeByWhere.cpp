#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/NodeRow.h"
#include "zntopo/api/detail/NodeSql.h"
#include "zntopo/api/detail/ObjectsRead.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

constexpr AccessTexts kNodeTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for Entity"},
    .infoBindsStatement = true,
};

using NodesRead = detail::ObjectsRead<ZNNode>;

/// Loads what hangs on the nodes that were read. Each operation is false after a failure, which
/// the status tells.
class NodeAttachments {
 public:
  NodeAttachments(ZNTopoAPI_Impl& api, const NodesRead& read, ZNTopoAPIStatus& status, bool all)
      : api_(api), read_(read), ids_(detail::idsOf(read.objects)), status_(status), all_(all) {}

  bool load(const ZNTopoConfig& config) {
    if (!detail::giveUserVars(api_, read_, status_)) return false;
    if (ids_.empty()) return true;
    return (!config.toLoadNodeL2ConnectionInfo() || loadConnections()) &&
           (!config.toLoadNodeIfcInfo() || loadContainers()) &&
           (!config.toLoadNodeVlanInfo() || loadVlans());
  }

 private:
  bool loadConnections() {
    MCLog::log(MC_INFO, "Populating Layer 2 information ..\n");
    const auto map = api_.getConnDatasByNodeObjIDList(ids_, status_, all_);
    return give(*map, &ZNNode::setConnDataList, "Failed in getConnDatasByNodeObjIDList \n");
  }

  bool loadContainers() {
    MCLog::log(MC_INFO, "Begin getting IfcInfo Objects ..\n");
    // A request for all names none.
    const auto map = api_.getIfcInfosByObjIDList(
        all_ ? std::set<ObjID>() : ZNTopoAPI_Impl::ConvertObjIDListToSet(ids_), status_, true, all_,
        0);
    if (!give(*map, &ZNNode::setIfcInfoList, "Failed in getIfcInfoByObjIDList \n")) return false;
    MCLog::log(MC_INFO, "End getting IfcInfo Objects ..\n");
    return true;
  }

  bool loadVlans() {
    MCLog::log(MC_INFO, "Begin getting VlanInfo Objects ..\n");
    const auto map = api_.getVlanInfosByObjIDList(ids_, status_, true, all_);
    if (!give(*map, &ZNNode::setVlanInfoList, "Failed in getVlanInfoByObjIDList \n")) return false;
    MCLog::log(MC_INFO, "End getting VlanInfo Objects ..\n");
    return true;
  }

  template <typename Map, typename Setter>
  bool give(const Map& map, Setter setter, const char* failureLine) {
    return detail::handOutLoaded(status_, failureLine, read_.objects, map, setter);
  }

  ZNTopoAPI_Impl& api_;
  const NodesRead& read_;
  const std::list<ObjID> ids_;
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
  // The connection is held while what hangs on the nodes is loaded through others.
  StoreAccess access(theStatus, kNodeTexts);
  NodesRead read;
  const bool isRead =
      access.run(detail::nodeSelect(theSQLWhere, tbls), detail::kNodeColumns, [&](const Row& row) {
        return read.add(row, detail::kNodeEntityColumns, [&](const Row& complete) {
          return detail::nodeFromRow(complete, dbType_);
        });
      });
  // A read that failed or that a row cut short gives the bare nodes, and the cache gets none.
  if (isRead && !read.isCutShort &&
      NodeAttachments(*this, read, theStatus, getAllNodes).load(cache()->getTopoConfig())) {
    for (const ZNRefPtr<ZNNode>& node : read.objects) useNode(node);
  }
  return std::make_unique<std::list<ZNRefPtr<ZNNode>>>(std::move(read.objects));
}

}  // namespace zntopo
