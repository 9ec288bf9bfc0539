#include "tools/generate/RingBuilder.h"

#include <algorithm>

#include "tools/generate/CampusLayout.h"
#include "tools/generate/PartBuilder.h"

namespace zntopo::tools {

namespace {

constexpr int kNodesOfPart = 1000;
/// To both neighbours, and the one by which the node is managed.
constexpr int kLeastOfNode = 3;
constexpr int kLeastNodes = 3;
constexpr int kMostSwitches = 10'000'000;
const char* const kToPrevious = "Te1/1/1";
const char* const kToNext = "Te1/1/2";

class Ring {
 public:
  Ring(const CampusPlan& plan, int part)
      : plan_(plan),
        isRouters_(plan.shape == NetworkShape::RouterRing),
        first_(part * kNodesOfPart),
        end_(std::min(plan.nodes, first_ + kNodesOfPart)),
        part_(plan, part, first_, static_cast<int>(interfacesBefore(first_))) {}

  NetworkModel build() {
    if (!isRouters_) addVlan();
    for (int i = first_; i < end_; ++i) addNode(i);
    for (int i = first_; i < end_; ++i) join(i);
    leaveToPrevious();
    NetworkModel model = part_.take();
    leaveSubnets(model);
    return model;
  }

 private:
  long long interfacesBefore(int node) const {
    const long long all = plannedInterfaces(plan_);
    return all / plan_.nodes * node + std::min<long long>(node, all % plan_.nodes);
  }

  std::string name(int node) const { return numbered("ring-", node + 1, plan_.nodes); }

  void addVlan() {
    part_.model().vlanOf("ring/vlan/10", "ring-management", 10);
    part_.model().vlans.front().isElsewhere = first_ > 0;
  }

  void addNode(int number) {
    const Index node =
        part_.addNode(isRouters_ ? NodeRole::Backbone : NodeRole::Access, name(number), -1);
    addRingPort(node, kToPrevious);
    addRingPort(node, kToNext);
    addManagement(node, number);
    const long long all = interfacesBefore(number + 1) - interfacesBefore(number);
    for (int i = kLeastOfNode; i < all; ++i) addFreePort(node, i - kLeastOfNode + 1);
  }

  void addRingPort(Index node, const char* portName) {
    const EndPoint port =
        part_.addPort(node, isRouters_ ? PortRole::Uplink : PortRole::Trunk, portName);
    if (!isRouters_) part_.at(port).vlans = {0};
  }

  void addManagement(Index node, int number) {
    constexpr std::uint32_t kFirst = 0x0a000001;  // 10.0.0.1
    const EndPoint port = part_.addPort(node, isRouters_ ? PortRole::Loopback : PortRole::Vlan,
                                        isRouters_ ? "Lo0" : "Vlan10");
    if (!isRouters_) part_.at(port).vlans = {0};
    part_.addAddress(port, IpAddress::v4(kFirst + static_cast<std::uint32_t>(number)),
                     isRouters_ ? 32 : 8);
    part_.setManagement(port);
  }

  void addFreePort(Index node, int number) {
    constexpr int kDown = 2;
    const EndPoint port = part_.addPort(node, PortRole::Access, "Gi1/0/" + std::to_string(number));
    part_.at(port).operState = kDown;
    part_.at(port).isAccessPort = !isRouters_;
    if (!isRouters_) part_.at(port).vlans = {0};
  }

  EndPoint portOf(int node, bool isToNext) const {
    return {static_cast<Index>(node - first_), isToNext ? 1u : 0u};
  }
  bool isHere(int node) const { return node >= first_ && node < end_; }

  /// Lays the wire to the next node.
  void join(int node) {
    const int next = (node + 1) % plan_.nodes;
    const EndPoint from = portOf(node, true);
    const EndPoint to =
        isHere(next) ? portOf(next, false) : part_.addElsewhere(name(next), kToPrevious);
    part_.link(from, to);
    if (!isRouters_) return;
    part_.addWireAddresses(from, node, 0);
    if (isHere(next)) part_.addWireAddresses(to, node, 1);
  }

  /// The wire that comes in from another part is that part's.
  void leaveToPrevious() {
    const int previous = (first_ + plan_.nodes - 1) % plan_.nodes;
    if (isHere(previous)) return;
    const EndPoint port = portOf(first_, false);
    part_.at(port).isLinkedElsewhere = true;
    part_.at(port).description = "to " + name(previous) + " " + kToNext;
    if (isRouters_) part_.addWireAddresses(port, previous, 1);
  }

  void leaveSubnets(NetworkModel& model) const {
    const int previous = (first_ + plan_.nodes - 1) % plan_.nodes;
    for (SubnetModel& subnet : model.subnets) {
      const bool isPrevious = !isHere(previous) && (subnet.prefix == wirePrefixV4(previous) ||
                                                    subnet.prefix == wirePrefixV6(previous));
      subnet.isElsewhere = isRouters_ ? isPrevious : first_ > 0;
    }
  }

  const CampusPlan& plan_;
  bool isRouters_;
  int first_;
  /// One behind the last.
  int end_;
  PartBuilder part_;
};

}  // namespace

int ringParts(const CampusPlan& plan) {
  const int most = plan.shape == NetworkShape::RouterRing ? kMostWires : kMostSwitches;
  if (plan.nodes < kLeastNodes || plan.nodes > most) {
    throw PlanError("This ring has from " + std::to_string(kLeastNodes) + " to " +
                    std::to_string(most) + " nodes.");
  }
  const long long needed = static_cast<long long>(kLeastOfNode) * plan.nodes;
  if (plannedInterfaces(plan) < needed) {
    throw PlanError("This ring needs at least " + std::to_string(needed) + " interfaces.");
  }
  return (plan.nodes + kNodesOfPart - 1) / kNodesOfPart;
}

NetworkModel buildRingPart(const CampusPlan& plan, int part) { return Ring(plan, part).build(); }

}  // namespace zntopo::tools
