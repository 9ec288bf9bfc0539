#pragma once

#include <string>

#include "tools/generate/CampusPlan.h"
#include "tools/generate/Random.h"
#include "tools/network/NetworkModel.h"

namespace zntopo::tools {

/// What kind of node: an index into a table of descriptions.
enum class NodeRole : int { Backbone, Edge, Core, Distribution, Access, Host, Count };

/// What kind of interface: an index into a table of types and speeds.
enum class PortRole : int { Uplink, Trunk, Access, HostPort, Vlan, Loopback, Count };

/// Builds one part of a generated network: each node and each interface with everything that is
/// the same for all of its role, and numbers that no other part uses.
class PartBuilder {
 public:
  /// "part" names the stream of chance; the first numbers are those of all parts before.
  PartBuilder(const CampusPlan& plan, int part, int firstNode, int firstInterface);

  NetworkModel& model() { return model_; }
  Random& random() { return random_; }
  const CampusPlan& plan() const { return plan_; }
  /// Assigns subnets, and gives the part away.
  NetworkModel take();

  /// A site of -1 is none.
  Index addNode(NodeRole role, const std::string& name, int site);
  EndPoint addPort(Index node, PortRole role, const std::string& name);
  /// A node of another part, and an interface of it; no rows come from them here.
  EndPoint addElsewhere(const std::string& nodeName, const std::string& portName);
  /// A link of the two, which each names the other in its description.
  void link(const EndPoint& left, const EndPoint& right);
  void describe(const EndPoint& end, const EndPoint& other);
  AddressModel& addAddress(const EndPoint& end, const IpAddress& address, int length);
  /// An address of a wire between two routers, by the number of the wire: end 0 or 1.
  void addWireAddresses(const EndPoint& end, int wire, int side);
  /// Makes the address the one that the node is managed by.
  void setManagement(const EndPoint& end);
  /// The name in the DNS, the IPv4 address beside it, and what monitoring knows.
  void addDetails(const EndPoint& end, AddressModel& v6);

  InterfaceModel& at(const EndPoint& end) { return model_.at(end); }
  /// A legacy identifier for an object that is neither a node nor an interface.
  std::string nextLegacyId();
  /// A status, good in most cases.
  StatusModel status();
  /// A time within the thirty days before the plan's.
  int recently();
  void addAudit(const std::string& key, int type, int action, int detail, const std::string& info);

 private:
  bool isChosen(int number) const;
  void addNodeVariables(NodeModel& node, int number);
  void addPortVariables(InterfaceModel& port);

  const CampusPlan& plan_;
  int part_;
  Random random_;
  NetworkModel model_;
  long long variableShare_;
  int nextNode_;
  int nextInterface_;
  int nextLegacyId_ = 0;
};

/// A number with zeros in front, as wide as the largest of "count" numbers from 1 on: no such
/// name is the beginning of another.
std::string numbered(const std::string& before, int number, int count);

/// The subnets of a wire between two routers, by its number below kMostWires.
IpPrefix wirePrefixV4(int wire);
IpPrefix wirePrefixV6(int wire);
inline constexpr int kMostWires = 1 << 18;

}  // namespace zntopo::tools
