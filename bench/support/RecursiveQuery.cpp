#include "bench/support/RecursiveQuery.h"

#include <unordered_map>

#include "bench/support/LinkRows.h"

namespace zntopo::bench {

namespace {

// Each link from both sides. An "or" over the two sides would say it in the join, but one engine
// then gives up its indices.
constexpr char kLinks[] =
    "with recursive link(node, far, outif, inif) as ("
    "select leftifnodeobjid, rightifnodeobjid, leftobjid, rightobjid from NWInterfaceAsc "
    "where reltype = 1 union all "
    "select rightifnodeobjid, leftifnodeobjid, rightobjid, leftobjid from NWInterfaceAsc "
    "where reltype = 1), ";

// The columns as text: one engine wants the same type in both arms of a recursion.
std::string pathSql(const std::string& fromNode) {
  return std::string(kLinks) + "walk(node, parent, outif, inif) as (select cast('" + fromNode +
         "' as text), cast('' as text), cast('' as text), cast('' as text) union select "
         "cast(l.far as text), w.node, cast(l.outif as text), cast(l.inif as text) from walk w "
         "join link l on l.node = w.node) select node, parent, outif, inif from walk";
}

std::string neighborsSql(const std::string& fromNode, int hops) {
  return std::string(kLinks) + "walk(node, depth) as (select cast('" + fromNode +
         "' as text), 0 union select cast(l.far as text), w.depth + 1 from walk w join link l on "
         "l.node = w.node where w.depth < " +
         std::to_string(hops) +
         ") select l.leftobjid, l.rightobjid, l.leftifnodeobjid, l.rightifnodeobjid from "
         "NWInterfaceAsc l where l.reltype = 1 and l.leftifnodeobjid in (select node from walk) "
         "and l.rightifnodeobjid in (select node from walk)";
}

struct Step {
  char node[37];
  char parent[37];
  char outInterface[37];
  char inInterface[37];
};

}  // namespace

std::size_t recursivePath(TvDbil::DbConnection_t& connection, const std::string& fromNode,
                          const std::string& toNode) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  check(statement.BindSql(messages, pathSql(fromNode).c_str()), messages);
  Step row;
  int position = 0;
  for (char* const column : {row.node, row.parent, row.outInterface, row.inInterface}) {
    check(statement.BindColumn(messages, ++position, column, nullptr, 37), messages);
  }
  check(statement.Exec(messages), messages);
  // The first row of a node comes from the ring where it was met first.
  std::unordered_map<std::string, Step> steps;
  while (statement.Fetch(messages) == TvDbil::DBIL_SUCCESS) {
    steps.try_emplace(row.node, row);
    if (toNode == row.node) break;
  }
  std::size_t links = 0;
  for (auto step = steps.find(toNode); step != steps.end() && fromNode != step->second.node;
       step = steps.find(step->second.parent)) {
    ++links;
  }
  return links;
}

std::size_t recursiveNeighbors(TvDbil::DbConnection_t& connection, const std::string& fromNode,
                               int hops) {
  return readPlain<kLinkColumns>(connection, neighborsSql(fromNode, hops)).size();
}

}  // namespace zntopo::bench
