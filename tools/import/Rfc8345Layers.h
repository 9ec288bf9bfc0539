#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/import/Rfc8345Document.h"
#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"

namespace zntopo::tools::rfc8345 {

/// Where a node stands in a document.
struct NodeAt {
  std::size_t network = 0;
  std::size_t node = 0;
  friend auto operator<=>(const NodeAt& left, const NodeAt& right) = default;
};

/// Finds the devices behind the layers of a document: which nodes are one device, and which
/// termination points are one interface. docs/import-rfc8345.md tells the rules.
class Layers {
 public:
  /// What a node of the document is.
  enum class Role {
    /// A device, or a part of one.
    Device,
    /// A layer-3 segment.
    Segment,
    /// One address for several devices, as first-hop redundancy makes it.
    VirtualRouter,
    /// Neither, or not to be told.
    LeftOut
  };

  /// Builds the nodes and interfaces of the model, their attributes left out. The document must
  /// outlive this object.
  Layers(const Document& document, NetworkModel& model, NetworkReport& report);

  /// Every node of the document, the lowest layers first.
  const std::vector<NodeAt>& order() const { return order_; }
  const Network& network(const NodeAt& at) const { return document_.networks[at.network]; }
  const Node& node(const NodeAt& at) const { return network(at).nodes[at.node]; }
  Role role(const NodeAt& at) const { return places_[at.network][at.node].role; }
  /// The model's node; to be asked for devices alone.
  Index device(const NodeAt& at) const { return *places_[at.network][at.node].device; }
  /// The interface of a termination point; nothing if its node is no device.
  std::optional<EndPoint> interface(const NodeAt& at, std::size_t tp) const;
  /// The interface of a reference; nothing if it does not exist.
  std::optional<EndPoint> interface(const TpRef& reference) const;
  /// True for a network of equipment and wires: no type, and nothing but such below it.
  bool isPhysical(std::size_t network) const { return isPhysical_[network]; }

  /// The node of a reference; nothing if it does not exist.
  std::optional<NodeAt> find(const NodeRef& reference) const;

 private:
  /// What is known of a node. The depth is that of its supporting references.
  struct Place {
    bool isResolved = false;
    bool isBeingResolved = false;
    Role role = Role::LeftOut;
    std::optional<Index> device;
    int depth = 0;
    std::vector<std::optional<EndPoint>> interfaces;
    std::vector<bool> isTpResolved;
    std::vector<bool> isTpBeingResolved;
  };
  /// The devices below a node.
  struct Below {
    std::set<Index> devices;
    /// Those that share a termination point with the node.
    std::set<Index> sharing;
  };

  void findPhysicalNetworks();
  void resolveAll();
  int rank(std::size_t network) const;
  void resolveNode(const NodeAt& at, int level);
  Below lookBelow(const NodeAt& at, int level);
  void decide(const NodeAt& at, const Below& below);
  void decideLayer3(const NodeAt& at, const std::set<Index>& devices);
  bool isSegment(const Node& node, const std::set<Index>& devices) const;
  void makeDevice(const NodeAt& at);
  void join(const NodeAt& at, Index device);
  std::optional<EndPoint> resolveTp(const NodeAt& at, std::size_t tp, int level);
  std::optional<EndPoint> interfaceBelow(const NodeAt& at, std::size_t tp, int level);
  std::optional<EndPoint> namesakeBelow(const NodeAt& at, std::size_t tp, int level);
  EndPoint makeInterface(const NodeAt& at, std::size_t tp);
  Place& place(const NodeAt& at) { return places_[at.network][at.node]; }

  const Document& document_;
  NetworkModel& model_;
  NetworkReport& report_;
  std::vector<bool> isPhysical_;
  std::vector<std::vector<Place>> places_;
  std::vector<NodeAt> order_;
  /// The lowest node of each device.
  std::vector<NodeAt> bases_;
};

}  // namespace zntopo::tools::rfc8345
