#include "tools/zntopo/Lookup.h"

#include <array>
#include <utility>

#include "tools/network/StoreStatement.h"
#include "tools/zntopo/NameLookup.h"
#include "tools/zntopo/NaturalOrder.h"
#include "zntopo/model/TopologyGateway.h"

namespace zntopo::tools {

namespace {

constexpr NamedKind kNodes = {.word = "node", .rows = "nwnode where"};

[[noreturn]] void throwUnknown(const ObjID& id) {
  throw Failure(ZN_API_OBJ_NOT_EXIST, "There is no node with the identifier " + id.toString());
}

ZNRefPtr<ZNNode> nodeOfId(Session& session, const ObjID& id) {
  const auto nodes = nodesById(session, Identifiers(std::array{id}));
  if (nodes.empty()) throwUnknown(id);
  return nodes.begin()->second;
}

/// A node that was found: read already, if its address told which it is.
struct FoundNode {
  ObjID id;
  std::optional<NamedNode> read = {};
};

std::optional<FoundNode> nodeOfAddress(Session& session, const std::string& text) {
  const auto address = IpAddress::parse(text);
  if (!address) return std::nullopt;
  ZNTopoAPIStatus status;
  const auto node = session.api().getNodeByName(address->text(), status, -1);
  check(status);
  return FoundNode{node->getObjID(), NamedNode{node, address}};
}

FoundNode findReadyNode(Session& session, const std::string& text) {
  if (const auto id = oneThat(session, kNodes, text, isNamed(text))) return {*id};
  if (ObjID(text).getIDType() == ObjID::E_MsUuid) {
    if (const auto id = oneThat(session, kNodes, text, isIdentified(text))) return {*id};
    throwUnknown(text);
  }
  if (const auto found = nodeOfAddress(session, text)) return *found;
  if (const auto begun = oneThat(session, kNodes, text, beginsWith(text))) return {*begun};
  throw Failure(ZN_API_OBJ_NOT_EXIST, "ObjID for node [" + text + "] not found.");
}

/// The result of a request for each kind of identifiers, by identifier text.
template <typename Object, typename Request, typename IdOf>
std::map<std::string, ZNRefPtr<Object>> byId(const Identifiers& ids, const Request& request,
                                             const IdOf& idOf) {
  std::map<std::string, ZNRefPtr<Object>> result;
  for (const auto& [kind, set] : ids.byKind()) {
    ZNTopoAPIStatus status;
    const auto objects = request(set, status);
    check(status);
    for (const auto& object : *objects) result.emplace(((*object).*idOf)().toString(), object);
  }
  return result;
}

}  // namespace

NamedNode findNode(Session& session, const std::string& text) {
  NamedNode result;
  lookUp(session, [&] {
    const FoundNode found = findReadyNode(session, text);
    result = found.read ? *found.read : NamedNode{nodeOfId(session, found.id), std::nullopt};
  });
  return result;
}

ObjID findNodeId(Session& session, const std::string& text) {
  ObjID id;
  lookUp(session, [&] { id = findReadyNode(session, text).id; });
  return id;
}

void Identifiers::add(const ObjID& id) {
  if (id.isNull() || id.toString().find('\'') != std::string::npos) return;
  sets_[id.getIDType()].insert(id);
}

std::map<std::string, ZNRefPtr<ZNNode>> nodesById(Session& session, const Identifiers& ids) {
  std::set<ObjID> notFound;
  return byId<ZNNode>(
      ids,
      [&](const std::set<ObjID>& set, ZNTopoAPIStatus& status) {
        return session.api().getNodesByObjIDList(set, notFound, status, false, false, false,
                                                 ZNEntity::AllProtocol, -1);
      },
      &ZNNode::getObjID);
}

std::map<std::string, ZNRefPtr<ZNInterface>> interfacesById(Session& session,
                                                            const Identifiers& ids) {
  std::set<ObjID> notFound;
  return byId<ZNInterface>(
      ids,
      [&](const std::set<ObjID>& set, ZNTopoAPIStatus& status) {
        return session.api().getInterfacesByObjIDList(set, notFound, status, false, false);
      },
      &ZNInterface::getObjID);
}

std::map<std::string, ZNRefPtr<ZNAddress>> addressesById(Session& session, const Identifiers& ids) {
  return byId<ZNAddress>(
      ids,
      [&](const std::set<ObjID>& set, ZNTopoAPIStatus& status) {
        return session.api().getAddrsByObjIDs({set.begin(), set.end()}, status, false,
                                              ZNAddress::IPv4);
      },
      &ZNAddress::getAddressID);
}

std::map<std::string, std::string> namesById(Session& session, const std::string& table,
                                             const Identifiers& ids) {
  std::vector<std::string> texts;
  for (const auto& [kind, set] : ids.byKind()) {
    for (const ObjID& id : set) texts.push_back(id.toString());
  }
  std::map<std::string, std::string> names;
  if (texts.empty()) return names;
  for (const TextRow& row :
       selectTexts(session.connection(),
                   "select ObjId, EntityName from " + table + " where ObjId in (" +
                       parameterMarks(texts.size()) + ")",
                   2, texts)) {
    names[row[0]] = row[1];
  }
  return names;
}

std::list<ZNRefPtr<ZNInterface>> interfacesOf(const ZNNode& node) {
  ZNTopoAPIStatus status;
  const auto list =
      topologyGateway().getInterfacesByNodeObjIDList(ActiveDB, {node.getObjID()}, status);
  check(status);
  return list ? *list : std::list<ZNRefPtr<ZNInterface>>();
}

std::map<std::string, std::vector<std::string>> addressesOf(Session& session, const ZNNode& node) {
  Identifiers ids;
  for (const TextRow& row : selectTexts(session.connection(),
                                        "select a.AddressId from address a, nwinterface i "
                                        "where a.ObjId = i.ObjId and i.NodeObjID = ?",
                                        1, {node.getObjID().toString()})) {
    ids.add(row.front());
  }
  std::vector<ZNRefPtr<ZNAddress>> addresses;
  for (const auto& [id, address] : addressesById(session, ids)) addresses.push_back(address);
  sortBy(addresses, [](const ZNRefPtr<ZNAddress>& address) {
    return std::pair(address->getAddressType(), address->getAddressAsString());
  });
  std::map<std::string, std::vector<std::string>> result;
  for (const auto& address : addresses) {
    const ZNAddress::AddressType type = address->getAddressType();
    if (type != ZNAddress::IPv4 && type != ZNAddress::IPv6) continue;
    result[address->getAssEntityID().toString()].push_back(address->getAddressAsString());
  }
  return result;
}

std::vector<std::string> vlanNamesOf(Session& session, const ZNNode& node) {
  Identifiers ids;
  for (const ZNVlanInfo& info : node.getVlanInfoList()) ids.add(info.getVlanObjID());
  const auto names = namesById(session, "nwentity", ids);
  std::vector<std::string> result;
  for (const ZNVlanInfo& info : node.getVlanInfoList()) {
    const auto name = names.find(info.getVlanObjID().toString());
    if (name != names.end()) result.push_back(name->second);
  }
  return result;
}

}  // namespace zntopo::tools
