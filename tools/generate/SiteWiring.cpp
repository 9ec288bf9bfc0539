#include "tools/generate/CampusNames.h"
#include "tools/generate/SiteFabric.h"

namespace zntopo::tools {

namespace {

/// Lays the cables of a site's own switches and routers.
class Wiring {
 public:
  explicit Wiring(SiteFabric& site) : site_(site), part_(site.part) {}

  void lay() {
    addLoopbacks();
    joinEdges();
    joinCores();
    raiseToEdges();
    for (int i = 0; i < site_.layout.dists; ++i) raiseToCores(i);
    closeRing();
    for (int i = 0; i < site_.layout.access; ++i) raiseToDists(i);
    if (site_.campus.backbones() > 0) joinBackbone();
  }

 private:
  EndPoint port(Index node, PortRole role, const std::string& name, int number) {
    return part_.addPort(node, role, name + std::to_string(number));
  }

  void trunk(const EndPoint& left, const EndPoint& right, const std::set<Index>& vlans) {
    part_.link(left, right);
    site_.setVlans(left, vlans);
    site_.setVlans(right, vlans);
  }

  void wire(const EndPoint& left, const EndPoint& right, int number) {
    part_.link(left, right);
    const int wire = siteWire(site_.campus, site_.layout.index, number);
    part_.addWireAddresses(left, wire, 0);
    part_.addWireAddresses(right, wire, 1);
    addLinkLocal(left, 1);
    addLinkLocal(right, 2);
  }

  void addLinkLocal(const EndPoint& end, std::uint64_t number) {
    constexpr std::uint64_t kLinkLocal = 0xfe80000000000000;
    part_.addAddress(end, IpAddress::v6(kLinkLocal, number), 64);
  }

  void addLoopback(Index node, int number) {
    const EndPoint end = part_.addPort(node, PortRole::Loopback, "Lo0");
    part_.addAddress(end, loopback(site_.campus, site_.layout.index, number), 32);
    part_.setManagement(end);
  }

  void addLoopbacks() {
    int number = 0;
    for (const Index edge : site_.edges) addLoopback(edge, number++);
    for (const Index core : site_.cores) addLoopback(core, number++);
  }

  void joinEdges() {
    wire(port(site_.edges[0], PortRole::Uplink, "Te0/0/", 2),
         port(site_.edges[1], PortRole::Uplink, "Te0/0/", 2), 0);
  }

  void joinCores() {
    for (int i = 0; i < SiteLayout::kCores; ++i) {
      site_.coreTrunks[i] = port(site_.cores[i], PortRole::Trunk, "Hu1/1/", 1);
    }
    trunk(site_.coreTrunks[0], site_.coreTrunks[1], site_.allVlans());
  }

  void raiseToEdges() {
    for (int core = 0; core < SiteLayout::kCores; ++core) {
      for (int edge = 0; edge < SiteLayout::kEdges; ++edge) {
        const EndPoint up = port(site_.cores[core], PortRole::Uplink, "Hu1/1/", 2 + edge);
        const EndPoint down = port(site_.edges[edge], PortRole::Uplink, "Te0/0/", core);
        wire(up, down, 1 + core * SiteLayout::kEdges + edge);
        site_.coreUplinks[core][edge] = up;
        site_.edgeDownlinks[core][edge] = down;
      }
    }
  }

  void raiseToCores(int dist) {
    addManagement(site_.dists[dist]);
    for (int core = 0; core < SiteLayout::kCores; ++core) {
      trunk(port(site_.dists[dist], PortRole::Trunk, "Hu1/1/", 1 + core),
            port(site_.cores[core], PortRole::Trunk, "Hu1/0/", 1 + dist), site_.allVlans());
    }
  }

  /// So that frames between the switches of a site need not pass the routers in its core.
  void closeRing() {
    for (int i = 0; i < site_.layout.ringLinks(); ++i) {
      trunk(port(site_.dists[i], PortRole::Trunk, "Hu1/1/", 3),
            port(site_.dists[(i + 1) % site_.layout.dists], PortRole::Trunk, "Hu1/1/", 4),
            site_.allVlans());
    }
  }

  /// Each access switch has two homes, which the others of its VLAN have too.
  void raiseToDists(int access) {
    addManagement(site_.access[access]);
    const int pair = access / SiteLayout::kAccessOfVlan % (site_.layout.dists / 2);
    auto& uplinks = site_.accessUplinks.emplace_back();
    for (int side = 0; side < 2; ++side) {
      uplinks[side] = port(site_.access[access], PortRole::Trunk, "Te1/1/", 1 + side);
      trunk(uplinks[side],
            port(site_.dists[2 * pair + side], PortRole::Trunk, "Te1/0/", 1 + access),
            site_.vlansOf(access));
    }
  }

  void addManagement(Index node) {
    const Index vlan = site_.vlans[SiteFabric::Management];
    const EndPoint end = port(node, PortRole::Vlan, "Vlan", site_.vlan(vlan).number);
    site_.setVlans(end, {vlan});
    const int member = site_.nextMember[vlan]++;
    part_.addAddress(end, site_.v4(vlan, member), site_.v4Length());
    part_.setManagement(end);
  }

  void joinBackbone() {
    for (int edge = 0; edge < SiteLayout::kEdges; ++edge) {
      const int site = site_.layout.index;
      const EndPoint end = part_.addPort(site_.edges[edge], PortRole::Uplink, wanPortOfEdge());
      part_.addWireAddresses(end, wanWire(site_.campus, site, edge), 1);
      part_.at(end).alias = "WAN " + std::string(edge == 0 ? "A" : "B");
      part_.link(end,
                 part_.addElsewhere(backboneName(site_.campus, site_.campus.backboneOf(site, edge)),
                                    wanPortOfBackbone(site, edge)));
      site_.wanPorts.push_back(end);
    }
  }

  SiteFabric& site_;
  PartBuilder& part_;
};

}  // namespace

void wireFabric(SiteFabric& site) { Wiring(site).lay(); }

}  // namespace zntopo::tools
