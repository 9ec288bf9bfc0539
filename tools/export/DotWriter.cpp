#include "tools/export/DotWriter.h"

#include <algorithm>
#include <map>

#include "tools/export/NodeLook.h"
#include "tools/network/NetworkFields.h"
#include "tools/network/PlainText.h"

namespace zntopo::tools {

namespace {

// Of the colours of Okabe and Ito, which people with any kind of sight tell apart.
constexpr const char* kBlue = "#0072B2";
constexpr const char* kGreen = "#009E73";
constexpr const char* kYellow = "#F0E442";
constexpr const char* kOrange = "#E69F00";
constexpr const char* kVermillion = "#D55E00";
constexpr const char* kSkyBlue = "#56B4E9";
constexpr const char* kGrey = "#BBBBBB";
constexpr const char* kWhite = "#FFFFFF";

struct StatusLook {
  const char* status;
  const char* fill;
  int border;
};

/// A state that is not here looks like the last one. What is not normal is written into the node
/// too, and the worse it is the thicker is the line around it. Black is readable on each of the
/// colours, which white is not.
constexpr StatusLook kStatusLooks[] = {
    {"normal", kGreen, 1},    {"warning", kYellow, 1},      {"marginal", kYellow, 2},
    {"major", kOrange, 3},    {"critical", kVermillion, 4}, {"testing", kSkyBlue, 1},
    {"unmanaged", kWhite, 1}, {"restricted", kWhite, 1},    {"disabled", kWhite, 1},
    {"no-status", kGrey, 1},  {"unknown", kGrey, 1}};

const StatusLook& lookOf(const std::string& status) {
  for (const StatusLook& one : kStatusLooks) {
    if (status == one.status) return one;
  }
  return *std::rbegin(kStatusLooks);
}

constexpr const char* kSubnetShape = "box";
constexpr const char* kVlanShape = "tab";

const char* shapeOf(NodeKind kind) {
  switch (kind) {
    case NodeKind::Router:
      return "ellipse";
    case NodeKind::Layer3Switch:
      return "octagon";
    case NodeKind::Switch:
      return "box";
    case NodeKind::Host:
      break;
  }
  return "note";
}

/// How far down in a picture each node belongs: with each link away from what routes, or from the
/// node with the most links where nothing does, one further.
std::vector<std::size_t> levelsOf(const StoredNetwork& network) {
  const NetworkModel& model = network.model;
  std::vector<std::set<Index>> peers(model.nodes.size());
  for (const LinkModel& link : model.links) {
    peers[link.left.node].insert(link.right.node);
    peers[link.right.node].insert(link.left.node);
  }
  constexpr std::size_t kNowhere = -1;
  std::vector<std::size_t> levels(model.nodes.size(), kNowhere);
  std::vector<Index> order(model.nodes.size());
  for (Index i = 0; i < order.size(); ++i) order[i] = i;
  const auto rank = [&](Index i) {
    return std::pair(!network.traits[i].isRouter, -static_cast<long>(peers[i].size()));
  };
  std::stable_sort(order.begin(), order.end(),
                   [&](Index one, Index other) { return rank(one) < rank(other); });
  std::vector<Index> queue;
  for (const Index i : order) {
    if (network.traits[i].isRouter) queue.push_back(i);
  }
  for (const Index i : queue) levels[i] = 0;
  // Once more for each part of the network that has no way to what is there already.
  for (const Index start : order) {
    if (levels[start] == kNowhere) {
      levels[start] = 0;
      queue.push_back(start);
    }
    for (std::size_t at = 0; at < queue.size(); ++at) {
      for (const Index peer : peers[queue[at]]) {
        if (levels[peer] != kNowhere) continue;
        levels[peer] = levels[queue[at]] + 1;
        queue.push_back(peer);
      }
    }
    queue.clear();
  }
  return levels;
}

class Writer {
 public:
  Writer(const StoredNetwork& network, const DotStyle& style, std::ostream& out)
      : network_(network), model_(network.model), style_(style), out_(out) {
    for (std::size_t i = 0; i < style.path.size(); ++i) {
      pathNodes_.emplace(style.path[i].node, i);
      if (i > 0) pathLinks_.insert(std::minmax(style.path[i - 1], style.path[i]));
    }
    isPathAlone_ = !style.path.empty() && pathNodes_.size() == model_.nodes.size();
    levels_ = levelsOf(network);
    if (!isPathAlone_) return;
    for (const auto& [node, step] : pathNodes_) levels_[node] = step;
  }

