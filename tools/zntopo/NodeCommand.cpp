#include <memory>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/NodeText.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

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

std::string joined(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += (result.empty() ? "" : ", ") + text;
  return result.empty() ? "-" : result;
}

void node(const Context& context, const std::string& name, Answer& answer) {
  Session session(context);
  const NamedNode named = findNode(session, name);
  const ZNNode& found = *named.node;
  const auto interfaces = found.getInterfacesList();
  const std::size_t count = interfaces ? interfaces->size() : 0;
  const auto capabilities = found.getCapabilities();
  const std::vector<std::string> vlans = vlanNames(session, found);

  Json json = nodeJson(found);
  json["capabilities"] = capabilities;
  json["sys_oid"] = found.getEntityOid();
  json["contact"] = found.getSysContact();
  json["location"] = found.getSysLocation();
  json["interfaces"] = count;
  json["links"] = found.getConnDataList().size();
  json["vlans"] = vlans;
  answer.json["node"] = json;

  TextTable table({"NAME", found.getName()});
  table.add({"id", named.id()});
  table.add({"description", found.getDescription()});
  table.add({"address", managementAddress(found)});
  table.add({"IP level", std::to_string(found.getIPLevelAsShort())});
  table.add({"capabilities", joined({capabilities.begin(), capabilities.end()})});
  table.add({"interfaces", std::to_string(count)});
  table.add({"links", std::to_string(found.getConnDataList().size())});
  table.add({"VLANs", joined(vlans)});
  if (!found.getZoneNumber().empty()) table.add({"zone", found.getZoneNumber()});
  answer.text = table.text();
}

}  // namespace

void addNodeCommand(CLI::App& app, Context& context) {
  CLI::App* const command = addCommand(app, context, "node", "Show one node.",
                                       "  zntopo node core-1\n"
                                       "  zntopo node 10.20.8.17\n"
                                       "  zntopo node \"harbor master pc\" --json");
  const auto name = std::make_shared<std::string>();
  addNodeArgument(*command, "NODE", *name);
  command->callback([&context, name] {
    Answer empty;
    empty.json["node"] = nullptr;
    answer(context, empty, [&](Answer& result) { node(context, *name, result); });
  });
}

}  // namespace zntopo::tools
