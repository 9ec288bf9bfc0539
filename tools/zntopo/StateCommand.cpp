#include <ctime>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

std::string timeText(long seconds) {
  if (seconds == 0) return "-";
  const std::time_t time = seconds;
  std::tm parts{};
  char text[40] = "";
  if (!gmtime_r(&time, &parts) ||
      std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts) == 0) {
    return std::to_string(seconds);
  }
  return text;
}

void state(const Context& context, Answer& answer) {
  Session session(context);
  const ZNTopologyState topology = session.api().getTopologyState(answer.status);
  const auto& row = topology.getCompleteTopologyState();
  answer.json["state"] = topology.getStateAsString();
  answer.json["ready_change_time"] = topology.getLastTopoReadyChangeTime();
  const std::pair<const char*, long> times[] = {{"create_time", row.createTime},
                                                {"topology_ready_time", row.topologyReadyTime},
                                                {"last_change_time", row.lastChangeTime},
                                                {"prev_disco_end_time", row.prevDiscoEndTime}};
  const std::pair<const char*, int> numbers[] = {
      {"topology_ready", row.TopologyReady},
      {"disco_cycle_complete", row.DiscoCycleComplete},
      {"disco_zone_complete", row.DiscoZoneComplete},
      {"disco_zone_in_progress", row.DiscoZoneInProgress},
      {"mesh_state", row.MeshState},
      {"hsrp_state", row.HSRPState},
      {"containment_state", row.ContainmentState},
      {"related_to_state", row.RelatedToState}};
  TextTable table({"STATE", topology.getStateAsString()});
  for (const auto& [name, value] : times) {
    answer.json[name] = value;
    table.add({name, timeText(value)});
  }
  for (const auto& [name, value] : numbers) {
    answer.json[name] = value;
    table.add({name, std::to_string(value)});
  }
  answer.text = table.text();
}

}  // namespace

void addStateCommand(CLI::App& app, Context& context) {
  CLI::App* const command = addCommand(app, context, "state", "Show whether the store is ready.",
                                       "  zntopo state\n"
                                       "  zntopo state --store campus.db --json");
  command->callback(
      [&context] { answer(context, {}, [&context](Answer& result) { state(context, result); }); });
}

}  // namespace zntopo::tools
