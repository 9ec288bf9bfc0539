#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/network/NetworkModel.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// The part of a store that is read: these nodes, with what hangs on them; nothing for all.
using StoreScope = std::optional<std::vector<ObjID>>;

/// What a node is, as the library sees it.
struct NodeTraits {
  bool isSwitch = false;
  bool isRouter = false;
  /// The names of all its capabilities.
  std::vector<std::string> capabilities;
};

/// A network as it was read. All objects bring their identifiers, which are their keys too.
struct StoredNetwork {
  NetworkModel model;
  /// In the order of the model's nodes, which is that of their names.
  std::vector<NodeTraits> traits;
};

/// Reads from a store through the library, in batches: nodes by 50, with their interfaces and
/// addresses, links and VLANs; then subnets and groups, each kind at once.
///
/// Of a part of a store, links between its nodes are read, groups with what members they have
/// there, and the subnets of the addresses.
///
/// The library's objects show a default for what is not known, and have nothing of properties,
/// meshes, mapped addresses, containers' variables and the trail. So that the same store can be
/// made again of the network, that, and the addresses, come from the tables that StoreTable.h
/// describes: a statement a table, or one for 500 identifiers of a part.
///
/// The library must load the links and VLANs of nodes (ZNTopoConfig). The progress function hears
/// the part done. Throws ToolError and StoreError.
StoredNetwork readStore(ZNTopoAPI& api, TvDbil::DbConnection_t& connection, const StoreScope& scope,
                        const std::function<void(double)>& progress = {});

/// Identifiers in parts of a number at most, each part of one kind, since those of different kinds
/// do not order. Null ones are left out, and texts with a quote: nothing is called so, and the
/// library puts identifiers into its statements as they are.
std::vector<std::set<ObjID>> batchesOf(const std::vector<ObjID>& ids, std::size_t size);
inline std::vector<std::set<ObjID>> batchesOf(const std::set<std::string>& ids, std::size_t size) {
  return batchesOf(std::vector<ObjID>(ids.begin(), ids.end()), size);
}

}  // namespace zntopo::tools
