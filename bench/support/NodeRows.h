#pragma once

#include <string>
#include <vector>

#include "bench/support/PlainRead.h"
#include "zntopo/api/detail/AttachmentRows.h"
#include "zntopo/api/detail/AttachmentSql.h"
#include "zntopo/api/detail/NodeRow.h"
#include "zntopo/api/detail/NodeSql.h"

/// @file
/// All nodes and what hangs on them, read plainly: by the statements that the library asks for
/// all nodes with.

namespace zntopo::bench {

struct NodeStatements {
  NodeStatements()
      : nodes(detail::nodeSelect("", detail::nodeTables(TableSet()))),
        links(detail::connDataSelect(TableSet(), {}, true)),
        containers(detail::ifcInfoSelect(TableSet(), {}, true, true, 0)),
        vlans(detail::vlanInfoSelect(TableSet(), {}, true, true, false)) {}

  std::string nodes;
  std::string links;
  std::string containers;
  std::string vlans;
};

struct NodeLists {
  std::vector<PlainRow<detail::kConnDataColumns>> links;
  std::vector<PlainRow<detail::kIfcInfoColumns>> containers;
  std::vector<PlainRow<detail::kVlanInfoColumns>> vlans;
};

inline NodeLists readNodeLists(TvDbil::DbConnection_t& connection,
                               const NodeStatements& statements) {
  return {readPlain<detail::kConnDataColumns>(connection, statements.links),
          readPlain<detail::kIfcInfoColumns>(connection, statements.containers),
          readPlain<detail::kVlanInfoColumns>(connection, statements.vlans)};
}

}  // namespace zntopo::bench
