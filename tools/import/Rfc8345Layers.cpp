#include "tools/import/Rfc8345Layers.h"

#include <algorithm>
#include <tuple>

#include "tools/import/Rfc8345Keys.h"

namespace zntopo::tools::rfc8345 {

namespace {

/// More layers than any network has; bounds the recursion over hostile files.
constexpr int kMaxLevels = 100;

void checkLevel(int level, const std::string& where) {
  if (level > kMaxLevels) {
    throw ImportError(where, "stands on more than " + std::to_string(kMaxLevels) + " layers");
  }
}

bool startsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

}  // namespace

Layers::Layers(const Document& document, NetworkModel& model, NetworkReport& report)
    : document_(document), model_(model), report_(report) {
  for (const Network& network : document_.networks) {
    std::vector<Place>& places = places_.emplace_back(network.nodes.size());
    for (std::size_t i = 0; i < network.nodes.size(); ++i) {
      const std::size_t count = network.nodes[i].tps.size();
      places[i].interfaces.resize(count);
      places[i].isTpResolved.resize(count);
      places[i].isTpBeingResolved.resize(count);
    }
  }
  findPhysicalNetworks();
  resolveAll();
}

std::optional<NodeAt> Layers::find(const NodeRef& reference) const {
  const auto network = document_.networkIndex.find(reference.network);
  if (network == document_.networkIndex.end()) return std::nullopt;
  const auto& nodes = document_.networks[network->second].nodeIndex;
  const auto node = nodes.find(reference.node);
  if (node == nodes.end()) return std::nullopt;
  return NodeAt{network->second, node->second};
}

void Layers::findPhysicalNetworks() {
  const std::size_t count = document_.networks.size();
  std::vector<std::set<std::size_t>> below(count);
  for (std::size_t i = 0; i < count; ++i) {
    const Network& network = document_.networks[i];
    isPhysical_.push_back(network.kind == Kind::Untyped);
    for (const Node& node : network.nodes) {
      for (const NodeRef& reference : node.supports) {
        const auto at = find(reference);
        if (at && at->network != i) below[i].insert(at->network);
      }
    }
  }
  // What stands on something that is not physical is not physical either.
  for (bool isChanged = true; isChanged;) {
    isChanged = false;
    for (std::size_t i = 0; i < count; ++i) {
      const bool isFit = std::all_of(below[i].begin(), below[i].end(),
                                     [&](std::size_t lower) { return isPhysical_[lower]; });
      if (isPhysical_[i] && !isFit) {
        isPhysical_[i] = false;
        isChanged = true;
      }
    }
  }
}

int Layers::rank(std::size_t network) const {
  if (isPhysical_[network]) return 0;
  switch (document_.networks[network].kind) {
    case Kind::Layer2:
      return 1;
    case Kind::Layer3:
      return 2;
    default:
      return 3;
  }
}

void Layers::resolveAll() {
  for (std::size_t i = 0; i < places_.size(); ++i) {
    for (std::size_t j = 0; j < places_[i].size(); ++j) order_.push_back({i, j});
  }
  const auto byRank = [this](const NodeAt& left, const NodeAt& right) {
    return rank(left.network) < rank(right.network);
  };
  std::stable_sort(order_.begin(), order_.end(), byRank);
  for (const NodeAt& at : order_) resolveNode(at, 0);
  const auto byDepth = [this](const NodeAt& left, const NodeAt& right) {
    return std::make_tuple(rank(left.network), place(left).depth) <
           std::make_tuple(rank(right.network), place(right).depth);
  };
  std::stable_sort(order_.begin(), order_.end(), byDepth);
  for (const NodeAt& at : order_) {
    for (std::size_t tp = 0; tp < node(at).tps.size(); ++tp) resolveTp(at, tp, 0);
  }
}

void Layers::resolveNode(const NodeAt& at, int level) {
  Place& here = place(at);
  if (here.isResolved) return;
  checkLevel(level, node(at).where);
  here.isBeingResolved = true;
  decide(at, lookBelow(at, level));
  here.isBeingResolved = false;
  here.isResolved = true;
}

Layers::Below Layers::lookBelow(const NodeAt& at, int level) {
  Below below;
  const Node& upper = node(at);
  std::set<std::pair<std::string, std::string>> portsOn;
  for (const TerminationPoint& tp : upper.tps) {
    for (const TpRef& support : tp.supports) {
      portsOn.emplace(support.node.network, support.node.node);
    }
  }
  for (const NodeRef& reference : upper.supports) {
    const auto lower = find(reference);
    if (!lower) {
      report_.add("supporting-node that does not exist", upper.where);
      continue;
    }
    if (place(*lower).isBeingResolved) {
      report_.add("supporting-node that leads back to the node itself", upper.where);
      continue;
    }
    resolveNode(*lower, level + 1);
    const Place& found = place(*lower);
    place(at).depth = std::max(place(at).depth, found.depth + 1);
    if (found.role != Role::Device) continue;
    below.devices.insert(*found.device);
    if (portsOn.contains({reference.network, reference.node})) {
      below.sharing.insert(*found.device);
    }
  }
  return below;
}

void Layers::decide(const NodeAt& at, const Below& below) {
  const std::set<Index>& devices = below.devices;
  if (isPhysical_[at.network]) {
    // Equipment on equipment: a part of it shares its ports; what does not is a guest of it.
    below.sharing.size() == 1 ? join(at, *below.sharing.begin()) : makeDevice(at);
  } else if (network(at).kind == Kind::Layer3) {
    decideLayer3(at, devices);
  } else if (devices.size() == 1) {
    join(at, *devices.begin());
  } else if (network(at).kind == Kind::Layer2) {
    if (!devices.empty()) {
      report_.add("layer-2 node over several devices (kept as a node of its own)", node(at).where);
    }
    makeDevice(at);
  } else {
    report_.add(network(at).kind == Kind::Untyped
                    ? "node that stands for a group of devices"
                    : "node of a network whose type is not understood, over no single device",
                node(at).where);
  }
}

void Layers::decideLayer3(const NodeAt& at, const std::set<Index>& devices) {
  if (isSegment(node(at), devices)) {
    place(at).role = Role::Segment;
  } else if (devices.size() > 1) {
    place(at).role = Role::VirtualRouter;
    report_.add(
        "virtual router (its addresses were given to the interfaces below it, it is no node)",
        node(at).where);
  } else if (devices.empty()) {
    makeDevice(at);
  } else {
    join(at, *devices.begin());
  }
}

bool Layers::isSegment(const Node& node, const std::set<Index>& devices) const {
  if (node.hasAddresses()) return false;
  if (node.hasFlag("l3-segment") || node.hasFlag("pseudo-node") || startsWith(node.id, "Seg.")) {
    return true;
  }
  if (devices.size() > 1) return true;
  const bool isUnnumbered =
      std::any_of(node.tps.begin(), node.tps.end(), [](const auto& tp) { return tp.isUnnumbered; });
  return devices.empty() && !node.prefixes.empty() && !node.hasRouterId && node.name.empty() &&
         !isUnnumbered;
}

void Layers::makeDevice(const NodeAt& at) {
  const Node& base = node(at);
  NodeModel device;
  device.key = nodeKey(network(at).id, base.id);
  device.name = base.name.empty() ? base.id : base.name;
  model_.nodes.push_back(std::move(device));
  bases_.push_back(at);
  join(at, model_.nodes.size() - 1);
}

void Layers::join(const NodeAt& at, Index device) {
  place(at).role = Role::Device;
  place(at).device = device;
}

std::optional<EndPoint> Layers::interface(const NodeAt& at, std::size_t tp) const {
  return places_[at.network][at.node].interfaces[tp];
}

std::optional<EndPoint> Layers::interface(const TpRef& reference) const {
  const auto at = find(reference.node);
  if (!at) return std::nullopt;
  const auto tp = node(*at).tpIndex.find(reference.tp);
  if (tp == node(*at).tpIndex.end()) return std::nullopt;
  return interface(*at, tp->second);
}

std::optional<EndPoint> Layers::resolveTp(const NodeAt& at, std::size_t tp, int level) {
  Place& here = place(at);
  if (here.role != Role::Device || here.isTpResolved[tp]) return here.interfaces[tp];
  checkLevel(level, node(at).tps[tp].where);
  here.isTpBeingResolved[tp] = true;
  auto found = interfaceBelow(at, tp, level);
  here.interfaces[tp] = found ? found : makeInterface(at, tp);
  here.isTpBeingResolved[tp] = false;
  here.isTpResolved[tp] = true;
  return here.interfaces[tp];
}

std::optional<EndPoint> Layers::interfaceBelow(const NodeAt& at, std::size_t tp, int level) {
  const TerminationPoint& upper = node(at).tps[tp];
  std::set<EndPoint> found;
  bool hasOthers = false;
  for (const TpRef& reference : upper.supports) {
    const auto lower = find(reference.node);
    const auto index = lower ? node(*lower).tpIndex.find(reference.tp) : node(at).tpIndex.end();
    if (!lower || index == node(*lower).tpIndex.end()) {
      report_.add("supporting-termination-point that does not exist", upper.where);
    } else if (*lower == at) {
      hasOthers = true;  // a bundle over ports of its own node stays apart from them
    } else if (place(*lower).isTpBeingResolved[index->second]) {
      report_.add("supporting-termination-point that leads back to itself", upper.where);
    } else {
      const auto end = resolveTp(*lower, index->second, level + 1);
      if (end && end->node == device(at)) {
        found.insert(*end);
      } else {
        hasOthers = true;
      }
    }
  }
  if (found.size() == 1 && !hasOthers) return *found.begin();
  return upper.supports.empty() ? namesakeBelow(at, tp, level) : std::nullopt;
}

std::optional<EndPoint> Layers::namesakeBelow(const NodeAt& at, std::size_t tp, int level) {
  // Only where a layer tells nothing of its termination points' supports do equal names count.
  const std::vector<TerminationPoint>& tps = node(at).tps;
  const bool isSilent =
      std::all_of(tps.begin(), tps.end(), [](const auto& one) { return one.supports.empty(); });
  if (!isSilent) return std::nullopt;
  for (const NodeRef& reference : node(at).supports) {
    const auto lower = find(reference);
    if (!lower || *lower == at || place(*lower).device != place(at).device) continue;
    const auto index = node(*lower).tpIndex.find(tps[tp].id);
    if (index == node(*lower).tpIndex.end()) continue;
    if (place(*lower).isTpBeingResolved[index->second]) continue;
    return resolveTp(*lower, index->second, level + 1);
  }
  return std::nullopt;
}

EndPoint Layers::makeInterface(const NodeAt& at, std::size_t tp) {
  const TerminationPoint& point = node(at).tps[tp];
  const Node& base = node(bases_[device(at)]);
  InterfaceModel interface;
  interface.key = interfaceKey(network(at).id, node(at).id, point.id);
  interface.name = point.interfaceName.empty() ? point.id : point.interfaceName;
  // Parts of a device name their ports each for itself.
  if (node(at).id != base.id) interface.name = node(at).id + "/" + interface.name;
  if (interface.name.size() > 255) {
    throw ImportError(point.where, "has a name of more than 255 bytes with its node's in front");
  }
  NodeModel& owner = model_.nodes[device(at)];
  owner.interfaces.push_back(std::move(interface));
  return {device(at), owner.interfaces.size() - 1};
}

}  // namespace zntopo::tools::rfc8345
