#pragma once

#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tools/export/StoreReader.h"

namespace zntopo::tools {

/// What of a network a graph shows beside its nodes and links.
struct DotStyle {
  /// The names of the interfaces at both ends of each link.
  bool hasInterfaces = false;
  bool hasSubnets = false;
  bool hasVlans = false;
  bool hasLegend = false;
  /// The interfaces that a path crosses, in its order; the path is drawn bold.
  std::vector<EndPoint> path = {};
  /// A line below the graph; none if it is empty.
  std::string note = {};
  /// What Graphviz is to lay the graph out with ("dot", "sfdp" ...); its default if it is empty.
  std::string layout = {};
};

/// Writes a network as a graph for Graphviz. Nodes are called n1, n2 ...; their labels have the
/// names, their attributes "id" the identifiers. Shapes tell the kinds of nodes, colours and words
/// their states.
void writeDot(const StoredNetwork& network, const DotStyle& style, std::ostream& out);

/// A text as it stands between double quotes, and is drawn as it is: no escape, no entity and no
/// line of its own.
std::string dotText(const std::string& text);

}  // namespace zntopo::tools
