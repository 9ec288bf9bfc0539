#pragma once

#include <tuple>

#include "zntopo/cache/detail/CacheKinds.h"
#include "zntopo/cache/detail/Shelf.h"

namespace zntopo::detail {

/// The shelves of the seven kinds.
struct Shelves {
  Shelf<NodeKind> nodes;
  Shelf<AddressKind> addresses;
  Shelf<SubnetKind> subnets;
  Shelf<InterfaceKind> interfaces;
  Shelf<VlanKind> vlans;
  Shelf<IfcKind> ifcs;
  Shelf<HSRPKind> hsrps;

  /// What clearing takes out: all but the containers, which can still be served then.
  using Cleared = std::tuple<Shelf<NodeKind>::Contents, Shelf<AddressKind>::Contents,
                             Shelf<SubnetKind>::Contents, Shelf<InterfaceKind>::Contents,
                             Shelf<VlanKind>::Contents, Shelf<HSRPKind>::Contents>;
  Cleared clear() {
    vlans.resetFlags();
    ifcs.resetFlags();
    hsrps.resetFlags();
    return {nodes.takeAll(),      addresses.takeAll(), subnets.takeAll(),
            interfaces.takeAll(), vlans.takeAll(),     hsrps.takeAll()};
  }
};

}  // namespace zntopo::detail
