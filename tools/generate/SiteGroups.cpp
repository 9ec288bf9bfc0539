#include <algorithm>

#include "tools/generate/CampusNames.h"
#include "tools/generate/SiteFabric.h"
#include "tools/network/StoreRows.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"

namespace zntopo::tools {

namespace {

// What the numbers of the containers mean here.
enum ContainerKind : int { Bundle = 1, Service = 2 };
enum Application : int { Switching = 1, WideArea = 2 };
enum Relation : int { BackupOf = 1, DependsOn = 2 };
enum Containment : int { Member = 1, Transit = 2 };

/// The states of the two gateways of a group: the first is the one that is meant to be active.
std::array<int, 2> groupStates(SiteFabric& site) {
  using Info = ZNHSRPAddressInfo;
  Random& random = site.part.random();
  const int broken = static_cast<int>(site.part.plan().brokenGroupShare * 1000 + 0.5);
  if (!random.inThousand(broken)) return {Info::Active, Info::StandBy};
  if (random.inThousand(500)) return {Info::Active, Info::Active};
  return {Info::Listen, Info::Speak};
}

HsrpMemberModel member(SiteFabric& site, const EndPoint& port, int core, int state, bool isFirst) {
  HsrpMemberModel result;
  result.interface = port;
  result.address = site.part.at(port).addresses.front().address;
  result.state = state;
  result.priority = isFirst ? 110 : 100;
  result.certainty = site.part.random().inThousand(900) ? 100 : 80;
  for (const EndPoint& uplink : site.coreUplinks[core]) result.tracks.push_back({uplink, 10});
  return result;
}

/// The gateway ports of a VLAN on both cores, and their group; the active ones take turns.
void addGateway(SiteFabric& site, Index vlan) {
  const VlanModel& model = site.vlan(vlan);
  std::array<EndPoint, SiteLayout::kCores> ports;
  for (int core = 0; core < SiteLayout::kCores; ++core) {
    const EndPoint port =
        site.part.addPort(site.cores[core], PortRole::Vlan, "Vlan" + std::to_string(model.number));
    site.setVlans(port, {vlan});
    site.part.at(port).description = "gateway of " + model.name;
    const int number = SiteFabric::kFirstGateway + core;
    site.part.addAddress(port, site.v4(vlan, number), site.v4Length());
    site.part.addDetails(port, site.part.addAddress(port, site.v6(vlan, number), 64));
    ports[core] = port;
  }
  const int first = static_cast<int>(vlan % 2);
  const std::array<int, 2> states = groupStates(site);
  HsrpGroupModel group;
  group.key = model.key + "/gateway";
  group.name = model.name + "-gateway";
  group.description = "Gateway of " + model.name + " at " + site.v4(vlan, 1).text();
  group.legacyId = site.part.nextLegacyId();
  group.status = site.part.status();
  group.number = model.number;
  if (vlan == 0 && site.part.plan().userVariableShare > 0) {
    group.variables = {{"isCritical", true}};
  }
  for (int i = 0; i < SiteLayout::kCores; ++i) {
    const int core = (first + i) % SiteLayout::kCores;
    group.members.push_back(member(site, ports[core], core, states[i], i == 0));
  }
  site.part.addAudit(group.key, E_HSRP, 6, 101, "HSRP group became active");
  site.part.model().hsrpGroups.push_back(std::move(group));
}

Index addContainer(SiteFabric& site, const std::string& name, ContainerKind kind,
                   const std::string& description) {
  NetworkModel& model = site.part.model();
  ContainerModel& container = model.containers.emplace_back();
  container.name = siteName(site.campus, site.layout.index) + "-" + name;
  container.key = container.name + "/container";
  container.description = description;
  container.legacyId = site.part.nextLegacyId();
  container.status = site.part.status();
  container.type = kind;
  container.application = kind == Service ? WideArea : Switching;
  container.isOrdered = kind == Service;
  return model.containers.size() - 1;
}

void addMember(SiteFabric& site, Index container, const EndPoint& port, Containment how) {
  auto& members = site.part.model().containers[container].members;
  members.push_back({port, how, static_cast<int>(members.size()) + 1});
}

void associate(SiteFabric& site, Index left, Index right, Relation relation,
               const std::string& description) {
  AssociationModel association;
  association.left = left;
  association.right = right;
  association.relation = relation;
  association.state = site.part.random().inThousand(950) ? 1 : 2;
  association.stateChangeTime = site.part.recently();
  association.description = description;
  association.extraInfo = "since " + std::to_string(2015 + site.part.random().below(10));
  site.part.model().associations.push_back(std::move(association));
}

/// The road from a core to the wide area, in its order.
Index addService(SiteFabric& site, int number) {
  const Index service = addContainer(site, number == 0 ? "wan-a" : "wan-b", Service,
                                     "Way from the core to the wide area");
  addMember(site, service, site.coreUplinks[number][number], Transit);
  addMember(site, service, site.edgeDownlinks[number][number], Transit);
  if (!site.wanPorts.empty()) addMember(site, service, site.wanPorts[number], Member);
  return service;
}

/// The uplinks of all access switches of one VLAN.
Index addUplinks(SiteFabric& site, Index vlan) {
  const Index data = SiteLayout::kCommonVlans + vlan;
  const Index bundle = addContainer(site, "uplinks-" + std::to_string(site.vlan(data).number),
                                    Bundle, "Uplinks of the switches of " + site.vlan(data).name);
  for (int access = 0; access < site.layout.access; ++access) {
    if (site.dataVlanOf(access) != site.vlans[data]) continue;
    for (const EndPoint& port : site.accessUplinks[access]) addMember(site, bundle, port, Member);
  }
  return bundle;
}

}  // namespace

void addGateways(SiteFabric& site) {
  for (Index vlan = 0; vlan < site.vlans.size(); ++vlan) addGateway(site, vlan);
}

void addContainers(SiteFabric& site) {
  const std::array<Index, 2> services = {addService(site, 0), addService(site, 1)};
  associate(site, services[1], services[0], BackupOf, "The other way out of the site");
  const Index trunk = addContainer(site, "core-trunk", Bundle, "Trunk between the cores");
  for (const EndPoint& port : site.coreTrunks) addMember(site, trunk, port, Member);
  for (const Index service : services) associate(site, trunk, service, DependsOn, "");
  for (int vlan = 0; vlan < site.layout.dataVlans; ++vlan) {
    const Index bundle = addUplinks(site, static_cast<Index>(vlan));
    associate(site, bundle, trunk, DependsOn, "Data traffic takes the trunk");
  }
}

/// A small switch that nobody knows of, plugged into ports of several access switches.
void addMesh(SiteFabric& site) {
  MeshModel mesh;
  Index lastNode = 0;
  for (const EndPoint& port : site.freePorts) {
    if (port.node == lastNode || mesh.members.size() == 3) continue;
    lastNode = port.node;
    mesh.members.push_back(port);
  }
  if (mesh.members.size() < 2) return;
  mesh.name = siteName(site.campus, site.layout.index) + "-mesh";
  mesh.key = mesh.name;
  mesh.description = "Unknown switch";
  mesh.legacyId = site.part.nextLegacyId();
  site.part.model().meshes.push_back(std::move(mesh));
}

/// One row of each kind that an audit trail has beside those of the nodes.
void addSiteAudit(SiteFabric& site) {
  PartBuilder& part = site.part;
  const std::string name = siteName(site.campus, site.layout.index);
  const std::string portKey = part.at(site.accessUplinks.front()[0]).key;
  const std::string coreKey = part.model().nodes[site.cores[0]].key;
  const EndPoint uplink = site.coreUplinks[0][0];
  const std::string addressName =
      addressKey(part.at(uplink).key, part.at(uplink).addresses.front().address);
  part.addAudit(name + "-host-gone", E_Node, 1, 0, "Not seen for 30 days");
  part.addAudit(portKey, E_Interface, 3, 1, "Link to a distribution switch");
  part.addAudit(part.at(site.accessUplinks.back()[1]).key, E_Interface, 4, 1, "Link lost");
  part.addAudit(site.vlan(0).key, E_Vlan, 5, 2, "Members changed");
  part.addAudit(portKey, E_Interface, 5, 3, "Joined a container");
  part.addAudit(coreKey, E_Node, 5, 4, "Interfaces changed");
  part.addAudit(addressName, E_Address, 3, 5, "Address of an interface");
  part.addAudit(addressName, E_Address, 3, 6, "Address of a subnet");
  part.addAudit(site.vlan(0).key + "/gateway", E_HSRP, 5, 102, "Member added");
  part.addAudit(coreKey, E_Node, 6, 0, "Software was updated");
}

}  // namespace zntopo::tools