  void write() {
    writeHead();
    for (Index i = 0; i < model_.nodes.size(); ++i) writeNode(i);
    for (const LinkModel& link : model_.links) writeLink(link);
    if (style_.hasSubnets) writeSubnets();
    if (style_.hasVlans) writeVlans();
    if (style_.hasLegend) writeLegend();
    out_ << "}\n";
  }

 private:
  void writeHead() {
    out_ << "graph zntopo {\n  graph [charset=\"UTF-8\", fontname=\"Helvetica\", fontsize=12";
    if (!style_.layout.empty()) out_ << ", layout=" << style_.layout;
    if (style_.layout == "dot") {
      out_ << ", rankdir=" << (isPathAlone_ ? "LR" : "TB") << ", ranksep=0.6, nodesep=0.3";
    }
    if (!style_.layout.empty() && style_.layout != "dot") {
      out_ << ", overlap=prism, splines=true, outputorder=edgesfirst, sep=\"+12\"";
    }
    if (!style_.note.empty()) {
      out_ << ", labelloc=b, label=\"" << dotText(style_.note) << "\"";
    }
    out_ << "];\n"
         << "  node [fontname=\"Helvetica\", fontsize=11, style=filled, margin=\"0.12,0.06\"];\n"
         << "  edge [fontname=\"Helvetica\", fontsize=9, color=\"#555555\"];\n";
  }

  void writeNode(Index index) {
    const NodeModel& node = model_.nodes[index];
    const std::string status = statusName(node);
    const StatusLook& look = lookOf(status);
    const std::string second = status.empty() || status == "normal" ? "" : "\\n" + dotText(status);
    const bool isOnPath = pathNodes_.contains(index);
    out_ << "  n" << index + 1 << " [label=\"" << dotText(node.name) << second << "\", id=\""
         << dotText(node.id) << "\", shape=" << shapeOf(kindOf(network_.traits[index]))
         << ", fillcolor=\"" << look.fill << "\", penwidth=" << (isOnPath ? 5 : look.border);
    if (isOnPath) out_ << ", color=\"" << kBlue << "\"";
    out_ << ", tooltip=\"" << dotText(node.description.empty() ? node.name : node.description)
         << "\"];\n";
  }

  /// The end that belongs further up comes first: so it is drawn, and so are the names.
  void writeLink(const LinkModel& link) {
    EndPoint upper = link.left, lower = link.right;
    if (levels_[upper.node] > levels_[lower.node]) std::swap(upper, lower);
    out_ << "  n" << upper.node + 1 << " -- n" << lower.node + 1 << " [";
    const std::string first = dotText(model_.at(upper).name);
    const std::string second = dotText(model_.at(lower).name);
    out_ << "tooltip=\"" << first << " - " << second << "\"";
    if (style_.hasInterfaces) out_ << ", label=\"" << endsText(first, second) << "\"";
    // Those side by side stay there; routers are drawn as a tree of their own.
    const bool isBeside = levels_[upper.node] == levels_[lower.node] && levels_[upper.node] > 0;
    if (isBeside) out_ << ", constraint=false";
    if (pathLinks_.contains(std::minmax(link.left, link.right))) {
      out_ << ", color=\"" << kBlue << "\", penwidth=5";
    }
    out_ << "];\n";
  }

  /// Blanks, or an empty line, keep the names off the line of the link.
  std::string endsText(const std::string& first, const std::string& second) const {
    if (isPathAlone_) return first + " - " + second + "\\n ";
    return "   " + first + "   \\n   " + second + "   ";
  }

  /// What several nodes have in common, with a dotted line to each of them.
  void writeGroup(const std::string& id, const std::string& label, const char* shape,
                  const std::set<Index>& nodes) {
    if (nodes.empty()) return;
    groupShapes_.insert(shape);
    out_ << "  " << id << " [label=\"" << label << "\", shape=" << shape
         << ", style=\"filled,dashed,rounded\", fillcolor=\"#EEF6FB\"];\n";
    for (const Index node : nodes) {
      out_ << "  n" << node + 1 << " -- " << id << " [style=dotted, color=\"" << kSkyBlue
           << "\"];\n";
    }
  }

