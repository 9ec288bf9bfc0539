#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "tools/import/InputFile.h"
#include "tools/import/XmlDocument.h"
#include "tools/network/NetworkReport.h"

/// @file
/// A GraphML file as it stands, before anything is concluded from it.

namespace zntopo::tools::graphml {

struct Port {
  std::string name;
  XmlPlace place;
};

struct Node {
  std::string id;
  /// Empty if there is none.
  std::string label;
  std::string description;
  std::vector<Port> ports;
  /// True if a graph inside the node has nodes of its own.
  bool hasInnerNodes = false;
  XmlPlace place;
};

struct Edge {
  std::string source;
  std::string target;
  /// Empty for an end that names no port.
  std::string sourcePort;
  std::string targetPort;
  std::string description;
  bool isDirected = false;
  XmlPlace place;
};

/// All nodes and edges of a file, those of nested graphs too, in the order of their start tags.
struct Document {
  std::vector<Node> nodes;
  std::vector<Edge> edges;
  /// Where each node's id stands in nodes.
  std::map<std::string, std::size_t> nodeIndex;
};

/// Reads a file. Throws ImportError for one that is no XML or no GraphML, and for an id that is
/// missing, doubled or no fit name. What is not carried over is counted.
Document readDocument(const InputFile& file, NetworkReport& report,
                      const ProgressFunction& progress);

}  // namespace zntopo::tools::graphml
