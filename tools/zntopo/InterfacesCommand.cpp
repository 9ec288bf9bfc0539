#include "tools/zntopo/Commands.h"
#include "tools/zntopo/FilterOptions.h"
#include "tools/zntopo/ObjectLists.h"

namespace zntopo::tools {

namespace {

struct InterfacesOptions {
  std::string node;
  FilterOptions filter;
};

void addOptions(CLI::App& command, InterfacesOptions& options) {
  auto* const node = addOptionalNodeArgument(command, "NODE", options.node);
  addFilterOptions(command, options.filter, "interfaces")->excludes(node);
  command.parse_complete_callback([&options] {
    if (options.node.empty() && !options.filter.isGiven()) {
      throw CLI::RequiredError("NODE or --filter NAME");
    }
  });
}

void interfaces(const Context& context, const InterfacesOptions& options, Answer& answer) {
  Session session(context);
  if (options.filter.isGiven()) {
    fillInterfaces(session, runFilter(session, options.filter, E_Interface), answer);
    return;
  }
  const NamedNode named = findNode(session, options.node);
  answer.json["node"] = named.node->getName();
  answer.json["node_id"] = named.id();
  const auto list = interfacesOf(*named.node);
  answer.status = completeness(session, "nwinterface", list.size(),
                               rowCount(session, "nwinterface where NodeObjID = ?", {named.id()}));
  interfaceListing(session, {list.begin(), list.end()}, *named.node)
      .fill(answer, "interfaces", "interface");
}

}  // namespace

constinit const Command kInterfacesCommand = {
    .name = "interfaces",
    .about = "List the interfaces of a node, or those that a filter selects, with their addresses.",
    .examples =
        "  zntopo interfaces core-1\n"
        "  zntopo interfaces 10.20.8.17 --json\n"
        "  zntopo interfaces --filter DownInterfaces",
    .empty = R"({"node": null, "node_id": null, "interfaces": []})",
    .prepare = prepare<addOptions, interfaces>,
};

}  // namespace zntopo::tools
