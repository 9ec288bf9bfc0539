#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/network/ToolError.h"

namespace zntopo::tools {

/// What kind of network is made.
enum class NetworkShape : int {
  /// Sites of edge routers, core, distribution and access switches and hosts, on a backbone of
  /// routers.
  Campus,
  /// One long ring of switches.
  SwitchRing,
  /// One long ring of routers.
  RouterRing
};

/// What network to make: the same plan always gives the same network, row by row, on every
/// machine. A plain record.
struct CampusPlan {
  NetworkShape shape = NetworkShape::Campus;
  /// Nodes in all, to be met exactly. A campus wants 8 a site at least, a ring 3.
  int nodes = 1000;
  /// Interfaces in all, to be met exactly: what links and addresses do not need becomes free
  /// access ports. 20 a node in a campus and 4 a node in a ring, unless told.
  std::optional<int> interfaces;
  /// Sites of a campus; about one for 250 nodes unless told.
  std::optional<int> sites;
  std::uint64_t seed = 1;
  /// The part of the nodes and of the interfaces that have user variables, from 0 to 1. VLANs
  /// have the one that tells their number, whatever is said here.
  double userVariableShare = 0.02;
  /// The part of the HSRP groups that are broken, with two active members or none, from 0 to 1.
  double brokenGroupShare = 0;
  /// Keeps this network apart from others in the same store: the column ZoneNumber, and a part
  /// of every identifier.
  std::string zone;
  /// The time that the rows tell, in seconds UTC; it is not the present time, so that the rows
  /// are the same whenever they are made. The row of the store's state has the present time.
  int time = 1'767'225'600;
};

/// A plan that can't be met; the text says why, and what would do.
class PlanError : public ToolError {
 public:
  explicit PlanError(const std::string& text) : ToolError(ZN_API_ILLEGAL_INPUT, text) {}
};

}  // namespace zntopo::tools
