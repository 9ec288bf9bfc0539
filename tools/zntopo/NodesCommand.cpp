#include <memory>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/NodeText.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

void nodes(const Context& context, int ipLevel, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  std::set<ObjID> notFound;
  auto list = session.api().getNodesByObjIDList({}, notFound, answer.status, false, false, true,
                                                static_cast<ZNEntity::IPLevel>(ipLevel), -1);
  list->sort([](const ZNRefPtr<ZNNode>& left, const ZNRefPtr<ZNNode>& right) {
    return left->getName() < right->getName();
  });
  TextTable table({"NAME", "ADDRESS", "ROLE", "DESCRIPTION"});
  for (const auto& node : *list) {
    answer.json["nodes"].push_back(nodeJson(*node));
    table.add({node->getName(), managementAddress(*node), nodeRole(*node), node->getDescription()});
  }
  if (answer.status.isOK()) answer.text = table.text() + counted(table.size(), "node") + "\n";
}

}  // namespace

void addNodesCommand(CLI::App& app, Context& context) {
  CLI::App* const command = addCommand(app, context, "nodes", "List all nodes, by name.",
                                       "  zntopo nodes\n"
                                       "  zntopo nodes --ip-level 6 --json");
  const auto ipLevel = std::make_shared<int>(0);
  command->add_option("--ip-level", *ipLevel, "Only nodes of this level")
      ->check(CLI::IsMember({4, 6}));
  command->callback([&context, ipLevel] {
    Answer empty;
    empty.json["nodes"] = Json::array();
    answer(context, empty, [&](Answer& result) { nodes(context, *ipLevel, result); });
  });
}

}  // namespace zntopo::tools
