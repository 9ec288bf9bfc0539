#include "tools/zntopo/Lookup.h"

#include <algorithm>
#include <utility>

#include "tools/network/PlainText.h"
#include "tools/network/StoreStatement.h"
#include "zntopo/model/TopologyGateway.h"

namespace zntopo::tools {

namespace {

/// The pattern of "like" for texts that begin with a text; "!" escapes its wildcards.
std::string beginningPattern(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '!' || c == '%' || c == '_') result += '!';
    result += c;
  }
  return result + "%";
}

ZNRefPtr<ZNNode> nodeOfId(Session& session, const ObjID& id) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto nodes = session.api().getNodesByObjIDList({id}, notFound, status, false, false, false,
                                                       ZNEntity::AllProtocol, -1);
  check(status);
  if (nodes->empty()) {
    throw Failure(ZN_API_OBJ_NOT_EXIST, "There is no node with the identifier " + id.toString());
  }
  return nodes->front();
}

/// The nodes that a text may mean, a line each; those of one name differ in their zone.
std::string candidates(Session& session, const std::vector<TextRow>& ids) {
  constexpr std::size_t most = 10;
  std::set<ObjID> shown;
  for (std::size_t i = 0; i < ids.size() && i < most; ++i) shown.insert(ObjID(ids[i].front()));
  std::string list;
  for (const auto& [id, node] : nodesById(session, shown)) {
    const std::string zone = node->getZoneNumber();
    list += "\n  " + id + "  " + printable(node->getName()) +
            (zone.empty() ? "" : "  (zone " + printable(zone) + ")");
  }
  return list + (ids.size() > most ? "\n  ..." : "");
}

/// The one node of a list of identifiers; nothing for an empty list.
std::optional<NamedNode> oneOf(Session& session, const std::vector<TextRow>& ids,
                               const std::string& text) {
  if (ids.empty()) return std::nullopt;
  if (ids.size() > 1) {
    throw Failure(ZN_API_NONUNIQUE_NAME,
                  "Node [" + text + "] is not unique. It may be one of" + candidates(session, ids));
  }
  return NamedNode{nodeOfId(session, ObjID(ids.front().front())), std::nullopt};
}

std::optional<NamedNode> nodeOfAddress(Session& session, const std::string& text) {
  const auto address = IpAddress::parse(text);
  if (!address) return std::nullopt;
  ZNTopoAPIStatus status;
  const auto node = session.api().getNodeByName(address->text(), status, -1);
  check(status);
  return NamedNode{node, address};
}

NamedNode findReadyNode(Session& session, const std::string& text) {
  const auto exact =
      selectTexts(session.connection(), "select ObjId from nwnode where EntityName = ?", 1, {text});
  if (const auto found = oneOf(session, exact, text)) return *found;
  const ObjID id(text);
  if (id.getIDType() == ObjID::E_MsUuid) return {nodeOfId(session, id), std::nullopt};
  if (const auto found = nodeOfAddress(session, text)) return *found;
  const auto beginning = selectTexts(session.connection(),
                                     "select ObjId from nwnode where EntityName like ? escape '!'",
                                     1, {beginningPattern(text)});
  if (const auto found = oneOf(session, beginning, text)) return *found;
  throw Failure(ZN_API_OBJ_NOT_EXIST, "ObjID for node [" + text + "] not found.");
}

/// What is missing in a store that is not ready may come: that is what to tell.
void requireReady(Session& session) {
  ZNTopoAPIStatus status;
  const ZNTopologyState state = session.api().getTopologyState(status);
  check(status);
  if (state.getTopoState() == ZNTopologyState::READY) return;
  throw Failure(ZN_API_DB_NOT_READY,
                "Topology DB is not ready: it is empty until something is imported, or discovery "
                "is at work (\"zntopo state\").");
}

}  // namespace

NamedNode findNode(Session& session, const std::string& text) {
  try {
    return findReadyNode(session, text);
  } catch (const Failure& failure) {
    if (failure.status().getStatus() == ZN_API_OBJ_NOT_EXIST) requireReady(session);
    throw;
  }
}

std::map<std::string, ZNRefPtr<ZNNode>> nodesById(Session& session, const std::set<ObjID>& ids) {
  std::map<std::string, ZNRefPtr<ZNNode>> result;
  if (ids.empty()) return result;
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto nodes = session.api().getNodesByObjIDList(ids, notFound, status, false, false, false,
                                                       ZNEntity::AllProtocol, -1);
  check(status);
  for (const auto& node : *nodes) result.emplace(node->getObjID().toString(), node);
  return result;
}

std::map<std::string, ZNRefPtr<ZNInterface>> interfacesById(Session& session,
                                                            const std::set<ObjID>& ids) {
  std::map<std::string, ZNRefPtr<ZNInterface>> result;
  if (ids.empty()) return result;
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto interfaces =
      session.api().getInterfacesByObjIDList(ids, notFound, status, false, false);
  check(status);
  for (const auto& one : *interfaces) result.emplace(one->getObjID().toString(), one);
  return result;
}

std::list<ZNRefPtr<ZNInterface>> interfacesOf(const ZNNode& node) {
  ZNTopoAPIStatus status;
  const auto list =
      topologyGateway().getInterfacesByNodeObjIDList(ActiveDB, {node.getObjID()}, status);
  check(status);
  return list ? *list : std::list<ZNRefPtr<ZNInterface>>();
}

std::map<std::string, std::vector<std::string>> addressesOf(Session& session, const ZNNode& node) {
  std::list<ObjID> ids;
  for (const TextRow& row : selectTexts(session.connection(),
                                        "select a.AddressId from address a, nwinterface i "
                                        "where a.ObjId = i.ObjId and i.NodeObjID = ?",
                                        1, {node.getObjID().toString()})) {
    ids.emplace_back(row.front());
  }
  std::map<std::string, std::vector<std::string>> result;
  if (ids.empty()) return result;
  ZNTopoAPIStatus status;
  auto addresses = session.api().getAddrsByObjIDs(ids, status, false, ZNAddress::IPv4);
  check(status);
  const auto key = [](const ZNRefPtr<ZNAddress>& address) {
    return std::pair(address->getAddressType(), address->getAddressAsString());
  };
  std::sort(addresses->begin(), addresses->end(),
            [&](const auto& left, const auto& right) { return key(left) < key(right); });
  for (const auto& address : *addresses) {
    const ZNAddress::AddressType type = address->getAddressType();
    if (type != ZNAddress::IPv4 && type != ZNAddress::IPv6) continue;
    result[address->getAssEntityID().toString()].push_back(address->getAddressAsString());
  }
  return result;
}

std::vector<std::string> vlanNamesOf(Session& session, const ZNNode& node) {
  std::vector<std::string> ids;
  for (const ZNVlanInfo& info : node.getVlanInfoList()) {
    ids.push_back(info.getVlanObjID().toString());
  }
  if (ids.empty()) return {};
  std::map<std::string, std::string> names;
  for (const TextRow& row : selectTexts(session.connection(),
                                        "select ObjId, EntityName from nwentity where ObjId in (" +
                                            parameterMarks(ids.size()) + ")",
                                        2, ids)) {
    names[row[0]] = row[1];
  }
  std::vector<std::string> result;
  for (const std::string& id : ids) {
    if (const auto name = names.find(id); name != names.end()) result.push_back(name->second);
  }
  return result;
}

}  // namespace zntopo::tools
