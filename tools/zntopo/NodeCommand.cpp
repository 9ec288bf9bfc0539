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

void node(const Context& context, const NodeOptions& options, Answer& answer) {
  Session session(context);
  const NamedNode named = findNode(session, options.node);
  const NodeDetails details{*named.node, interfacesOf(*named.node).size(),
                            vlanNamesOf(session, *named.node)};
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