  void writeSubnets() {
    std::map<Index, std::set<Index>> nodes;
    for (Index i = 0; i < model_.nodes.size(); ++i) {
      for (const InterfaceModel& interface : model_.nodes[i].interfaces) {
        for (const AddressModel& address : interface.addresses) {
          if (address.subnet) nodes[*address.subnet].insert(i);
        }
      }
    }
    for (const auto& [subnet, members] : nodes) {
      writeGroup("s" + std::to_string(subnet + 1), dotText(model_.subnets[subnet].name),
                 kSubnetShape, members);
    }
  }

  void writeVlans() {
    std::map<Index, std::set<Index>> nodes;
    for (Index i = 0; i < model_.nodes.size(); ++i) {
      for (const InterfaceModel& interface : model_.nodes[i].interfaces) {
        for (const Index vlan : interface.vlans) nodes[vlan].insert(i);
      }
    }
    for (const auto& [index, members] : nodes) {
      const VlanModel& vlan = model_.vlans[index];
      const std::string number = "VLAN " + std::to_string(vlan.number);
      writeGroup("v" + std::to_string(index + 1),
                 vlan.name == number ? number : number + "\\n" + dotText(vlan.name), kVlanShape,
                 members);
    }
  }

  /// What the graph shows, kinds and states first: a table, since not every layout keeps together
  /// what belongs together.
  void writeLegend() {
    std::set<NodeKind> kinds;
    std::set<std::string> states;
    for (Index i = 0; i < model_.nodes.size(); ++i) {
      kinds.insert(kindOf(network_.traits[i]));
      states.insert(statusName(model_.nodes[i]));
    }
    out_ << "  legend [shape=plain, style=\"\", fontsize=9, label=<<TABLE BORDER=\"0\" "
            "CELLBORDER=\"1\" CELLSPACING=\"0\" CELLPADDING=\"4\" COLOR=\"#999999\"><TR>";
    for (const NodeKind kind : kinds) {
      const std::string shape = shapeOf(kind);
      out_ << "<TD>" << (shape == "note" ? "sheet" : shape) << ": " << kindName(kind) << "</TD>";
    }
    for (const StatusLook& look : kStatusLooks) {
      if (!states.contains(look.status)) continue;
      out_ << "<TD BGCOLOR=\"" << look.fill << "\">" << look.status << "</TD>";
    }
    if (states.contains("")) out_ << "<TD BGCOLOR=\"" << kGrey << "\">no state known</TD>";
    if (groupShapes_.contains(kSubnetShape)) out_ << "<TD>dashed box: subnet</TD>";
    if (groupShapes_.contains(kVlanShape)) out_ << "<TD>dashed tab: VLAN</TD>";
    if (!style_.path.empty()) {
      out_ << "<TD><FONT COLOR=\"" << kBlue << "\">thick blue line: path</FONT></TD>";
    }
    out_ << "</TR></TABLE>>];\n";
  }

  const StoredNetwork& network_;
  const NetworkModel& model_;
  const DotStyle& style_;
  std::ostream& out_;
  /// The first step of the path at each of its nodes.
  std::map<Index, std::size_t> pathNodes_;
  std::set<std::pair<EndPoint, EndPoint>> pathLinks_;
  bool isPathAlone_ = false;
  std::vector<std::size_t> levels_;
  /// Of the groups that were drawn.
  std::set<std::string> groupShapes_;
};

}  // namespace

std::string dotText(const std::string& text) {
  std::string result;
  for (const char c : printable(text)) {
    // Between quotes a backslash begins an escape of labels, an ampersand an entity.
    if (c == '"' || c == '\\') result += '\\';
    result += c == '&' ? "&amp;" : std::string(1, c);
  }
  return result;
}

void writeDot(const StoredNetwork& network, const DotStyle& style, std::ostream& out) {
  Writer(network, style, out).write();
}

}  // namespace zntopo::tools
