#pragma once

#include <vector>

#include "tools/generate/CampusPlan.h"

namespace zntopo::tools {

/// How many of what a site has, and where its numbers begin. Each count follows from the plan
/// alone, none from chance.
struct SiteLayout {
  static constexpr int kEdges = 2;
  static constexpr int kCores = 2;
  /// Management, servers and voice.
  static constexpr int kCommonVlans = 3;
  /// Access switches that share a VLAN for data.
  static constexpr int kAccessOfVlan = 8;

  int index = 0;
  int dists = 0;
  int access = 0;
  int hosts = 0;
  /// Of the hosts: servers on two switches, and telephones.
  int dualHomed = 0;
  int phones = 0;
  int dataVlans = 0;
  /// Access ports that nothing is plugged into.
  int freePorts = 0;
  /// What comes before this site, among all nodes and interfaces.
  int firstNode = 0;
  int firstInterface = 0;
  /// Where the subnets of the VLANs begin in 10.0.0.0/8, and the size of each, in addresses.
  long long vlanBlock = 0;
  int vlanSize = 256;

  int nodes() const { return kEdges + kCores + dists + access + hosts; }
  int vlans() const { return kCommonVlans + dataVlans; }
  /// Links of the ring that the distribution switches form.
  int ringLinks() const { return dists == 2 ? 1 : dists; }
  int hostPorts() const { return hosts + dualHomed; }
  /// The interfaces without the free ports.
  int neededInterfaces(bool hasBackbone) const;
};

/// What is where in a whole campus. Throws PlanError if the plan can't be met.
class CampusLayout {
 public:
  explicit CampusLayout(const CampusPlan& plan);

  /// Routers between the sites; none for one site.
  int backbones() const { return backbones_; }
  const std::vector<SiteLayout>& sites() const { return sites_; }
  int siteCount() const { return static_cast<int>(sites_.size()); }
  /// The backbone router that an edge router of a site is wired to.
  int backboneOf(int site, int edge) const { return (site + edge) % backbones_; }
  /// Pairs of backbone routers that are wired: a ring, and chords in a large one.
  std::vector<std::pair<int, int>> backboneLinks() const;

 private:
  void chooseSites();
  void composeSites();
  void spreadInterfaces();
  void placeNumbers();

  const CampusPlan& plan_;
  int interfaces_;
  int backbones_ = 0;
  std::vector<SiteLayout> sites_;
};

/// The interfaces that a plan asks for.
int plannedInterfaces(const CampusPlan& plan);

}  // namespace zntopo::tools
