#pragma once

#include <array>
#include <vector>

#include "tools/generate/CampusLayout.h"
#include "tools/generate/PartBuilder.h"

namespace zntopo::tools {

/// A site while it is built: its nodes and those of their ports that later steps come back to.
struct SiteFabric {
  /// The common VLANs, by their place in "vlans"; behind them are those for data.
  enum CommonVlan : Index { Management, Servers, Voice };
  /// Addresses of a VLAN: the gateways, and then everybody.
  static constexpr int kFirstGateway = 2;
  static constexpr int kFirstMember = 10;

  SiteFabric(const CampusPlan& plan, const CampusLayout& campus, int site);

  PartBuilder part;
  const CampusLayout& campus;
  const SiteLayout& layout;
  std::vector<Index> edges;
  std::vector<Index> cores;
  std::vector<Index> dists;
  std::vector<Index> access;
  std::vector<Index> vlans;
  /// The next free address of each VLAN.
  std::vector<int> nextMember;
  std::vector<EndPoint> wanPorts;
  std::array<EndPoint, SiteLayout::kCores> coreTrunks;
  /// By core and edge, from either side.
  std::array<std::array<EndPoint, SiteLayout::kEdges>, SiteLayout::kCores> coreUplinks;
  std::array<std::array<EndPoint, SiteLayout::kEdges>, SiteLayout::kCores> edgeDownlinks;
  std::vector<std::array<EndPoint, 2>> accessUplinks;
  std::vector<EndPoint> freePorts;

  std::string name(const std::string& role, int number, int count) const;
  const VlanModel& vlan(Index index) { return part.model().vlans[vlans[index]]; }
  Index dataVlanOf(int accessSwitch) const;
  /// The VLANs that the wires of an access switch carry.
  std::set<Index> vlansOf(int accessSwitch) const;
  std::set<Index> allVlans() const { return {vlans.begin(), vlans.end()}; }
  IpAddress v4(Index vlan, int member) const;
  IpAddress v6(Index vlan, int member) const;
  int v4Length() const;
  void setVlans(const EndPoint& end, const std::set<Index>& which) { part.at(end).vlans = which; }
};

// The steps, in this order.

void addFabricNodes(SiteFabric& site);
void wireFabric(SiteFabric& site);
void plugHosts(SiteFabric& site);
void addGateways(SiteFabric& site);
void addContainers(SiteFabric& site);
void addMesh(SiteFabric& site);
void addSiteAudit(SiteFabric& site);

}  // namespace zntopo::tools
