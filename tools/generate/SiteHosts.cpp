#include "tools/generate/SiteFabric.h"

namespace zntopo::tools {

namespace {

/// Gives hosts their ports on the access switches, and leaves the rest of the ports free.
class Hosts {
 public:
  explicit Hosts(SiteFabric& site)
      : site_(site), part_(site.part), first_(part_.random().below(site.layout.access)) {}

  void plug() {
    layPorts();
    const SiteLayout& layout = site_.layout;
    // What a host is does not show in its number.
    const std::vector<int> order = part_.random().order(layout.hosts);
    for (int i = 0; i < layout.hosts; ++i) {
      const bool isServer = i < layout.dualHomed;
      const bool isPhone = !isServer && i < layout.dualHomed + layout.phones;
      plugHost(order[i], isServer, isPhone);
    }
  }

 private:
  /// One port after the other, in any order, is to be used.
  void layPorts() {
    const SiteLayout& layout = site_.layout;
    for (int i = 0; i < layout.access; ++i) {
      const int turn = (i - first_ + layout.access) % layout.access;
      const int used =
          layout.hostPorts() / layout.access + (turn < layout.hostPorts() % layout.access ? 1 : 0);
      const int free =
          layout.freePorts / layout.access + (i < layout.freePorts % layout.access ? 1 : 0);
      std::vector<bool> isUsed(static_cast<std::size_t>(used + free));
      const std::vector<int> order = part_.random().order(used + free);
      for (int j = 0; j < used; ++j) isUsed[order[j]] = true;
      auto& waiting = waiting_.emplace_back();
      for (int j = 0; j < used + free; ++j) {
        const EndPoint port = addAccessPort(i, j);
        if (isUsed[j]) waiting.push_back(port);
        if (!isUsed[j]) leaveFree(port);
      }
    }
  }

  EndPoint addAccessPort(int access, int number) {
    constexpr int kPortsOfMember = 48;
    const EndPoint port = part_.addPort(site_.access[access], PortRole::Access,
                                        "Gi" + std::to_string(number / kPortsOfMember + 1) + "/0/" +
                                            std::to_string(number % kPortsOfMember + 1));
    part_.at(port).isAccessPort = true;
    site_.setVlans(port, {site_.dataVlanOf(access)});
    return port;
  }

  void leaveFree(const EndPoint& port) {
    constexpr int kDown = 2;
    part_.at(port).operState = kDown;
    if (part_.random().inThousand(100)) part_.at(port).adminState = kDown;
    part_.at(port).status->overall = 1;
    site_.freePorts.push_back(port);
  }

  /// The ports of one host are on neighbouring switches, so those of a server on two.
  EndPoint nextPort() {
    const int access = (first_ + next_++) % site_.layout.access;
    const EndPoint port = waiting_[access].back();
    waiting_[access].pop_back();
    return port;
  }

  void plugHost(int number, bool isServer, bool isPhone) {
    const SiteLayout& layout = site_.layout;
    const Index host =
        part_.addNode(NodeRole::Host, site_.name("host", number, layout.hosts), layout.index);
    NodeModel& node = part_.model().nodes[host];
    node.description = isServer ? "Server on two switches" : isPhone ? "Telephone" : "Workstation";
    if (isServer) node.features |= IsMultiHomed;
    for (int i = 0; i < (isServer ? 2 : 1); ++i) {
      const EndPoint port = nextPort();
      if (isServer || isPhone) {
        site_.setVlans(port, {site_.vlans[isServer ? SiteFabric::Servers : SiteFabric::Voice]});
      }
      const EndPoint end = part_.addPort(host, PortRole::HostPort, "eth" + std::to_string(i));
      part_.link(end, port);
      address(end, *part_.at(port).vlans.begin(), isServer);
    }
  }

  /// Most hosts have IPv4 alone, some both, a few IPv6 alone.
  void address(const EndPoint& end, Index vlan, bool isServer) {
    const int member = site_.nextMember[vlan]++;
    const int chance = part_.random().below(1000);
    const bool hasV6 = isServer || chance < 320;
    const bool hasV4 = isServer || chance >= 20;
    if (hasV4) {
      part_.addAddress(end, site_.v4(vlan, member), site_.v4Length());
      if (end.interface == 0) part_.setManagement(end);
    }
    if (hasV6) part_.addDetails(end, part_.addAddress(end, site_.v6(vlan, member), 64));
  }

  SiteFabric& site_;
  PartBuilder& part_;
  /// The access switch that the first host is plugged into.
  int first_;
  int next_ = 0;
  std::vector<std::vector<EndPoint>> waiting_;
};

}  // namespace

void plugHosts(SiteFabric& site) { Hosts(site).plug(); }

}  // namespace zntopo::tools
