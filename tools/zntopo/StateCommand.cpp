#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/fields/Field.h"

namespace zntopo::tools {

namespace {

using Row = std::remove_cvref_t<decltype(ZNTopologyState().getCompleteTopologyState())>;

template <auto pointer>
Json ofRow(const ZNTopologyState& state) {
  return member<pointer>(state.getCompleteTopologyState());
}

template <auto pointer>
std::string timeOfRow(const ZNTopologyState& state) {
  return timeText(state.getCompleteTopologyState().*pointer);
}

constexpr Field<ZNTopologyState> kStateFields[] = {
    {.key = "state", .value = member<&ZNTopologyState::getStateAsString>},
    {.key = "ready_change_time",
     .value = member<&ZNTopologyState::getLastTopoReadyChangeTime>,
     .text = [](const ZNTopologyState& s) { return timeText(s.getLastTopoReadyChangeTime()); }},
    {.key = "create_time", .value = ofRow<&Row::createTime>, .text = timeOfRow<&Row::createTime>},
    {.key = "topology_ready_time",
     .value = ofRow<&Row::topologyReadyTime>,
     .text = timeOfRow<&Row::topologyReadyTime>},
    {.key = "last_change_time",
     .value = ofRow<&Row::lastChangeTime>,
     .text = timeOfRow<&Row::lastChangeTime>},
    {.key = "prev_disco_end_time",
     .value = ofRow<&Row::prevDiscoEndTime>,
     .text = timeOfRow<&Row::prevDiscoEndTime>},
    {.key = "topology_ready", .value = ofRow<&Row::TopologyReady>},
    {.key = "disco_cycle_complete", .value = ofRow<&Row::DiscoCycleComplete>},
    {.key = "disco_zone_complete", .value = ofRow<&Row::DiscoZoneComplete>},
    {.key = "disco_zone_in_progress", .value = ofRow<&Row::DiscoZoneInProgress>},
    {.key = "mesh_state", .value = ofRow<&Row::MeshState>},
    {.key = "hsrp_state", .value = ofRow<&Row::HSRPState>},
    {.key = "containment_state", .value = ofRow<&Row::ContainmentState>},
    {.key = "related_to_state", .value = ofRow<&Row::RelatedToState>},
};

void state(const Context& context, Answer& answer) {
  Session session(context);
  const ZNTopologyState topology = session.api().getTopologyState(answer.status);
  View view;
  view.add<ZNTopologyState>(kStateFields, topology);
  answer.json.update(view.json());
  answer.text = view.text();
}

}  // namespace

constinit const Command kStateCommand = {
    .name = "state",
    .about = "Show whether the store is ready.",
    .examples =
        "  zntopo state\n"
        "  zntopo state --store campus.db --json",
    .empty = R"({"state": null, "ready_change_time": 0, "create_time": 0, "topology_ready_time": 0,
        "last_change_time": 0, "prev_disco_end_time": 0, "topology_ready": 0,
        "disco_cycle_complete": 0, "disco_zone_complete": 0, "disco_zone_in_progress": 0,
        "mesh_state": 0, "hsrp_state": 0, "containment_state": 0, "related_to_state": 0})",
    .prepare = prepare<state>,
};

}  // namespace zntopo::tools
