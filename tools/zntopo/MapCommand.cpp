#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

#include "tools/export/DotWriter.h"
#include "tools/network/PlainText.h"
#include "tools/zntopo/Graphviz.h"
#include "tools/zntopo/NetworkPart.h"
#include "tools/zntopo/OutputOptions.h"
#include "tools/zntopo/Progress.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

struct MapOptions {
  PartOptions part;
  DotStyle style{.hasLegend = true};
  bool isPathAlone = false;
  bool hasNoLegend = false;
  int maxNodes = 150;
  std::string layout;
  OutputOptions output;
};

constexpr const char* kFormats[] = {"svg", "png", "dot"};
/// Up to so many nodes are laid out by rank, which leaves room for every label; more would become
/// too wide.
constexpr std::size_t kRankedNodes = 80;

/// The nodes of a map, and what the picture says of those that it does not show.
struct Chosen {
  std::vector<ObjID> nodes;
  std::string limit;
};

std::string formatOf(const OutputOptions& options) {
  if (!options.format.empty()) return options.format;
  std::string extension = std::filesystem::path(options.file).extension();
  extension.erase(0, std::min<std::size_t>(1, extension.size()));
  for (const char* format : kFormats) {
    if (CLI::detail::to_lower(extension) == format) return format;
  }
  if (options.file.empty()) return "svg";
  throw Failure(ZN_API_ILLEGAL_INPUT, "The ending of \"" + printable(options.file) +
                                          "\" tells no format: name it .svg, .png or .dot, or use "
                                          "--format.");
}

/// How many links each node has; nodes are read without their interfaces.
std::map<std::string, std::size_t> linkCounts(Session& session, const std::vector<ObjID>& ids) {
  std::map<std::string, std::size_t> counts;
  Progress progress("Counting links");
  const std::vector<std::set<ObjID>> batches = batchesOf(ids, 500);
  for (std::size_t i = 0; i < batches.size(); ++i) {
    progress.show(static_cast<double>(i) / static_cast<double>(batches.size()));
    ZNTopoAPIStatus status;
    std::set<ObjID> notFound;
    const auto nodes = session.api().getNodesByObjIDList(batches[i], notFound, status, false, false,
                                                         false, ZNEntity::AllProtocol, -1);
    check(status);
    for (const auto& node : *nodes) {
      counts[node->getObjID().toString()] = node->getConnDataList().size();
    }
  }
  return counts;
}

/// All nodes, or those with the most links: what a network stands on.
Chosen chooseOfAll(Session& session, const MapOptions& options) {
  ZNTopoAPIStatus status;
  const auto all = session.api().getNodeIDsByFilter(ZNTopoFilter(), status);
  check(status);
  Chosen chosen{{all->begin(), all->end()}, ""};
  const auto most = static_cast<std::size_t>(options.maxNodes);
  if (chosen.nodes.size() <= most) return chosen;
  const auto counts = linkCounts(session, chosen.nodes);
  const auto order = [&](const ObjID& id) {
    const auto found = counts.find(id.toString());
    const std::size_t links = found == counts.end() ? 0 : found->second;
    return std::pair(-static_cast<long long>(links), id.toString());
  };
  std::sort(chosen.nodes.begin(), chosen.nodes.end(),
            [&](const ObjID& one, const ObjID& other) { return order(one) < order(other); });
  chosen.limit = "Limited: the " + std::to_string(most) + " nodes with the most links, of " +
                 std::to_string(chosen.nodes.size()) +
                 " in all. Show more with --max-nodes, or a "
                 "part with --node.";
  chosen.nodes.resize(most);
  return chosen;
}

Chosen chooseAround(Session& session, const MapOptions& options) {
  ZNTopoAPIStatus status;
  Chosen chosen;
  chosen.nodes =
      neighbourhood(session, options.part.node, options.part.hops, options.maxNodes, status);
  if (status.getStatus() == ZN_API_INCOMPLETE_NEIGHBOR_INFO) {
    chosen.limit = "Limited: the first " + std::to_string(chosen.nodes.size()) +
                   " nodes that were met; there are more within " +
                   counted(static_cast<std::size_t>(options.part.hops), "hop") +
                   ". Show more with --max-nodes.";
  }
  return chosen;
}

Chosen choose(Session& session, const MapOptions& options,
              const std::vector<ZNRefPtr<ZNInterface>>& path) {
  Chosen chosen;
  if (!options.isPathAlone) {
    chosen = options.part.isNeighbourhood() ? chooseAround(session, options)
                                            : chooseOfAll(session, options);
  }
  // A path is shown whatever the limit.
  for (const ObjID& id : nodesOf(path)) {
    const bool isThere =
        std::find(chosen.nodes.begin(), chosen.nodes.end(), id) != chosen.nodes.end();
    if (!isThere) chosen.nodes.push_back(id);
  }
  return chosen;
}

