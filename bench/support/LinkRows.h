#pragma once

#include <string>
#include <vector>

#include "bench/support/PlainRead.h"

/// @file
/// The rows that a walk needs, read plainly.

namespace zntopo::bench {

enum NodeNameText : std::size_t { NodeName_ID, NodeName_Address };

inline constexpr Column kNodeNameColumns[] = {textColumn("ObjId", 37),
                                              textColumn("PubV4ManagementAdd", 16)};

inline auto readNodeNames(TvDbil::DbConnection_t& connection) {
  return readPlain<kNodeNameColumns>(connection, "select ObjId, PubV4ManagementAdd from nwnode");
}

enum LinkText : std::size_t {
  Link_LeftInterface,
  Link_RightInterface,
  Link_LeftNode,
  Link_RightNode
};

inline constexpr Column kLinkColumns[] = {
    textColumn("leftobjid", 37),
    textColumn("rightobjid", 37),
    textColumn("leftifnodeobjid", 37),
    textColumn("rightifnodeobjid", 37),
};

inline auto readLinks(TvDbil::DbConnection_t& connection) {
  return readPlain<kLinkColumns>(connection,
                                 "select leftobjid, rightobjid, leftifnodeobjid, rightifnodeobjid "
                                 "from NWInterfaceAsc where reltype = 1");
}

}  // namespace zntopo::bench
