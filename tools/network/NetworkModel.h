#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tools/network/IpAddress.h"

/// @file
/// A network as a reader of any format hands it to the StoreWriter: nodes with their interfaces
/// and addresses, subnets, VLANs and layer-2 links.
///
/// Each object has a key, a text that names it within the model and stays the same when the
/// same network is read again: its identifier in the store is made of it. Keys have no meaning
/// beyond that. An empty text means that nothing is known.

namespace zntopo::tools {

/// An index into one of the model's vectors.
using Index = std::size_t;

struct AddressModel {
  IpAddress address;
  /// Nothing if the length is not known.
  std::optional<int> prefixLength;
  /// True if the source says the length of this very address; false if it was concluded.
  bool isLengthTold = false;
  std::optional<Index> subnet;
};

struct InterfaceModel {
  std::string key;
  std::string name;
  /// True if a reader made the name up: then it tells neither card nor port.
  bool isNameMade = false;
  std::string description;
  std::string alias;
  std::string physicalAddress;
  std::optional<int> index;
  /// Bits per second.
  std::optional<int> speed;
  /// One untagged VLAN and no others.
  bool isAccessPort = false;
  std::set<Index> vlans;
  /// The first of a kind is the one by which the library finds the interface for a path.
  std::vector<AddressModel> addresses;
};

struct NodeModel {
  std::string key;
  std::string name;
  std::string description;
  std::optional<IpAddress> managementAddress;
  bool isRouter = false;
  std::vector<InterfaceModel> interfaces;
};

struct SubnetModel {
  std::string key;
  std::string name;
  std::string description;
  /// Nothing for a segment whose prefix is not known.
  std::optional<IpPrefix> prefix;
  bool isV6 = false;
};

struct VlanModel {
  std::string key;
  std::string name;
  int number = 0;
};

/// One end of a link.
struct EndPoint {
  Index node = 0;
  Index interface = 0;
  friend auto operator<=>(const EndPoint& left, const EndPoint& right) = default;
};

struct LinkModel {
  EndPoint left;
  EndPoint right;
};

/// The whole.
class NetworkModel {
 public:
  std::vector<NodeModel> nodes;
  std::vector<SubnetModel> subnets;
  std::vector<VlanModel> vlans;
  std::vector<LinkModel> links;

  InterfaceModel& at(const EndPoint& end) { return nodes[end.node].interfaces[end.interface]; }
  const InterfaceModel& at(const EndPoint& end) const {
    return nodes[end.node].interfaces[end.interface];
  }

  /// Adds a layer-2 link; false if the two ends were linked already, whichever way round.
  bool addLink(const EndPoint& left, const EndPoint& right);
  /// The subnet of a prefix, made at first sight; a scope keeps equal prefixes apart.
  Index subnetOf(const IpPrefix& prefix, const std::string& scope = "");
  /// The subnet of a key, made at first sight.
  Index subnetOfKey(const std::string& key, const std::string& name, bool isV6);
  Index vlanOf(const std::string& key, const std::string& name, int number);

  /// Gives each address that can have one its subnet. To be called when all links are there.
  ///
  /// An address with a prefix length goes to the subnet of its prefix. Link-local addresses
  /// share a subnet with the other end of their wire alone, IPv6's loopback address has one for
  /// each node, and a lone IPv6 address of unknown length one of its own, since the library
  /// needs one for each IPv6 address. IPv4 host prefixes and loopback addresses have none.
  void assignSubnets();

 private:
  void assignSubnet(const EndPoint& end, AddressModel& address, const std::string& wire);

  std::set<std::pair<EndPoint, EndPoint>> linked_;
  std::map<std::string, Index> subnetsByKey_;
  std::map<std::string, Index> vlansByKey_;
};

}  // namespace zntopo::tools
