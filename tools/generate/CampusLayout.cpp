#include "tools/generate/CampusLayout.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace zntopo::tools {

namespace {

constexpr int kNodesOfSite = 250;
constexpr int kLeastOfSite = 8;
/// Telephones and servers on two switches: one host in so many.
constexpr int kHostsOfPhone = 10;
constexpr int kHostsOfServer = 20;
/// Addresses that a subnet needs besides those of its hosts.
constexpr int kReserved = 16;
constexpr long long kVlanAddresses = 1LL << 24;
constexpr int kMostSites = 15'000;
constexpr int kMostVlans = 3'900;

int backbonesOf(int sites) { return sites == 1 ? 0 : std::max(2, (sites + 3) / 4); }

int leastNodes(int sites) { return backbonesOf(sites) + kLeastOfSite * sites; }

/// Hosts have one interface, switches some fifty: so many of a thousand nodes are hosts.
int hostsOfThousand(long long nodes, long long interfaces) {
  const long long ofHundred = interfaces * 100 / nodes;
  return static_cast<int>(std::clamp<long long>((5000 - ofHundred) * 1000 / 4880, 50, 950));
}

SiteLayout compose(int nodes, int hostsOfThousand) {
  SiteLayout site;
  const int fixed = SiteLayout::kEdges + SiteLayout::kCores;
  site.hosts = static_cast<int>(std::clamp<long long>(
      static_cast<long long>(nodes) * hostsOfThousand / 1000, 1, nodes - fixed - 3));
  const int switches = nodes - fixed - site.hosts;
  site.dists = 2 * std::max(1, switches / 14);
  site.access = switches - site.dists;
  site.dualHomed = site.access > 1 ? site.hosts / kHostsOfServer : 0;
  site.phones = site.hosts / kHostsOfPhone;
  site.dataVlans = (site.access + SiteLayout::kAccessOfVlan - 1) / SiteLayout::kAccessOfVlan;
  return site;
}

/// The least power of two, from 256 on, that every VLAN of the site fits in.
int vlanSize(const SiteLayout& site) {
  const int hostsOfSwitch = (site.hostPorts() + site.access - 1) / site.access;
  const int most = std::max({site.access + site.dists, SiteLayout::kAccessOfVlan * hostsOfSwitch,
                             site.phones, 2 * site.dualHomed});
  int size = 256;
  while (size < most + kReserved) size *= 2;
  return size;
}

}  // namespace

int plannedInterfaces(const CampusPlan& plan) {
  const int each = plan.shape == NetworkShape::Campus ? 20 : 4;
  const long long all = plan.interfaces.value_or(0);
  if (plan.interfaces) return static_cast<int>(all);
  const long long usual = static_cast<long long>(plan.nodes) * each;
  if (usual > std::numeric_limits<int>::max()) throw PlanError("That is too large a network.");
  return static_cast<int>(usual);
}

int SiteLayout::neededInterfaces(bool hasBackbone) const {
  const int accessSide = access * (2 + 1) + hostPorts();
  const int distSide = 2 * access + dists * (2 + 1) + 2 * ringLinks();
  const int coreSide = kCores * (dists + 1 + kEdges + 1 + vlans());
  const int edgeSide = kEdges * (kCores + 1 + 1 + (hasBackbone ? 1 : 0));
  return hostPorts() + accessSide + distSide + coreSide + edgeSide;
}

CampusLayout::CampusLayout(const CampusPlan& plan)
    : plan_(plan), interfaces_(plannedInterfaces(plan)) {
  chooseSites();
  composeSites();
  spreadInterfaces();
  placeNumbers();
}

void CampusLayout::chooseSites() {
  if (plan_.nodes < kLeastOfSite) {
    throw PlanError("A campus has at least " + std::to_string(kLeastOfSite) + " nodes.");
  }
  int sites = plan_.sites.value_or(std::max(1, plan_.nodes / kNodesOfSite));
  if (sites < 1 || sites > kMostSites) {
    throw PlanError("A campus has from 1 to " + std::to_string(kMostSites) + " sites.");
  }
  if (plan_.nodes < leastNodes(sites)) {
    throw PlanError(std::to_string(sites) + " sites have at least " +
                    std::to_string(leastNodes(sites)) + " nodes.");
  }
  sites_.resize(static_cast<std::size_t>(sites));
  backbones_ = backbonesOf(sites);
}

void CampusLayout::composeSites() {
  const int share = hostsOfThousand(plan_.nodes, interfaces_);
  const int nodes = plan_.nodes - backbones_;
  for (int i = 0; i < siteCount(); ++i) {
    sites_[i] = compose(nodes / siteCount() + (i < nodes % siteCount() ? 1 : 0), share);
    sites_[i].index = i;
    if (sites_[i].vlans() > kMostVlans) {
      throw PlanError("The sites are too large for their VLANs: say more sites.");
    }
  }
}

std::vector<std::pair<int, int>> CampusLayout::backboneLinks() const {
  std::vector<std::pair<int, int>> links;
  for (int i = 0; i + 1 < backbones_; ++i) links.emplace_back(i, i + 1);
  if (backbones_ > 2) links.emplace_back(backbones_ - 1, 0);
  for (int i = 0; backbones_ >= 6 && i < backbones_ / 2; ++i) {
    links.emplace_back(i, i + backbones_ / 2);
  }
  return links;
}

void CampusLayout::spreadInterfaces() {
  const bool hasBackbone = backbones_ > 0;
  long long needed = 2 * static_cast<long long>(backboneLinks().size()) + backbones_ +
                     (hasBackbone ? SiteLayout::kEdges * siteCount() : 0);
  long long access = 0;
  for (const SiteLayout& site : sites_) {
    needed += site.neededInterfaces(hasBackbone);
    access += site.access;
  }
  const long long spare = interfaces_ - needed;
  if (spare < 0) {
    throw PlanError("The links and addresses of this campus need at least " +
                    std::to_string(needed) + " interfaces.");
  }
  long long before = 0;
  for (SiteLayout& site : sites_) {
    const long long begin = spare * before / access;
    before += site.access;
    site.freePorts = static_cast<int>(spare * before / access - begin);
  }
}

void CampusLayout::placeNumbers() {
  const bool hasBackbone = backbones_ > 0;
  int node = backbones_;
  int interface = 2 * static_cast<int>(backboneLinks().size()) + backbones_ +
                  (hasBackbone ? SiteLayout::kEdges * siteCount() : 0);
  long long block = 0;
  for (SiteLayout& site : sites_) {
    site.firstNode = node;
    site.firstInterface = interface;
    node += site.nodes();
    interface += site.neededInterfaces(hasBackbone) + site.freePorts;
    site.vlanSize = vlanSize(site);
    site.vlanBlock = (block + site.vlanSize - 1) / site.vlanSize * site.vlanSize;
    block = site.vlanBlock + static_cast<long long>(site.vlans()) * site.vlanSize;
  }
  if (block > kVlanAddresses) {
    throw PlanError("The VLANs of this campus do not fit into the network 10.0.0.0/8.");
  }
}

}  // namespace zntopo::tools
