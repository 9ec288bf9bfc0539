#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/import/JsonDocument.h"
#include "tools/network/IpAddress.h"
#include "tools/network/NetworkReport.h"

/// @file
/// What an RFC 8345 document says, network by network, before its layers are put together.
///
/// The attributes of layer 2 (RFC 8944) and layer 3 (RFC 8346) are read, in their final and in
/// their draft spelling, on whatever network they stand. Those of zntopo-topology
/// (Rfc8345Extension.h) are only found.

namespace zntopo::tools::rfc8345 {

/// What a network's type makes of it.
enum class Kind {
  /// No type: equipment and wires, or an overview of something.
  Untyped,
  Layer2,
  Layer3,
  /// A type that is not understood.
  Other
};

/// A reference to a node of a network.
struct NodeRef {
  std::string network;
  std::string node;
};

/// A reference to a termination point.
struct TpRef {
  NodeRef node;
  std::string tp;
};

/// An address of a layer-3 termination point.
struct TpAddress {
  IpAddress address;
  std::optional<int> prefixLength;
};

/// A VLAN that a termination point carries.
struct TpVlan {
  int number = 0;
  std::string name;
  bool isUntagged = false;
};

struct TerminationPoint {
  std::string id;
  std::string where;
  std::vector<TpRef> supports;
  std::string interfaceName;
  std::string description;
  std::string macAddress;
  std::optional<int> index;
  std::optional<int> speed;
  std::vector<TpVlan> vlans;
  std::vector<TpAddress> addresses;
  bool isUnnumbered = false;
  std::optional<JsonPlace> extension;
};

/// A prefix of a layer-3 node; some files leave the length out.
struct NodePrefix {
  IpAddress network;
  std::optional<int> length;
};

struct Node {
  std::string id;
  std::string where;
  std::vector<NodeRef> supports;
  std::vector<TerminationPoint> tps;
  std::map<std::string, std::size_t> tpIndex;
  std::string name;
  std::string description;
  std::vector<IpAddress> managementAddresses;
  bool hasRouterId = false;
  std::vector<NodePrefix> prefixes;
  std::vector<std::string> flags;
  std::optional<JsonPlace> extension;

  bool hasAddresses() const;
  bool hasFlag(const std::string& flag) const;
};

/// One end of a link; the termination point may be left out.
struct LinkEnd {
  std::string node;
  std::string tp;
};

struct Link {
  std::string id;
  std::string where;
  LinkEnd source;
  LinkEnd destination;
};

struct Network {
  std::string id;
  std::string where;
  Kind kind = Kind::Untyped;
  std::vector<Node> nodes;
  std::map<std::string, std::size_t> nodeIndex;
  std::vector<Link> links;
  std::optional<JsonPlace> extension;
};

struct Document {
  std::vector<Network> networks;
  std::map<std::string, std::size_t> networkIndex;
};

/// Takes a parsed file apart. Throws ImportError for what is malformed; what is well formed and
/// not understood is counted in the report. The document refers to the JSON, which must outlive it.
Document readDocument(const nlohmann::json& json, const std::string& file, NetworkReport& report);

}  // namespace zntopo::tools::rfc8345
