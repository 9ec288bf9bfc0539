#include <memory>

#include "tools/network/PlainText.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

struct NeighborsOptions {
  std::string node;
  int hops = 1;
  int maxNodes = 1000;
};

/// One link, seen from the side from which the walk came.
struct Link {
  ObjID nearNode, nearInterface, farNode, farInterface;

  explicit Link(const ZNConnection& connection)
      : nearNode(connection.getSrcNodeObjID()),
        nearInterface(connection.getSrcInterfaceObjID()),
        farNode(connection.getDestNodeObjID()),
        farInterface(connection.getDestInterfaceObjID()) {
    if (connection.getConnData().isNodeSide()) return;
    std::swap(nearNode, farNode);
    std::swap(nearInterface, farInterface);
  }
};

/// Names for the identifiers of links; the identifier itself for what has no row.
class Names {
 public:
  Names(Session& session, const std::vector<Link>& links) {
    std::set<ObjID> nodes;
    std::set<ObjID> interfaces;
    for (const Link& link : links) {
      nodes.insert({link.nearNode, link.farNode});
      interfaces.insert({link.nearInterface, link.farInterface});
    }
    nodes_ = nodesById(session, nodes);
    interfaces_ = interfacesById(session, interfaces);
  }

  std::string node(const ObjID& id) const {
    const auto found = nodes_.find(id.toString());
    return found == nodes_.end() ? id.toString() : found->second->getName();
  }
  std::string interface(const ObjID& id) const {
    const auto found = interfaces_.find(id.toString());
    return found == interfaces_.end() ? id.toString() : interfaceLabel(*found->second);
  }

 private:
  std::map<std::string, ZNRefPtr<ZNNode>> nodes_;
  std::map<std::string, ZNRefPtr<ZNInterface>> interfaces_;
};

void neighbors(const Context& context, const NeighborsOptions& options, Answer& answer) {
  Session session(context);
  const NamedNode start = findNode(session, options.node);
  const auto connections =
      session.api().getNodeNeighbors(start.id(), answer.status, options.hops, options.maxNodes);
  std::vector<Link> links;
  for (const ZNConnection& connection : *connections) links.emplace_back(connection);
  const Names names(session, links);
  TextTable table({"NODE", "INTERFACE", "NODE", "INTERFACE"});
  for (const Link& link : links) {
    const std::string nearNode = names.node(link.nearNode);
    const std::string nearInterface = names.interface(link.nearInterface);
    const std::string farNode = names.node(link.farNode);
    const std::string farInterface = names.interface(link.farInterface);
    Json json;
    json["source_node"] = nearNode;
    json["source_node_id"] = link.nearNode.toString();
    json["source_interface"] = nearInterface;
    json["source_interface_id"] = link.nearInterface.toString();
    json["dest_node"] = farNode;
    json["dest_node_id"] = link.farNode.toString();
    json["dest_interface"] = farInterface;
    json["dest_interface_id"] = link.farInterface.toString();
    answer.json["connections"].push_back(json);
    table.add({nearNode, nearInterface, farNode, farInterface});
  }
  if (answer.status.isOK() || !links.empty()) {
    answer.text = table.text() + counted(table.size(), "link") + " within " +
                  counted(static_cast<std::size_t>(std::max(options.hops, 0)), "hop") + " of " +
                  printable(start.node->getName()) + "\n";
  }
}

}  // namespace

void addNeighborsCommand(CLI::App& app, Context& context) {
  CLI::App* const command =
      addCommand(app, context, "neighbors",
                 "List the layer-2 links around a node, those among its outermost neighbours too.",
                 "  zntopo neighbors core-1\n"
                 "  zntopo neighbors core-1 --hops 2 --max-nodes 50 --json");
  const auto options = std::make_shared<NeighborsOptions>();
  addNodeArgument(*command, "NODE", options->node);
  command->add_option("--hops", options->hops, "How far to go")->capture_default_str();
  command
      ->add_option("--max-nodes", options->maxNodes,
                   "Stop at so many nodes; what was found until then is shown")
      ->capture_default_str();
  command->callback([&context, options] {
    Answer empty;
    empty.json["connections"] = Json::array();
    answer(context, empty, [&](Answer& result) { neighbors(context, *options, result); });
  });
}

}  // namespace zntopo::tools
