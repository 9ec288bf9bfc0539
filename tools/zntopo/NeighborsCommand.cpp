#include "tools/network/PlainText.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/fields/InterfaceFields.h"
#include "tools/zntopo/fields/LinkFields.h"

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

  LinkEnd end(const ObjID& node, const ObjID& interface) const {
    const std::string nodeId = node.toString();
    const std::string interfaceId = interface.toString();
    const auto foundNode = nodes_.find(nodeId);
    const auto found = interfaces_.find(interfaceId);
    return {foundNode == nodes_.end() ? nodeId : foundNode->second->getName(), nodeId,
            found == interfaces_.end() ? interfaceId : interfaceLabel(*found->second), interfaceId};
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
  Listing<NamedLink> listing(linkFields());
  for (const Link& link : links) {
    listing.add(
        {names.end(link.nearNode, link.nearInterface), names.end(link.farNode, link.farInterface)});
  }
  answer.json["connections"] = listing.json();
  if (answer.status.isOK() || !links.empty()) {
    answer.text = listing.text() + counted(listing.size(), "link") + " within " +
                  counted(static_cast<std::size_t>(options.hops), "hop") + " of " +
                  printable(start.node->getName()) + "\n";
  }
}

void addOptions(CLI::App& command, NeighborsOptions& options) {
  addNodeArgument(command, "NODE", options.node);
  addLimit(command, "--hops", options.hops, "How far to go");
  addLimit(command, "--max-nodes", options.maxNodes,
           "Stop at so many nodes; what was found until then is shown");
}

}  // namespace

constinit const Command kNeighborsCommand = {
    .name = "neighbors",
    .about = "List the layer-2 links around a node, those among its outermost neighbours too.",
    .examples =
        "  zntopo neighbors core-1\n"
        "  zntopo neighbors core-1 --hops 2 --max-nodes 50 --json",
    .empty = R"({"connections": []})",
    .prepare = prepare<addOptions, neighbors>,
};

}  // namespace zntopo::tools
