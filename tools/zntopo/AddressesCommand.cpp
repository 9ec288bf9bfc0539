#include "tools/network/StoreStatement.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/FilterOptions.h"
#include "tools/zntopo/NamePattern.h"
#include "tools/zntopo/ObjectLists.h"
#include "tools/zntopo/Selection.h"

namespace zntopo::tools {

namespace {

using AddressType = ZNAddress::AddressType;
using AddressList = std::vector<ZNRefPtr<ZNAddress>>;

struct AddressesOptions {
  std::string node;
  int ipLevel = 0;
  std::optional<AddressType> type;
  std::optional<InetAddressIPv6::ScopeType> scope;
  std::string prefix;
  std::string address;
  FilterOptions filter;

  bool hasAttributes() const {
    return ipLevel != 0 || type || scope || !prefix.empty() || !address.empty();
  }
  /// The store has addresses in one form and in lower case.
  NamePattern pattern() const {
    const auto whole = IpAddress::parse(address);
    return NamePattern(whole ? whole->text() : CLI::detail::to_lower(address));
  }
};

void addOptions(CLI::App& command, AddressesOptions& options) {
  addOptionalNodeArgument(command, "NODE", options.node);
  addIpLevelOption(command, options.ipLevel, "addresses");
  addNamedOption(command, "--type", options.type, kAddressTypes, "TYPE",
                 "Only addresses of this type");
  addNamedOption(command, "--scope", options.scope, kScopeNames, "SCOPE",
                 "Only IPv6 addresses of this scope");
  command.add_option("--prefix", options.prefix, "Only addresses that lie in this prefix")
      ->type_name("PREFIX")
      ->check(CLI::Validator(
          [](const std::string& text) {
            return IpPrefix::parse(text) ? "" : "\"" + text + "\" is no prefix";
          },
          ""));
  addPatternOption(command, "--address", options.address,
                   "Only IPv4 and IPv6 addresses that fit: \"*\" is any text, \"?\" one character");
  addFilterOptions(command, options.filter, "addresses");
}

/// What the options say of addresses of one type, or of any.
ZNTopoFilter attributesOf(const AddressesOptions& options, std::optional<AddressType> type) {
  ZNTopoFilter filter;
  if (options.ipLevel != 0) filter.setIPLevel(static_cast<ZNEntity::IPLevel>(options.ipLevel));
  if (type) filter.setAddressType(*type);
  if (options.scope) filter.setV6ScopeType(*options.scope);
  if (!options.address.empty()) filter.setAddressStr(options.pattern().sql());
  const auto prefix = IpPrefix::parse(options.prefix);
  // The library compares the bits of IPv6 addresses alone.
  if (prefix && type == ZNAddress::IPv6) {
    filter.setPrefixAddressStr(prefix->network.text());
    filter.setPrefixLength(prefix->length);
  }
  return filter;
}

/// The types that the options ask for by themselves; none if any will do.
std::vector<AddressType> typesOf(const AddressesOptions& options) {
  if (options.type) return {*options.type};
  if (const auto prefix = IpPrefix::parse(options.prefix)) {
    return {prefix->network.isV6() ? ZNAddress::IPv6 : ZNAddress::IPv4};
  }
  // A text is one of a type.
  if (!options.address.empty()) return {ZNAddress::IPv4, ZNAddress::IPv6};
  return {};
}

Identifiers byAttributes(Session& session, const AddressesOptions& options) {
  const auto ask = [&](std::optional<AddressType> type) {
    return idsByAttributes(session, &ZNTopoAPI::getAddressIDsByFilter, attributesOf(options, type));
  };
  const std::vector<AddressType> types = typesOf(options);
  if (types.empty()) return ask(std::nullopt);
  Identifiers ids;
  for (const AddressType type : types) ids.add(ask(type));
  return ids;
}

/// The addresses on the interfaces of a node.
Identifiers ofNode(Session& session, const std::string& node) {
  Identifiers ids;
  for (const TextRow& row :
       selectTexts(session.connection(),
                   "select a.AddressId from address a, nwinterface i "
                   "where a.ObjId = i.ObjId and i.NodeObjID = ? and a.isSubnet = 0",
                   1, {findNodeId(session, node).toString()})) {
    ids.add(row.front());
  }
  return ids;
}

/// What the options say of rows of addresses, beside what isAskedFor() tells.
std::string conditionsOf(const AddressesOptions& options) {
  std::string sql;
  const auto require = [&](const char* column, int value) {
    sql += std::string(" and ") + column + " = " + std::to_string(value);
  };
  if (options.ipLevel != 0) require("IPLevel", options.ipLevel);
  if (options.scope) require("V6ScopeType", *options.scope);
  std::string types;
  for (const AddressType type : typesOf(options)) {
    types += (types.empty() ? "" : ", ") + std::to_string(type);
  }
  if (!types.empty()) sql += " and AddressType in (" + types + ")";
  return sql;
}

/// Those that the filter selects and that meet the other options. The library asks for addresses
/// of interfaces alone, and a filter may select those of subnets.
Identifiers ofFilter(Session& session, const AddressesOptions& options) {
  Identifiers selected = runFilter(session, options.filter, E_Address);
  const std::string conditions = conditionsOf(options);
  if (conditions.empty()) return selected;
  Identifiers fitting;
  for (const TextRow& row : selectTexts(
           session.connection(), "select AddressId from address where 1 = 1" + conditions, 1, {})) {
    fitting.add(row.front());
  }
  fitting.keep(selected);
  return fitting;
}

Selection selected(Session& session, const AddressesOptions& options) {
  Selection selection;
  if (!options.node.empty()) selection.keep(ofNode(session, options.node));
  if (options.filter.isGiven()) {
    selection.keep(ofFilter(session, options));
  } else if (options.hasAttributes() || !selection.hasCondition()) {
    selection.keep(byAttributes(session, options));
  }
  return selection;
}

/// Whether an address is one that the options ask for, where the store may give others too.
bool isAskedFor(const ZNAddress& address, const AddressesOptions& options) {
  const std::string& text = address.getAddressAsString();
  if (!options.address.empty() && !options.pattern().matches(text)) return false;
  if (options.prefix.empty()) return true;
  const auto ip = IpAddress::parse(text);
  return ip && IpPrefix::parse(options.prefix)->contains(*ip);
}

void addresses(const Context& context, const AddressesOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  AddressList addresses = addressList(session, selected(session, options).ids());
  std::erase_if(addresses,
                [&](const ZNRefPtr<ZNAddress>& address) { return !isAskedFor(*address, options); });
  addressListing(session, addresses).fill(answer, "addresses", "address");
}

}  // namespace

constinit const Command kAddressesCommand = {
    .name = "addresses",
    .about =
        "List all addresses of interfaces, or those of a node, that meet conditions. Several\n"
        "conditions hold together.",
    .examples =
        "  zntopo addresses core-1\n"
        "  zntopo addresses --prefix 10.20.8.0/24\n"
        "  zntopo addresses --scope global --address \"*::11\" --json\n"
        "  zntopo addresses --filter SilentAddresses",
    .empty = R"({"addresses": []})",
    .prepare = prepare<addOptions, addresses>,
};

}  // namespace zntopo::tools
