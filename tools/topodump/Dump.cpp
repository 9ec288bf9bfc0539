#include "tools/topodump/Dump.h"

#include <cstdlib>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tools/zntopo/NaturalOrder.h"
#include "zntopo/model/ZNUtilMesg.h"

namespace zntopo::tools {

namespace {

/// Full texts in the place of rows.
bool isDetailed() { return std::getenv("TOPODUMP_DETAIL") != nullptr; }

template <typename Handles>
auto ordered(const Handles& handles) {
  std::vector<typename Handles::value_type> all(handles.begin(), handles.end());
  sortBy(all, [](const auto& object) {
    return std::pair(Natural{object->getName()}, object->getObjID().getStrValue());
  });
  return all;
}

void printNode(const ZNNode& node, DumpCall::Kind kind) {
  const bool withInterfaces = kind == DumpCall::NodesWithInterfaces;
  if (isDetailed()) {
    std::cout << node.toString(withInterfaces);
    return;
  }
  std::cout << node.toShortString();
  if (!withInterfaces) return;
  const auto interfaces = node.getInterfacesList();
  if (!interfaces) return;
  for (const auto& interface : ordered(*interfaces)) std::cout << interface->toShortString();
}

void printHeader() {
  if (!isDetailed()) ZNUtilMesg::printTopoQueryNodeDisplayHeader();
}

/// The statuses of a question that found nothing.
bool isNothing(const ZNTopoAPIStatus& status) {
  return status.getStatus() == ZN_API_OBJ_NOT_EXIST ||
         status.getStatus() == ZN_API_EMPTY_OBJID_LIST;
}

ZNTopoAPI::OwnedNodeList nodesOf(ZNTopoAPI& api, const DumpCall& call, ZNTopoAPIStatus& status) {
  if (!call.filter.empty()) return api.getNodesByTopoFilter(call.filter, status);
  if (call.node.empty()) {
    std::set<ObjID> notFound;
    return api.getNodesByObjIDList({}, notFound, status, false, false, true, ZNEntity::AllProtocol,
                                   call.routeDistinguisher);
  }
  auto nodes = std::make_unique<ZNTopoAPI::OwnedNodeList::element_type>();
  const ZNRefPtr<ZNNode> node = api.getNodeByName(call.node, status, call.routeDistinguisher);
  if (!node.isNull()) nodes->push_back(node);
  return nodes;
}

DumpStatus dumpNodes(ZNTopoAPI& api, const DumpCall& call, ZNTopoAPIStatus& status) {
  const auto nodes = nodesOf(api, call, status);
  if (!status.isOK() || nodes->empty()) return tellNothing(status);
  printHeader();
  for (const auto& node : ordered(*nodes)) printNode(*node, call.kind);
  return DumpPrinted;
}

DumpStatus dumpInterfaces(ZNTopoAPI& api, const DumpCall& call, ZNTopoAPIStatus& status) {
  const auto interfaces = api.getInterfacesByTopoFilter(call.filter, status);
  if (!status.isOK() || interfaces->empty()) return tellNothing(status);
  printHeader();
  for (const auto& interface : ordered(*interfaces)) {
    std::cout << (isDetailed() ? interface->toString() : interface->toShortString());
  }
  return DumpPrinted;
}

DumpStatus dumpInfo(ZNTopoAPI& api, ZNTopoAPIStatus& status) {
  const ZNTopologyInfo info = api.getTopologyInfo(status);
  if (!status.isOK()) return tellNothing(status);
  std::cout << info.toString();
  return DumpPrinted;
}

DumpStatus dumpFilters(ZNTopoAPI& api, ZNTopoAPIStatus& status) {
  const auto filters = api.getDefaultFileFilterName(status);
  if (!status.isOK() || filters.empty()) return tellNothing(status);
  for (const auto& [name, kind] : filters) std::cout << name << "\n";
  return DumpPrinted;
}

}  // namespace

DumpStatus tellNothing(ZNTopoAPIStatus& status) {
  if (status.isOK() || isNothing(status)) {
    ZNUtilMesg::printTopoQueryNotFoundMessage();
  } else {
    ZNUtilMesg::logTopoQueryErrorMessage(status);
  }
  return DumpFailed;
}

DumpStatus dump(ZNTopoAPI& api, const DumpCall& call) {
  ZNTopoAPIStatus status;
  if (call.kind == DumpCall::Filters || !call.filter.empty()) {
    api.ParseDefaultFile(status);
    if (!status.isOK()) return tellNothing(status);
  }
  switch (call.kind) {
    case DumpCall::Info:
      return dumpInfo(api, status);
    case DumpCall::Filters:
      return dumpFilters(api, status);
    case DumpCall::Interfaces:
      return dumpInterfaces(api, call, status);
    default:
      return dumpNodes(api, call, status);
  }
}

}  // namespace zntopo::tools
