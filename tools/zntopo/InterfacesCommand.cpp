#include <memory>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

std::vector<std::string> addressTexts(const ZNInterface& interface) {
  std::vector<std::string> result;
  for (const auto type : {ZNAddress::IPv4, ZNAddress::IPv6}) {
    const auto addresses = interface.getAddressesByType(type);
    if (!addresses) continue;
    for (const auto& address : *addresses) result.push_back(address->getAddressAsString());
  }
  return result;
}

Json interfaceJson(const ZNInterface& interface, const std::vector<std::string>& addresses) {
  Json json;
  json["name"] = interfaceLabel(interface);
  json["id"] = interface.getObjID().toString();
  json["if_name"] = interface.getIfName();
  json["alias"] = interface.getIfAlias();
  json["description"] = interface.getDescription();
  json["physical_address"] = interface.getPhysAddr();
  json["index"] = interface.getIfIndex();
  json["speed"] = interface.getIfSpeed();
  json["card"] = interface.getCardLoc();
  json["port"] = interface.getPortNum();
  json["connected"] = interface.isConnectedByL2Link();
  json["addresses"] = addresses;
  return json;
}

void interfaces(const Context& context, const std::string& name, Answer& answer) {
  Session session(context);
  const NamedNode named = findNode(session, name);
  answer.json["node"] = named.node->getName();
  answer.json["node_id"] = named.id();
  auto list = named.node->getInterfacesList();
  if (!list) throw Failure(ZN_API_SQL_EXEC_ERROR, "The interfaces can't be read.");
  list->sort([](const ZNRefPtr<ZNInterface>& left, const ZNRefPtr<ZNInterface>& right) {
    return left->getName() < right->getName();
  });
  TextTable table({"INTERFACE", "LINKED", "PHYSICAL ADDRESS", "ADDRESSES", "DESCRIPTION"});
  for (const auto& interface : *list) {
    const std::vector<std::string> addresses = addressTexts(*interface);
    answer.json["interfaces"].push_back(interfaceJson(*interface, addresses));
    std::string joined;
    for (const std::string& address : addresses) joined += (joined.empty() ? "" : " ") + address;
    table.add({interfaceLabel(*interface), interface->isConnectedByL2Link() ? "yes" : "",
               interface->getPhysAddr(), joined, interface->getDescription()});
  }
  answer.text = table.text() + counted(table.size(), "interface") + "\n";
}

}  // namespace

void addInterfacesCommand(CLI::App& app, Context& context) {
  CLI::App* const command =
      addCommand(app, context, "interfaces", "List the interfaces of a node with their addresses.",
                 "  zntopo interfaces core-1\n"
                 "  zntopo interfaces 10.20.8.17 --json");
  const auto name = std::make_shared<std::string>();
  addNodeArgument(*command, "NODE", *name);
  command->callback([&context, name] {
    Answer empty;
    empty.json["interfaces"] = Json::array();
    answer(context, empty, [&](Answer& result) { interfaces(context, *name, result); });
  });
}

}  // namespace zntopo::tools
