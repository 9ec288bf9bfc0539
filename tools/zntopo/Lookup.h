#pragma once

#include <list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/network/IpAddress.h"
#include "tools/zntopo/Session.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"

namespace zntopo::tools {

/// A node that a user named, and how.
struct NamedNode {
  ZNRefPtr<ZNNode> node;
  /// The address, if it was one.
  std::optional<IpAddress> address;

  std::string id() const { return node->getObjID().toString(); }
};

/// Finds the node of a text: one whose name is the text; else the one with this identifier; else
/// the one with this address; else the one whose name begins with the text.
///
/// Names go into the store's statements as parameters, so they may hold anything.
/// Throws a Failure: ZN_API_OBJ_NOT_EXIST, ZN_API_NONUNIQUE_NAME, ZN_API_DB_NOT_READY for what is
/// not found in a store that is not ready, or what the library reports.
NamedNode findNode(Session& session, const std::string& text);

/// The nodes and interfaces of a set of identifiers, by identifier text.
std::map<std::string, ZNRefPtr<ZNNode>> nodesById(Session& session, const std::set<ObjID>& ids);
std::map<std::string, ZNRefPtr<ZNInterface>> interfacesById(Session& session,
                                                            const std::set<ObjID>& ids);

/// The interfaces of a node. Unlike the node's own list, it throws a Failure if it can't be read.
std::list<ZNRefPtr<ZNInterface>> interfacesOf(const ZNNode& node);

/// The IPv4 and IPv6 addresses of the interfaces of a node, by the identifier of the interface.
std::map<std::string, std::vector<std::string>> addressesOf(Session& session, const ZNNode& node);

/// The names of the VLANs of a node, which knows them by identifier alone.
std::vector<std::string> vlanNamesOf(Session& session, const ZNNode& node);

}  // namespace zntopo::tools
