#include <algorithm>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Spelling.h"
#include "tools/zntopo/StateChange.h"
#include "tools/zntopo/fields/InterfaceFields.h"

namespace zntopo::tools {

namespace {

struct SetInterfaceOptions {
  std::string node;
  std::string interface;
  std::optional<int> admin;
  std::optional<int> oper;
};

void addOptions(CLI::App& command, SetInterfaceOptions& options) {
  addNodeArgument(command, "NODE", options.node);
  addNameArgument(command, "INTERFACE", options.interface, "interface",
                  "A name as \"zntopo interfaces NODE\" shows it, or an identifier")
      ->required();
  requireOneOf(command, {addNamedOption(command, "--admin", options.admin, kAdminNames, "STATE",
                                        "The state that the interface is told to have"),
                         addNamedOption(command, "--oper", options.oper, kOperNames, "STATE",
                                        "The state that the interface has")});
}

using Interfaces = std::vector<ZNRefPtr<ZNInterface>>;

/// What an interface may be called, the likeliest first.
constexpr std::string (*kNames[])(const ZNInterface&) = {
    interfaceLabel,
    [](const ZNInterface& one) { return one.getIfName(); },
    [](const ZNInterface& one) { return one.getObjID().toString(); },
};

std::string unknownInterface(const NamedNode& node, const Interfaces& all,
                             const std::string& text) {
  std::vector<std::string> names;
  for (const auto& one : all) names.push_back(interfaceLabel(*one));
  const std::string near = nearest(text, names);
  const std::string name = node.node->getName();
  return "There is no interface [" + text + "] on the node [" + name + "]." +
         (near.empty()
              ? " \"zntopo interfaces " + shellWord(name) + "\" lists those that are there."
              : " Did you mean \"" + near + "\"?");
}

ZNRefPtr<ZNInterface> findInterface(const NamedNode& node, const std::string& text) {
  const auto list = interfacesOf(*node.node);
  const Interfaces all(list.begin(), list.end());
  for (const auto& nameOf : kNames) {
    Interfaces found;
    std::copy_if(all.begin(), all.end(), std::back_inserter(found),
                 [&](const ZNRefPtr<ZNInterface>& one) { return nameOf(*one) == text; });
    if (found.size() == 1) return found.front();
    if (found.empty()) continue;
    std::vector<std::string> meanings;
    for (const auto& one : found) {
      meanings.push_back(one->getObjID().toString() + "  " + interfaceLabel(*one));
    }
    throw Failure(ZN_API_NONUNIQUE_NAME,
                  "Interface [" + text + "] is not unique." + mayBeOneOf(meanings));
  }
  throw Failure(ZN_API_OBJ_NOT_EXIST, unknownInterface(node, all, text));
}

void setInterface(const Context& context, const SetInterfaceOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  requireReady(session);
  const auto interface = findInterface(findNode(session, options.node), options.interface);
  const NamedObject object = namedInterface(session, interface->getObjID());
  const Condition row = isIdentified(object.id);
  std::vector<StateChange> changes;
  if (options.admin) {
    const auto state = static_cast<IfAdminStatus>(*options.admin);
    changes.push_back(
        {.object = object,
         .states = {{kAdminStatus, interface->getIfAdminStatus(), state}},
         .rows = row,
         .set = [interface, state] { return interface->setIfAdminStatus(state, true); }});
  }
  if (options.oper) {
    const auto state = static_cast<IfOperStatus>(*options.oper);
    changes.push_back(
        {.object = object,
         .states = {{kOperStatus, interface->getIfOperStatus(), state}},
         .rows = row,
         .set = [interface, state] { return interface->setIfOperStatus(state, true); }});
  }
  change(session, changes, answer);
}

}  // namespace

constinit const Command kSetInterfaceCommand = {
    .name = "set interface",
    .about = "Change the state that an interface is told to have, or the one that it has.",
    .examples =
        "  zntopo set interface access-1 Gi1/0/7 --oper down\n"
        "  zntopo set interface access-1 Gi1/0/7 --admin down --oper down --json",
    .empty = kNoChanges,
    .prepare = prepare<addOptions, setInterface>,
};

}  // namespace zntopo::tools
