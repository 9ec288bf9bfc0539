#pragma once

#include <string>
#include <vector>

#include "tools/export/FieldWriter.h"
#include "tools/network/NetworkModel.h"

namespace zntopo::tools::rfc8345 {

/// What the objects of a network are called in the document that is written of it. The network must
/// outlive this object.
class Names {
 public:
  explicit Names(const NetworkModel& model);

  const std::string& node(Index node) const { return nodes_[node]; }
  const std::string& tp(const EndPoint& end) const { return tps_[end.node][end.interface]; }
  const std::string& subnet(Index subnet) const { return subnets_[subnet]; }
  const std::string& container(Index container) const { return containers_[container]; }
  /// "node-ref" and "tp-ref" of an interface.
  Json reference(const EndPoint& end) const;

 private:
  std::vector<std::string> nodes_;
  std::vector<std::vector<std::string>> tps_;
  std::vector<std::string> subnets_;
  std::vector<std::string> containers_;
};

/// The container zntopo-topology:network-attributes, but for its VLANs.
Json groupsJson(const NetworkModel& model, const Names& names);

}  // namespace zntopo::tools::rfc8345
