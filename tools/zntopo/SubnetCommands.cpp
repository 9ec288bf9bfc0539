#include <optional>
#include <tuple>

#include "tools/network/PlainText.h"
#include "tools/network/StoreStatement.h"
#include "tools/zntopo/GroupKind.h"
#include "tools/zntopo/NamePattern.h"
#include "tools/zntopo/Names.h"
#include "tools/zntopo/fields/EntityFields.h"
#include "tools/zntopo/fields/SubnetFields.h"
#include "zntopo/api/ZNTopoFilter.h"

namespace zntopo::tools {

namespace {

using ScopeType = InetAddressIPv6::ScopeType;

struct SubnetsOptions {
  std::string from;
  int hops = 1;
  int ipLevel = 0;
  std::optional<ScopeType> scope;
  std::string name;
};

/// The subnets' own addresses, by the identifier of the subnet. One that is asked for alone has
/// its own condition.
std::map<std::string, ZNRefPtr<ZNAddress>> ownAddresses(Session& session,
                                                        const std::vector<SubnetDetails>& subnets) {
  std::string sql = "select AddressId from address where isSubnet = 1 and ObjId = SubnetObjId";
  std::vector<std::string> parameters;
  if (subnets.size() == 1) {
    sql += " and ObjId = ?";
    parameters.push_back(subnets.front().object->getObjID().toString());
  }
  Identifiers ids;
  for (const TextRow& row : selectTexts(session.connection(), sql, 1, parameters)) {
    ids.add(row.front());
  }
  std::map<std::string, ZNRefPtr<ZNAddress>> result;
  for (const auto& [id, address] : addressesById(session, ids)) {
    result.emplace(address->getAssEntityID().toString(), address);
  }
  return result;
}

/// Subnets by their prefixes, IPv4 ones first and those without a prefix last.
std::vector<SubnetDetails> withAddresses(Session& session, std::vector<SubnetDetails> subnets) {
  if (subnets.empty()) return subnets;
  const auto addresses = ownAddresses(session, subnets);
  for (SubnetDetails& subnet : subnets) {
    const auto found = addresses.find(subnet.object->getObjID().toString());
    if (found != addresses.end()) subnet.address = found->second;
  }
  sortBy(subnets, [](const SubnetDetails& subnet) {
    const auto prefix = IpPrefix::parse(prefixText(subnet));
    return std::tuple(!prefix, prefix && prefix->network.isV6(),
                      prefix ? prefix->network.bitText() : "", prefix ? prefix->length : 0,
                      naturalKey(*subnet.object));
  });
  return subnets;
}

std::vector<SubnetDetails> readSubnets(Session& session, const std::set<ObjID>& ids,
                                       ZNEntity::IPLevel ipLevel) {
  ZNTopoAPIStatus status;
  const auto subnets =
      session.api().getSubnetsByObjIDList(ids, status, false, ids.empty(), ipLevel, -1);
  check(status);
  return withAddresses(session, detailsOf<SubnetDetails>(*subnets));
}

std::vector<SubnetDetails> readSubnetsOfAnyLevel(Session& session, const std::set<ObjID>& ids) {
  return readSubnets(session, ids, ZNEntity::AllProtocol);
}

void addMembers(Session& session, SubnetDetails& subnet) {
  Identifiers nodes;
  Identifiers interfaces;
  Identifiers addressIds;
  for (const SubnetEndPoint& point : subnet.object->getSubnetEndPointList()) {
    nodes.add(point.getNodeObjID());
    interfaces.add(point.getIFObjID());
    addressIds.add(point.getAddressID());
  }
  const Names names(session, interfaces, nodes);
  const auto addresses = addressesById(session, addressIds);
  for (const SubnetEndPoint& point : subnet.object->getSubnetEndPointList()) {
    const auto address = addresses.find(point.getAddressID().toString());
    subnet.members.push_back(
        {names.end(point.getNodeObjID(), point.getIFObjID()),
         address == addresses.end() ? "" : address->second->getAddressAsString()});
  }
  sortBy(subnet.members, [](const SubnetMember& one) {
    return std::tuple(naturalKey(one.end), Natural{one.address});
  });
}

void addLists(const SubnetDetails& subnet, View& view) {
  view.addList("end_points", "address", subnetMemberFields(), subnet.members);
}

/// A condition on the rows of addresses, for the text of one.
Condition isAddress(const IpAddress& address) {
  if (address.isV6()) return {"V6AddressBS = ?", {address.bitText()}};
  return {"V4Address = ?", {address.text()}};
}

/// The subnet of a prefix, however it is written, or in which an address lies.
std::vector<Condition> byAddress(const std::string& text) {
  if (const auto prefix = IpPrefix::parse(text)) {
    Condition own = isAddress(prefix->network);
    own.sql = "ObjId in (select ObjId from address where isSubnet = 1 and PrefixLength = " +
              std::to_string(prefix->length) + " and " + own.sql + ")";
    return {own, isNamed(prefix->text())};
  }
  const auto address = IpAddress::parse(text);
  if (!address) return {};
  Condition inside = isAddress(*address);
  inside.sql =
      "ObjId in (select SubnetObjId from address where isSubnet = 0 and " + inside.sql + ")";
  return {inside};
}

constexpr GroupKind<SubnetDetails> kSubnets = {
    .name = {.word = "subnet",
             .rows = "nwentity where EntityType = 7 and",
             .otherNames = byAddress},
    .argument =
        "A name, an identifier, a prefix, an address in the subnet or the beginning of a name",
    .listKey = "subnets",
    .viewKey = "subnet",
    .fields = subnetFields,
    .read = readSubnetsOfAnyLevel,
    .complete = addMembers,
    .addLists = addLists,
};

ZNTopoFilter filterOf(const SubnetsOptions& options) {
  ZNTopoFilter filter;
  if (options.ipLevel != 0) filter.setIPLevel(static_cast<ZNEntity::IPLevel>(options.ipLevel));
  if (options.scope) filter.setV6ScopeType(*options.scope);
  if (!options.name.empty()) filter.setRegexEntityName(NamePattern(options.name).sql());
  return filter;
}

/// All subnets that the options ask for.
std::vector<SubnetDetails> listed(Session& session, const SubnetsOptions& options) {
  auto subnets = readSubnets(session, {}, static_cast<ZNEntity::IPLevel>(options.ipLevel));
  std::erase_if(subnets, [&](const SubnetDetails& subnet) {
    return options.scope && scopeOf(subnet.address) != *options.scope;
  });
  return subnets;
}

/// Those of the same whose name or description fits a pattern.
std::vector<SubnetDetails> named(Session& session, const SubnetsOptions& options) {
  ZNTopoAPIStatus status;
  const auto ids = session.api().getSubnetIDsByFilter(filterOf(options), status);
  check(status);
  requireReady(session);
  if (ids->empty()) return {};
  auto subnets = readSubnetsOfAnyLevel(session, {ids->begin(), ids->end()});
  std::erase_if(subnets, [&](const SubnetDetails& subnet) {
    return !NamePattern(options.name).matchesEntity(*subnet.object);
  });
  return subnets;
}

/// Those around a node. The library gives none, and says why, for what is no IPv6 node.
std::vector<SubnetDetails> around(Session& session, const SubnetsOptions& options,
                                  const ZNNode& node, Answer& answer) {
  ZNTopoAPIStatus status;
  const auto ids = session.api().getNSubnetConnectivity(options.hops, node.getObjID(),
                                                        filterOf(options), status);
  if (status.getStatus() == ZN_API_NON_V6_NODE) {
    answer.note = printable(node.getName()) +
                  " is no IPv6 node: \"zntopo nodes --ip-level 6\" lists those that are.";
  }
  check(status);
  if (ids->empty()) return {};
  return readSubnetsOfAnyLevel(session, {ids->begin(), ids->end()});
}

void subnets(const Context& context, const SubnetsOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  if (options.from.empty()) {
    const auto found = options.name.empty() ? listed(session, options) : named(session, options);
    listingOf(kSubnets, found).fill(answer, "subnets", kSubnets.name.word);
    return;
  }
  const NamedNode start = findNode(session, options.from);
  const auto listing = listingOf(kSubnets, around(session, options, *start.node, answer));
  answer.json["subnets"] = listing.json();
  answer.text = listing.text() + counted(listing.size(), kSubnets.name.word) + " within " +
                counted(static_cast<std::size_t>(options.hops), "hop") + " of " +
                printable(start.node->getName()) + "\n";
}

void addOptions(CLI::App& command, SubnetsOptions& options) {
  auto* const from =
      addNameArgument(command, "--from", options.from, "node", "Only subnets around this IPv6 node")
          ->type_name("NODE");
  addLimit(command, "--hops", options.hops, "How far from it: 1 for its own subnets")->needs(from);
  addIpLevelOption(command, options.ipLevel, "subnets");
  addNamedOption(command, "--scope", options.scope, kScopeNames, "SCOPE",
                 "Only IPv6 subnets of this scope; the way from a node goes through no others");
  addPatternOption(command, "--name", options.name,
                   "Only subnets whose name or description fits: \"*\" is any text, \"?\" one "
                   "character")
      ->excludes(from);
}

}  // namespace

constinit const Command kSubnetsCommand = {
    .name = "subnets",
    .about = "List all subnets, or those around an IPv6 node, by prefix.",
    .examples =
        "  zntopo subnets\n"
        "  zntopo subnets --ip-level 6 --scope global\n"
        "  zntopo subnets --name \"*offices*\"\n"
        "  zntopo subnets --from sensor-1 --hops 2 --json",
    .empty = R"({"subnets": []})",
    .prepare = prepare<addOptions, subnets>,
};

constinit const Command kSubnetCommand = {
    .name = "subnet",
    .about = "Show one subnet with the addresses in it.",
    .examples =
        "  zntopo subnet 10.20.8.0/24\n"
        "  zntopo subnet 10.20.8.17 --json",
    .empty = R"({"subnet": null})",
    .prepare = prepare<addGroupOptions<kSubnets>, showGroup<kSubnets>>,
};

}  // namespace zntopo::tools
