#include <utility>

#include "tools/network/StoreStatement.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/FilterOptions.h"
#include "tools/zntopo/NameLookup.h"
#include "tools/zntopo/NamePattern.h"
#include "tools/zntopo/ObjectLists.h"
#include "tools/zntopo/Selection.h"

namespace zntopo::tools {

namespace {

struct NodesOptions {
  int ipLevel = 0;
  std::string name;
  std::vector<std::string> capabilities;
  std::string address;
  FilterOptions filter;

  bool hasAttributes() const { return !name.empty() || !capabilities.empty(); }
};

/// The columns of capabilities. The option lets no other name into a statement.
constexpr std::array kCapabilities = {
    "isATM",           "isBGP",        "isCDP",        "isDS1",       "isDS3",   "isFrameRelay",
    "isHSRP",          "isIPv4Router", "isIPv6Router", "isLanSwitch", "isMPLS",  "isManageable",
    "isMultiHome",     "isOSPF",       "isRMON",       "isRMON2",     "isSONET", "isSTP",
    "isSnmpSupported", "isVRRP",       "isWireless"};

void addOptions(CLI::App& command, NodesOptions& options) {
  addIpLevelOption(command, options.ipLevel, "nodes");
  addPatternOption(command, "--name", options.name,
                   "Only nodes whose name or description fits: \"*\" is any text, \"?\" one "
                   "character");
  command
      .add_option("--capability", options.capabilities,
                  std::string("Only nodes with this capability, as \"zntopo node\" names it; with "
                              "several, those that "
                              "have one of them. One of ") +
                      CLI::detail::join(kCapabilities, ", "))
      ->type_name("CAPABILITY")
      ->take_all()
      ->transform(isOneOf(std::vector<std::string>(kCapabilities.begin(), kCapabilities.end())));
  command
      .add_option("--address", options.address,
                  "Only nodes with this address, for their management or on an interface")
      ->type_name("ADDRESS")
      ->check(CLI::Validator(
          [](const std::string& text) {
            return IpAddress::parse(text) ? "" : "\"" + text + "\" is no address";
          },
          ""));
  addFilterOptions(command, options.filter, "nodes");
}

ZNTopoFilter attributesOf(const NodesOptions& options) {
  ZNTopoFilter filter;
  if (options.ipLevel != 0) filter.setIPLevel(static_cast<ZNEntity::IPLevel>(options.ipLevel));
  if (!options.name.empty()) filter.setRegexEntityName(NamePattern(options.name).sql());
  std::vector<ZNCapability> capabilities;
  for (const std::string& name : options.capabilities) capabilities.emplace_back(name);
  if (!capabilities.empty()) filter.setOrCapabilityNames(capabilities);
  return filter;
}

/// The nodes that have an address on an interface or for their management. The library finds those
/// with an IPv4 address on an interface alone.
Identifiers ownersOf(Session& session, const IpAddress& address) {
  requireReady(session);
  const std::string row = address.isV6() ? "V6AddressBS = ?" : "V4Address = ?";
  std::string sql =
      "select NodeObjID from nwinterface where ObjId in "
      "(select ObjId from address where isSubnet = 0 and " +
      row + ")";
  std::vector<std::string> parameters = {address.isV6() ? address.bitText() : address.text()};
  if (!address.isV6()) {
    sql +=
        " union select ObjId from nwnode where V4ManagementAddress = ? or PubV4ManagementAdd = ?";
    parameters.resize(3, address.text());
  }
  Identifiers nodes;
  for (const TextRow& found : selectTexts(session.connection(), sql, 1, parameters)) {
    nodes.add(found.front());
  }
  return nodes;
}

/// Asks for each condition alone: an address puts all other conditions of the library's filter out
/// of force.
Selection selected(Session& session, const NodesOptions& options) {
  Selection selection;
  if (options.filter.isGiven()) selection.keep(runFilter(session, options.filter, E_Node));
  if (const auto address = IpAddress::parse(options.address)) {
    selection.keep(ownersOf(session, *address));
  }
  if (options.hasAttributes() || (options.ipLevel != 0 && selection.hasCondition())) {
    selection.keep(idsByAttributes(session, &ZNTopoAPI::getNodeIDsByFilter, attributesOf(options)));
  }
  return selection;
}

std::vector<ZNRefPtr<ZNNode>> allNodes(Session& session, int ipLevel) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto list = session.api().getNodesByObjIDList({}, notFound, status, false, false, true,
                                                      static_cast<ZNEntity::IPLevel>(ipLevel), -1);
  check(status);
  return {list->begin(), list->end()};
}

/// How many nodes are read, if all can be: of all nodes not fewer than those of one level.
std::size_t expectedNodes(Session& session, const Selection& selection) {
  if (selection.hasCondition()) return selection.ids().texts().size();
  return rowCount(session, "nwnode");
}

void nodes(const Context& context, const NodesOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  const Selection selection = selected(session, options);
  auto nodes = selection.hasCondition() ? nodeList(session, selection.ids())
                                        : allNodes(session, options.ipLevel);
  answer.status = completeness(session, "nwnode", nodes.size(), expectedNodes(session, selection));
  if (!options.name.empty()) {
    std::erase_if(nodes, [pattern = NamePattern(options.name)](const ZNRefPtr<ZNNode>& node) {
      return !pattern.matchesEntity(*node);
    });
  }
  nodeListing(std::move(nodes)).fill(answer, "nodes", "node");
}

}  // namespace

constinit const Command kNodesCommand = {
    .name = "nodes",
    .about =
        "List all nodes, by name, or those that meet conditions. Several conditions hold together.",
    .examples =
        "  zntopo nodes\n"
        "  zntopo nodes --ip-level 6 --json\n"
        "  zntopo nodes --name \"access-*\" --capability isLanSwitch\n"
        "  zntopo nodes --filter Routers",
    .empty = R"({"nodes": []})",
    .prepare = prepare<addOptions, nodes>,
};

}  // namespace zntopo::tools
