#include "tools/zntopo/Commands.h"
#include "tools/zntopo/NaturalOrder.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/fields/Field.h"

namespace zntopo::tools {

namespace {

using Info = ZNTopologyInfo;

constexpr Field<Info> kInfoFields[] = {
    {.key = "state",
     .value = [](const Info& info) { return Json(info.getTopologyState().getStateAsString()); }},
    {.key = "nodes", .value = member<&Info::getNumberOfNode>},
    {.key = "ipv4_nodes", .value = member<&Info::getNumberOfIPV4Node>},
    {.key = "ipv6_nodes", .value = member<&Info::getNumberOfIPV6Node>},
    {.key = "snmp_nodes", .value = member<&Info::getNumberOfV4SNMPNode>},
    {.key = "interfaces", .value = member<&Info::getNumberOfInterface>},
    {.key = "ipv4_interfaces", .value = member<&Info::getNumberOfIPV4Interface>},
    {.key = "ipv6_interfaces", .value = member<&Info::getNumberOfIPV6Interface>},
    {.key = "links", .value = member<&Info::getNumberOfL2Link>},
    {.key = "ipv4_addresses", .value = member<&Info::getNumberOfV4Address>},
    {.key = "ipv6_addresses", .value = member<&Info::getNumberOfV6Address>},
    {.key = "dns_names", .value = member<&Info::getNumberOfDNSName>},
    {.key = "ipv4_subnets", .value = member<&Info::getNumberOfSubnet>},
    {.key = "ipv6_subnets", .value = member<&Info::getNumberOfPrefixGroup>},
    {.key = "vlans", .value = member<&Info::getNumberOfVlan>},
    {.key = "hsrp_groups", .value = member<&Info::getNumberOfHSRP>},
    {.key = "meshes", .value = member<&Info::getNumberOfMesh>},
};

/// The nodes whose management address is of one route distinguisher.
struct Domain {
  std::string routeDistinguisher;
  int nodes;
};

/// As a number; null for the nodes that have none.
Json routeDistinguisher(const Domain& domain) {
  if (domain.routeDistinguisher.empty()) return nullptr;
  return std::stoll(domain.routeDistinguisher);
}

constexpr Field<Domain> kDomainFields[] = {
    {.key = "route_distinguisher", .head = "RD", .value = routeDistinguisher},
    {.key = "nodes", .head = "NODES", .value = member<&Domain::nodes>},
};

void info(const Context& context, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  const Info read = session.api().getTopologyInfo(answer.status);
  check(answer.status);
  std::vector<Domain> domains;
  for (const auto& [key, nodes] : read.getRDMap()) domains.push_back({key, nodes});
  sortBy(domains, [](const Domain& one) { return Natural{one.routeDistinguisher}; });
  View view;
  view.add<Info>(kInfoFields, read);
  view.addList<Domain>("route_distinguishers", "route distinguisher", kDomainFields, domains);
  answer.json.update(view.json());
  answer.text = view.text();
}

}  // namespace

constinit const Command kInfoCommand = {
    .name = "info",
    .about = "Show how large the topology is.",
    .examples =
        "  zntopo info\n"
        "  zntopo info --json",
    .empty = R"({"state": null, "nodes": 0, "ipv4_nodes": 0, "ipv6_nodes": 0, "snmp_nodes": 0,
        "interfaces": 0, "ipv4_interfaces": 0, "ipv6_interfaces": 0, "links": 0,
        "ipv4_addresses": 0, "ipv6_addresses": 0, "dns_names": 0, "ipv4_subnets": 0,
        "ipv6_subnets": 0, "vlans": 0, "hsrp_groups": 0, "meshes": 0,
        "route_distinguishers": []})",
    .prepare = prepare<info>,
};

}  // namespace zntopo::tools
