#include "tools/zntopo/Lookup.h"

#include <algorithm>
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

/// The results of a request for each kind of identifiers.
template <typename Object, typename Request>
std::vector<ZNRefPtr<Object>> listOf(const Identifiers& ids, const Request& request) {
  std::vector<ZNRefPtr<Object>> result;
  for (const auto& [kind, set] : ids.byKind()) {
    ZNTopoAPIStatus status;
    const auto objects = request(set, status);
    check(status);
    result.insert(result.end(), objects->begin(), objects->end());
  }
  return result;
}

/// The same by identifier text.
template <typename Object, typename IdOf>
std::map<std::string, ZNRefPtr<Object>> byId(const std::vector<ZNRefPtr<Object>>& objects,
                                             const IdOf& idOf) {
  std::map<std::string, ZNRefPtr<Object>> result;
  for (const auto& object : objects) {
    const ObjID& id = ((*object).*idOf)();
    if (!id.isNull()) result.emplace(id.toString(), object);
  }
  return result;
}

/// Parts of a list of texts, none too long for the parameters of one statement.
template <typename Work>
void forEachPart(const std::vector<std::string>& texts, const Work& work) {
  constexpr std::size_t most = 500;
  for (std::size_t at = 0; at < texts.size(); at += most) {
    const auto begin = texts.begin() + static_cast<std::ptrdiff_t>(at);
    work(
        std::vector(begin, begin + static_cast<std::ptrdiff_t>(std::min(most, texts.size() - at))));
  }
}

/// Those of identifiers that no address has.
std::vector<std::string> missingAmong(const std::vector<ZNRefPtr<ZNAddress>>& addresses,
                                      const Identifiers& ids) {
  const auto known = byId(addresses, &ZNAddress::getAddressID);
  std::vector<std::string> missing = ids.texts();
  std::erase_if(missing, [&](const std::string& id) { return known.contains(id); });
  return missing;
}

/// Gives addresses without identifiers those of the row that has their text.
void identify(Session& session, const Identifiers& ids,
              const std::vector<ZNRefPtr<ZNAddress>>& addresses) {
  enum Column : std::size_t { Id, Owner, Text, COLUMN_COUNT };
  std::multimap<std::string, TextRow> rows;
  forEachPart(missingAmong(addresses, ids), [&](const std::vector<std::string>& part) {
    for (const TextRow& row :
         selectTexts(session.connection(),
                     "select AddressId, ObjId, coalesce(V6Address, DNSName) from "
                     "address where AddressId in (" +
                         parameterMarks(part.size()) + ")",
                     COLUMN_COUNT, part)) {
      rows.emplace(row[Text], row);
    }
  });
  for (const auto& address : addresses) {
    const auto row = rows.find(address->getAddressAsString());
    if (!address->getAddressID().isNull() || row == rows.end()) continue;
    address->setAddressID(row->second[Id]);
    if (!row->second[Owner].empty()) address->setAssEntityID(row->second[Owner]);
    rows.erase(row);
  }
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

void Identifiers::add(const Identifiers& others) {
  for (const auto& [kind, set] : others.sets_) sets_[kind].insert(set.begin(), set.end());
}

void Identifiers::keep(const Identifiers& others) {
  for (auto& [kind, set] : sets_) {
    const auto found = others.sets_.find(kind);
    std::erase_if(set, [&](const ObjID& id) {
      return found == others.sets_.end() || !found->second.contains(id);
    });
  }
  std::erase_if(sets_, [](const auto& entry) { return entry.second.empty(); });
}

std::vector<std::string> Identifiers::texts() const {
  std::vector<std::string> result;
  for (const auto& [kind, set] : sets_) {
    for (const ObjID& id : set) result.push_back(id.toString());
  }
  return result;
}

std::vector<ZNRefPtr<ZNNode>> nodeList(Session& session, const Identifiers& ids) {
  std::set<ObjID> notFound;
  return listOf<ZNNode>(ids, [&](const std::set<ObjID>& set, ZNTopoAPIStatus& status) {
    return session.api().getNodesByObjIDList(set, notFound, status, false, false, false,
                                             ZNEntity::AllProtocol, -1);
  });
}

std::map<std::string, ZNRefPtr<ZNNode>> nodesById(Session& session, const Identifiers& ids) {
  return byId(nodeList(session, ids), &ZNNode::getObjID);
}

std::vector<ZNRefPtr<ZNInterface>> interfaceList(Session& session, const Identifiers& ids) {
  std::set<ObjID> notFound;
  return listOf<ZNInterface>(ids, [&](const std::set<ObjID>& set, ZNTopoAPIStatus& status) {
    return session.api().getInterfacesByObjIDList(set, notFound, status, false, false);
  });
}

std::map<std::string, ZNRefPtr<ZNInterface>> interfacesById(Session& session,
                                                            const Identifiers& ids) {
  return byId(interfaceList(session, ids), &ZNInterface::getObjID);
}

std::vector<ZNRefPtr<ZNAddress>> addressList(Session& session, const Identifiers& ids) {
  auto addresses = listOf<ZNAddress>(ids, [&](const std::set<ObjID>& set, ZNTopoAPIStatus& status) {
    return session.api().getAddrsByObjIDs({set.begin(), set.end()}, status, false, ZNAddress::IPv4);
  });
  identify(session, ids, addresses);
  return addresses;
}

std::map<std::string, ZNRefPtr<ZNAddress>> addressesById(Session& session, const Identifiers& ids) {
  return byId(addressList(session, ids), &ZNAddress::getAddressID);
}

ZNTopoAPIStatus completeness(Session& session, const std::string& table, std::size_t found,
                             std::size_t expected) {
  constexpr std::size_t most = 10;
  if (found >= expected) return {};
  const auto rows =
      selectTexts(session.connection(),
                  "select ObjId from " + table +
                      " where EntityName is null or EntityName = '' or IPLevel is null",
                  1, {});
  if (rows.empty()) return {};
  std::string text = "The list is not complete: the library reads no further than a row of " +
                     table + " without a name or an IP level. Put that right in";
  for (std::size_t i = 0; i < rows.size() && i < most; ++i) text += "\n  " + rows[i].front();
  return Failure(ZN_API_SQL_FETCH_ERROR, text + (rows.size() > most ? "\n  ..." : "")).status();
}

std::size_t rowCount(Session& session, const std::string& rows,
                     const std::vector<std::string>& parameters) {
  const auto counted =
      selectTexts(session.connection(), "select count(*) from " + rows, 1, parameters);
  return static_cast<std::size_t>(wholeNumber(counted.at(0).at(0)).value_or(0));
}

std::map<std::string, std::string> namesById(Session& session, const std::string& table,
                                             const Identifiers& ids) {
  const std::vector<std::string> texts = ids.texts();
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

std::map<std::string, std::vector<std::string>> addressesOf(Session& session,
                                                            const Identifiers& interfaces) {
  Identifiers ids;
  forEachPart(interfaces.texts(), [&](const std::vector<std::string>& part) {
    for (const TextRow& row : selectTexts(
             session.connection(),
             "select AddressId from address where ObjId in (" + parameterMarks(part.size()) + ")",
             1, part)) {
      ids.add(row.front());
    }
  });
  std::vector<ZNRefPtr<ZNAddress>> addresses = addressList(session, ids);
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