std::vector<EndPoint> placesOf(const std::vector<ZNRefPtr<ZNInterface>>& path,
                               const NetworkModel& model) {
  std::map<std::string, EndPoint> known;
  for (EndPoint end; end.node < model.nodes.size(); ++end.node) {
    const auto& interfaces = model.nodes[end.node].interfaces;
    for (end.interface = 0; end.interface < interfaces.size(); ++end.interface) {
      known.emplace(interfaces[end.interface].id, end);
    }
  }
  std::vector<EndPoint> places;
  for (const auto& interface : path) {
    const auto found = known.find(interface->getObjID().toString());
    if (found != known.end()) places.push_back(found->second);
  }
  return places;
}

struct Drawing {
  std::string graph;
  std::size_t nodes = 0;
  std::size_t links = 0;
  std::string limit;
};

Drawing makeGraph(Session& session, const MapOptions& options, Answer& answer) {
  std::vector<ZNRefPtr<ZNInterface>> path;
  if (options.part.isPath()) path = requirePath(session, options.part.path, answer);
  const Chosen chosen = choose(session, options, path);
  Progress progress("Reading");
  const StoredNetwork network = readStore(session.api(), session.connection(), chosen.nodes,
                                          [&](double part) { progress.show(part); });
  if (network.model.nodes.empty()) throw Failure(ZN_API_OBJ_NOT_EXIST, "There is no node to draw.");
  DotStyle style = options.style;
  style.hasLegend = !options.hasNoLegend;
  style.path = placesOf(path, network.model);
  style.note = chosen.limit;
  style.layout = options.layout;
  if (style.layout.empty()) {
    style.layout = network.model.nodes.size() <= kRankedNodes ? "dot" : "sfdp";
  }
  std::ostringstream graph;
  writeDot(network, style, graph);
  return {graph.str(), network.model.nodes.size(), network.model.links.size(), chosen.limit};
}

void addToNote(Answer& answer, const std::string& text) {
  if (!text.empty()) answer.note += (answer.note.empty() ? "" : "\n") + text;
}

void map(const Context& context, const MapOptions& options, Answer& answer) {
  const std::string format = formatOf(options.output);
  const bool isMember = context.isJson && options.output.file.empty();
  if (isMember && format == "png") {
    throw Failure(ZN_API_ILLEGAL_INPUT, "A PNG is no text: with --json name a file with --output.");
  }
  requireWritable(options.output);
  Session session(context);
  const Drawing drawing = makeGraph(session, options, answer);
  const std::string picture = format == "dot" ? drawing.graph : drawGraph(drawing.graph, format);
  writeDocument(
      context, options.output, [&](std::ostream& out) { out << picture; }, answer);
  answer.json["nodes"] = drawing.nodes;
  answer.json["links"] = drawing.links;
  answer.json["limited"] = !drawing.limit.empty();
  addToNote(answer, drawing.limit);
  if (!answer.note.empty()) answer.json["note"] = answer.note;
  if (options.output.file.empty()) return;
  answer.text = "Drew " + options.output.file + ": " + counted(drawing.nodes, "node") + ", " +
                counted(drawing.links, "link") + "\n";
}

void addStyle(CLI::App& command, MapOptions& options) {
  command.add_flag("--interfaces", options.style.hasInterfaces,
                   "Name the interfaces at both ends of each link");
  command.add_flag("--subnets", options.style.hasSubnets,
                   "Show subnets and who has addresses there");
  command.add_flag("--vlans", options.style.hasVlans, "Show VLANs and who has ports in them");
  command.add_flag("--no-legend", options.hasNoLegend, "Leave out what shapes and colours mean");
  command
      .add_option("--layout", options.layout,
                  "How Graphviz lays it out: dot unless there are many nodes, else sfdp")
      ->check(CLI::IsMember({"dot", "sfdp", "neato", "fdp", "twopi", "circo"}));
}

void addOptions(CLI::App& command, MapOptions& options) {
  addPartOptions(command, options.part, "Draw the layer-2 path from here bold");
  command.add_flag("--path-only", options.isPathAlone, "Only the nodes of the path")
      ->needs(command.get_option("--from"))
      ->excludes(command.get_option("--node"));
  addLimit(command, "--max-nodes", options.maxNodes,
           "Show so many nodes; a limited picture says so");
  addStyle(command, options);
  addOutputOptions(command, options.output, {std::begin(kFormats), std::end(kFormats)},
                   "What to write (otherwise the ending of the file tells, or it is SVG)");
}

}  // namespace

constinit const Command kMapCommand = {
    .name = "map",
    .about =
        "Draw the network, a neighbourhood or a path as SVG or PNG, by means of Graphviz. Shapes\n"
        "tell what a node is, colours and words how it is doing.",
    .examples =
        "  zntopo map --output campus.svg\n"
        "  zntopo map --from crane-4-plc --to srv-nms --interfaces --output path.png\n"
        "  zntopo map --node core-1 --hops 2 --vlans --output core.svg",
    .empty = R"({"output": null, "nodes": 0, "links": 0, "limited": false, "document": null,
                 "note": null})",
    .prepare = prepare<addOptions, map>,
};

}  // namespace zntopo::tools
