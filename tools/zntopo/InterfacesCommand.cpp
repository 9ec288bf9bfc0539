#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/fields/InterfaceFields.h"

namespace zntopo::tools {

namespace {

struct InterfacesOptions {
  std::string node;
};

void addOptions(CLI::App& command, InterfacesOptions& options) {
  addNodeArgument(command, "NODE", options.node);
}

void interfaces(const Context& context, const InterfacesOptions& options, Answer& answer) {
  Session session(context);
  const NamedNode named = findNode(session, options.node);
  answer.json["node"] = named.node->getName();
  answer.json["node_id"] = named.id();
  auto list = named.node->getInterfacesList();
  if (!list) throw Failure(ZN_API_SQL_EXEC_ERROR, "The interfaces can't be read.");
  list->sort([](const ZNRefPtr<ZNInterface>& left, const ZNRefPtr<ZNInterface>& right) {
    return left->getName() < right->getName();
  });
  Listing<ZNInterface> listing(interfaceFields());
  for (const auto& interface : *list) listing.add(*interface);
  listing.fill(answer, "interfaces", "interface");
}

}  // namespace

constinit const Command kInterfacesCommand = {
    .name = "interfaces",
    .about = "List the interfaces of a node with their addresses.",
    .examples =
        "  zntopo interfaces core-1\n"
        "  zntopo interfaces 10.20.8.17 --json",
    .empty = R"({"node": null, "node_id": null, "interfaces": []})",
    .prepare = prepare<addOptions, interfaces>,
};

}  // namespace zntopo::tools
