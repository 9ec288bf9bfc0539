#pragma once

#include <map>
#include <string>

#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/fields/LinkFields.h"

namespace zntopo::tools {

/// Names for identifiers of interfaces and nodes, all read together. What has no row is called by
/// its identifier.
class Names {
 public:
  /// The nodes to which the interfaces belong are known too.
  Names(Session& session, const Identifiers& interfaces, Identifiers nodes = {});

  LinkEnd end(const ObjID& node, const ObjID& interface) const;
  /// The node is the one to which the interface belongs; empty for an unknown interface.
  LinkEnd end(const ObjID& interface) const;

 private:
  std::map<std::string, ZNRefPtr<ZNInterface>> interfaces_;
  std::map<std::string, ZNRefPtr<ZNNode>> nodes_;
};

}  // namespace zntopo::tools
