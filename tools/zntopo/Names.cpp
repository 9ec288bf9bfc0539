#include "tools/zntopo/Names.h"

#include <utility>

#include "tools/zntopo/fields/InterfaceFields.h"

namespace zntopo::tools {

Names::Names(Session& session, const Identifiers& interfaces, Identifiers nodes)
    : interfaces_(interfacesById(session, interfaces)) {
  for (const auto& [id, interface] : interfaces_) nodes.add(interface->getParentObjID());
  nodes_ = nodesById(session, nodes);
}

LinkEnd Names::end(const ObjID& node, const ObjID& interface) const {
  LinkEnd result;
  result.nodeId = node.toString();
  result.interfaceId = interface.toString();
  const auto foundNode = nodes_.find(result.nodeId);
  const auto found = interfaces_.find(result.interfaceId);
  result.node = foundNode == nodes_.end() ? result.nodeId : foundNode->second->getName();
  result.interface =
      found == interfaces_.end() ? result.interfaceId : interfaceLabel(*found->second);
  return result;
}

LinkEnd Names::end(const ObjID& interface) const {
  const auto found = interfaces_.find(interface.toString());
  return end(found == interfaces_.end() ? ObjID() : found->second->getParentObjID(), interface);
}

}  // namespace zntopo::tools
