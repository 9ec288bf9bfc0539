#include "tools/import/GraphmlReader.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "tools/import/GraphmlDocument.h"
#include "tools/network/StoreRows.h"

namespace zntopo::tools {

namespace graphml {

namespace {

/// Made-up names stay this far below the width of a name, so that a number fits behind them.
constexpr std::size_t kNumberWidth = 20;

class Builder {
 public:
  Builder(const InputFile& file, const Document& document, NetworkReport& report)
      : file_(file), document_(document), report_(report) {}

  NetworkModel build() {
    findEnds();
    countLabels();
    for (std::size_t i = 0; i < document_.nodes.size(); ++i) addNode(i);
    for (std::size_t i = 0; i < document_.edges.size(); ++i) addEdge(i);
    noteEqualNames();
    return std::move(model_);
  }

 private:
  std::string where(const XmlPlace& place) const { return place.in(file_); }
  std::string key(const std::string& kind, const std::string& rest) const {
    return "graphml " + kind + "\n" + file_.stem + "\n" + rest;
  }

  /// The document's node of an edge's end.
  std::size_t nodeOf(const std::string& id, const Edge& edge) const {
    const auto found = document_.nodeIndex.find(id);
    if (found != document_.nodeIndex.end()) return found->second;
    throw ImportError(where(edge.place),
                      "has an edge to the node \"" + id + "\", which is not there");
  }

  void findEnds() {
    std::vector<bool> hasEdge(document_.nodes.size());
    for (const Edge& edge : document_.edges) {
      const std::size_t source = nodeOf(edge.source, edge);
      ends_.emplace_back(source, nodeOf(edge.target, edge));
      hasEdge[ends_.back().first] = true;
      hasEdge[ends_.back().second] = true;
    }
    for (std::size_t i = 0; i < document_.nodes.size(); ++i) {
      isMereGroup_.push_back(document_.nodes[i].hasInnerNodes && !hasEdge[i]);
    }
  }

  void countLabels() {
    for (std::size_t i = 0; i < document_.nodes.size(); ++i) {
      if (!isMereGroup_[i]) ++labelCounts_[document_.nodes[i].label];
    }
  }

  std::string nameOf(const Node& node) const {
    if (node.label.empty()) return node.id;
    std::string name = node.label;
    if (labelCounts_.at(node.label) > 1) name += "-" + node.id;
    checkName(where(node.place) + ": name of the node \"" + node.id + "\"", name);
    return name;
  }

  void addNode(std::size_t index) {
    const Node& node = document_.nodes[index];
    modelIndex_.push_back(model_.nodes.size());
    if (isMereGroup_[index]) {
      report_.add("node around other nodes, without an edge of its own", where(node.place));
      return;
    }
    NodeModel made;
    made.key = key("node", node.id);
    made.name = nameOf(node);
    made.description = node.description;
    for (const Port& port : node.ports) {
      const std::size_t position = made.interfaces.size();
      InterfaceModel interface;
      interface.key = key("port", node.id + "\n" + port.name);
      interface.name = port.name;
      made.interfaces.push_back(std::move(interface));
      const EndPoint end{model_.nodes.size(), position};
      freePorts_.emplace(std::make_pair(end.node, port.name), end);
      usedNames_.emplace(end.node, port.name);
    }
    model_.nodes.push_back(std::move(made));
  }

  void noteEqualNames() {
    std::set<std::string> names;
    for (const NodeModel& node : model_.nodes) {
      if (!names.insert(node.name).second) {
        report_.add("name that another node has too (its identifier tells them apart)",
                    file_.label + ": \"" + node.name + "\"");
      }
    }
  }

