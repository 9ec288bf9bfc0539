// The filling of the cache ahead of the queries.

#include <chrono>
#include <thread>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/PreloadPause.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

void detail::sleepFor(int seconds) { std::this_thread::sleep_for(std::chrono::seconds(seconds)); }

namespace {

constexpr int kAnyRD = -1;

using NodeTest = bool (ZNNode::*)() const;

NodeTest wantedNodes(bool switches, bool routers) {
  if (switches && routers) return &ZNNode::isRelay;
  return switches ? &ZNNode::isSwitch : &ZNNode::isRouter;
}

/// Loads all groups of a kind, and then pauses for so many seconds.
template <typename Load>
ZNTopoAPIStatus loadGroups(ZNTopoAPI_Impl& api, const char* line, Load load, int pause) {
  MCLog::log(MC_INFO, "%s", line);
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  (api.*load)({}, notFound, status, true, kAnyRD);
  if (status.isOK() && pause > 0) detail::preloadPause.load()(pause);
  return status;
}

/// Gives the cache the nodes that are wanted once more, behind all others, so that they are the
/// last to leave it.
ZNTopoAPIStatus loadNodes(ZNTopoAPI_Impl& api, NodeTest isWanted) {
  MCLog::log(MC_INFO, "Loading Nodes .. \n");
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto nodes = api.getNodesByObjIDList({}, notFound, status, false, false, true,
                                             ZNEntity::AllProtocol, kAnyRD);
  if (!status.isOK()) return status;
  for (const ZNRefPtr<ZNNode>& node : *nodes) {
    if (((*node).*isWanted)()) api.getTopoCache()->useNode(node);
  }
  return status;
}

ZNTopoAPIStatus loadInterfaces(ZNTopoAPI_Impl& api) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto interfaces = api.getInterfacesByObjIDList({}, notFound, status, false, true);
  MCLog::log(MC_INFO, "%d Interfaces loaded \n", static_cast<int>(interfaces->size()));
  return status;
}

}  // namespace

// Always of the active tables. Containers alone are followed by no pause.
ZNTopoAPIStatus ZNTopoAPI_Impl::preLoadTopoCache(bool loadSwitchNode, bool loadRouterNode,
                                                 bool loadVlan, bool loadHSRP,
                                                 bool loadConnectedInterfaces, bool loadIfcs) {
  const detail::OperationScope scope("preLoadTopoCache");
  ZNTopoAPI_Impl api;
  ZNTopoAPIStatus status;
  if (loadIfcs) {
    status = loadGroups(api, "Loading Ifcs .. \n", &ZNTopoAPI_Impl::getIfcsByObjIDList, 0);
  }
  if (status.isOK() && loadVlan) {
    status = loadGroups(api, "Loading Vlans .. \n", &ZNTopoAPI_Impl::getVlansByObjIDList, 1);
  }
  if (status.isOK() && loadHSRP) {
    status = loadGroups(api, "Loading HSRPs .. \n", &ZNTopoAPI_Impl::getHSRPsByObjIDList, 1);
  }
  if (status.isOK() && (loadSwitchNode || loadRouterNode)) {
    status = loadNodes(api, wantedNodes(loadSwitchNode, loadRouterNode));
  }
  if (status.isOK() && loadConnectedInterfaces) status = loadInterfaces(api);
  return status;
}

}  // namespace zntopo
