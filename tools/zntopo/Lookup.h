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
#include "zntopo/model/ZNAddress.h"
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
/// Throws a Failure: ZN_API_OBJ_NOT_EXIST, ZN_API_NONUNIQUE_NAME, ZN_API_DB_NOT_READY for either
/// in a store that is not ready, or what the library reports.
NamedNode findNode(Session& session, const std::string& text);
/// The same without reading the node, unless it was named by an address.
ObjID findNodeId(Session& session, const std::string& text);

/// Identifiers, each once. Those of different kinds do not order, so there is a set for each kind.
class Identifiers {
 public:
  Identifiers() = default;
  template <typename Range>
  explicit Identifiers(const Range& ids) {
    for (const ObjID& id : ids) add(id);
  }

  /// Leaves out null ones, and texts with a quote: nothing is called so, and the library puts
  /// identifiers into its statements as they are.
  void add(const ObjID& id);
  void add(const Identifiers& others);
  /// Leaves out all that are not among others.
  void keep(const Identifiers& others);
  const std::map<ObjID::ObjType, std::set<ObjID>>& byKind() const { return sets_; }
  /// All of them as texts.
  std::vector<std::string> texts() const;

 private:
  std::map<ObjID::ObjType, std::set<ObjID>> sets_;
};

/// The nodes, interfaces and addresses of identifiers, by identifier text: those that are there,
/// with one request of the library.
std::map<std::string, ZNRefPtr<ZNNode>> nodesById(Session& session, const Identifiers& ids);
std::vector<ZNRefPtr<ZNNode>> nodeList(Session& session, const Identifiers& ids);
std::map<std::string, ZNRefPtr<ZNInterface>> interfacesById(Session& session,
                                                            const Identifiers& ids);
std::vector<ZNRefPtr<ZNInterface>> interfaceList(Session& session, const Identifiers& ids);
std::map<std::string, ZNRefPtr<ZNAddress>> addressesById(Session& session, const Identifiers& ids);
/// The same as a list. The library gives no identifiers of an IPv6 address that lies in no subnet:
/// these come from its row.
std::vector<ZNRefPtr<ZNAddress>> addressList(Session& session, const Identifiers& ids);

/// What keeps a list of nodes or interfaces from being complete, if it has fewer objects than it
/// should have: rows of the table without a name or an IP level, behind which the library reads no
/// further. OK if there is none.
ZNTopoAPIStatus completeness(Session& session, const std::string& table, std::size_t found,
                             std::size_t expected);
/// How many rows there are: of a table, or of those that meet a condition behind its name.
std::size_t rowCount(Session& session, const std::string& rows,
                     const std::vector<std::string>& parameters = {});

/// The names of objects, by identifier text, from the names in a table.
std::map<std::string, std::string> namesById(Session& session, const std::string& table,
                                             const Identifiers& ids);

/// The interfaces of a node. Unlike the node's own list, it throws a Failure if it can't be read.
std::list<ZNRefPtr<ZNInterface>> interfacesOf(const ZNNode& node);

/// The texts of the IPv4 and IPv6 addresses of interfaces, by the identifier of the interface.
std::map<std::string, std::vector<std::string>> addressesOf(Session& session,
                                                            const Identifiers& interfaces);

/// The names of the VLANs of a node, which knows them by identifier alone.
std::vector<std::string> vlanNamesOf(Session& session, const ZNNode& node);

}  // namespace zntopo::tools
