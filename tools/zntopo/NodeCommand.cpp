#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/fields/NodeFields.h"

namespace zntopo::tools {

namespace {

struct NodeOptions {
  std::string node;
};

void addOptions(CLI::App& command, NodeOptions& options) {
  addNodeArgument(command, "NODE", options.node);
}

/// The names of VLANs, which nodes know by identifier alone.
std::vector<std::string> vlanNames(Session& session, const ZNNode& node) {
  std::vector<std::string> names;
  for (const ZNVlanInfo& info : node.getVlanInfoList()) {
    const auto found =
        selectTexts(session.connection(), "select EntityName from nwentity where ObjId = ?",
                    info.getVlanObjID().toString());
    names.insert(names.end(), found.begin(), found.end());
  }
  return names;
}

void node(const Context& context, const NodeOptions& options, Answer& answer) {
  Session session(context);
  const NamedNode named = findNode(session, options.node);
  const auto interfaces = named.node->getInterfacesList();
  const NodeDetails details{*named.node, interfaces ? interfaces->size() : 0,
                            vlanNames(session, *named.node)};
  View view;
  view.add(nodeFields(), *named.node);
  view.add(nodeDetailFields(), details);
  answer.json["node"] = view.json();
  answer.text = view.text();
}

}  // namespace

constinit const Command kNodeCommand = {
    .name = "node",
    .about = "Show one node.",
    .examples =
        "  zntopo node core-1\n"
        "  zntopo node 10.20.8.17\n"
        "  zntopo node \"harbor master pc\" --json",
    .empty = R"({"node": null})",
    .prepare = prepare<addOptions, node>,
};

}  // namespace zntopo::tools
