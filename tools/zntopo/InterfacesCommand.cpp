#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/fields/EntityFields.h"
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
  const auto list = interfacesOf(*named.node);
  std::vector<ZNRefPtr<ZNInterface>> interfaces(list.begin(), list.end());
  sortBy(interfaces, [](const ZNRefPtr<ZNInterface>& one) { return naturalKey(*one); });
  const auto addresses = addressesOf(session, *named.node);
  Listing<InterfaceDetails> listing(interfaceFields());
  for (const auto& interface : interfaces) {
    const auto own = addresses.find(interface->getObjID().toString());
    listing.add({*interface, own == addresses.end() ? std::vector<std::string>() : own->second});
  }
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
