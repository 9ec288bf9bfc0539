#include "tools/export/NodeLook.h"

#include "tools/network/NetworkFields.h"

namespace zntopo::tools {

NodeKind kindOf(const NodeTraits& traits) {
  if (traits.isRouter) return traits.isSwitch ? NodeKind::Layer3Switch : NodeKind::Router;
  return traits.isSwitch ? NodeKind::Switch : NodeKind::Host;
}

const char* kindName(NodeKind kind) {
  switch (kind) {
    case NodeKind::Router:
      return "router";
    case NodeKind::Layer3Switch:
      return "layer-3 switch";
    case NodeKind::Switch:
      return "switch";
    case NodeKind::Host:
      break;
  }
  return "host";
}

std::string statusName(const EntityModel& entity) {
  if (!entity.status) return "";
  return std::string(nameOf(names::kStatus, entity.status->overall).value_or("no-status"));
}

}  // namespace zntopo::tools