  void addEdge(std::size_t index) {
    const Edge& edge = document_.edges[index];
    const Index source = modelIndex_[ends_[index].first];
    const Index target = modelIndex_[ends_[index].second];
    if (source == target) {
      report_.add("edge from a node to itself", where(edge.place));
      return;
    }
    if (edge.isDirected && isWayBack(edge)) return;
    // Edges between the same two nodes are told apart by their order.
    const auto pair = std::minmax(edge.source, edge.target);
    const int number = ++edgeCounts_[pair];
    const std::string edgeKey =
        key("edge", pair.first + "\n" + pair.second + "\n" + std::to_string(number) + "\n");
    const EndPoint left =
        interfaceFor(edge, edge.sourcePort, source, target, edgeKey + edge.source);
    const EndPoint right =
        interfaceFor(edge, edge.targetPort, target, source, edgeKey + edge.target);
    model_.addLink(left, right);
  }

  /// True for a directed edge that is the way back of one before it: together they are one link.
  bool isWayBack(const Edge& edge) {
    using Ends = std::array<std::string, 4>;
    report_.add("directed edge (links have no direction)", where(edge.place));
    const auto way =
        openWays_.find(Ends{edge.target, edge.targetPort, edge.source, edge.sourcePort});
    if (way == openWays_.end() || way->second == 0) {
      ++openWays_[Ends{edge.source, edge.sourcePort, edge.target, edge.targetPort}];
      return false;
    }
    --way->second;
    report_.add("directed edge back (one link with the edge there)", where(edge.place));
    return true;
  }

  /// The interface at one end of an edge: that of the port, if no edge before took it, or one
  /// made for the edge.
  EndPoint interfaceFor(const Edge& edge, const std::string& port, Index node, Index other,
                        const std::string& interfaceKey) {
    const auto free = freePorts_.find({node, port});
    if (free != freePorts_.end()) {
      const EndPoint end = free->second;
      freePorts_.erase(free);
      InterfaceModel& interface = model_.at(end);
      if (interface.description.empty()) interface.description = edge.description;
      return end;
    }
    InterfaceModel interface;
    interface.key = interfaceKey;
    interface.name = freshName(node, port.empty() ? "to " + model_.nodes[other].name : port);
    interface.isNameMade = interface.name != port;
    interface.description = edge.description;
    std::vector<InterfaceModel>& interfaces = model_.nodes[node].interfaces;
    interfaces.push_back(std::move(interface));
    return {node, interfaces.size() - 1};
  }

  /// A name that no interface of the node has: "to core", "to core (2)" ...
  std::string freshName(Index node, const std::string& wanted) {
    const std::string base = cutText(wanted, kNameWidth - kNumberWidth);
    int& number = nameCounts_[{node, base}];
    std::string name;
    do {
      ++number;
      name = number == 1 ? base : base + " (" + std::to_string(number) + ")";
    } while (!usedNames_.emplace(node, name).second);
    return name;
  }

  const InputFile& file_;
  const Document& document_;
  NetworkReport& report_;
  NetworkModel model_;
  /// The document's nodes at the ends of each edge.
  std::vector<std::pair<std::size_t, std::size_t>> ends_;
  /// For each of the document's nodes, whether it only holds others.
  std::vector<bool> isMereGroup_;
  /// For each of the document's nodes, where it stands in the model.
  std::vector<Index> modelIndex_;
  std::map<std::string, int> labelCounts_;
  std::map<std::pair<std::string, std::string>, int> edgeCounts_;
  /// Directed edges without a way back so far: source, its port, target, its port.
  std::map<std::array<std::string, 4>, int> openWays_;
  std::map<std::pair<Index, std::string>, EndPoint> freePorts_;
  std::set<std::pair<Index, std::string>> usedNames_;
  std::map<std::pair<Index, std::string>, int> nameCounts_;
};

}  // namespace
}  // namespace graphml

NetworkModel readGraphml(const InputFile& file, NetworkReport& report,
                         const ProgressFunction& progress) {
  const graphml::Document document = graphml::readDocument(file, report, progress);
  return graphml::Builder(file, document, report).build();
}

}  // namespace zntopo::tools
