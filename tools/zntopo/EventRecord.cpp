#include "tools/zntopo/EventRecord.h"

#include <ctime>

#include "tools/network/PlainText.h"
#include "tools/zntopo/fields/StateKind.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/TopologyLifeCycleNotification.h"
#include "zntopo/notify/TopologyStateNotification.h"
#include "zntopo/notify/TopologyStatusNotification.h"

namespace zntopo::tools {

namespace {

constexpr NumberName<int> kTopologyStates[] = {{"failed", TOPOLOGY_FAILED},
                                               {"ready", TOPOLOGY_READY},
                                               {"read_only", TOPOLOGY_READ_ONLY},
                                               {"discovery_started", TOPOLOGY_DISCO_START}};
constexpr NumberName<int> kDiscoveries[] = {{"full", Full_Discovery},
                                            {"incremental", Incremental_Discovery}};
constexpr StateKind kTopologyState = {"state", "", "", kTopologyStates};

/// The keys of the statuses of an object.
constexpr NumberName<int> kStatusTypes[] = {{kNodeV6Status.key, ZNEntity::IPv6Overall},
                                            {"ipv6_link_local_status", ZNEntity::IPv6LinkLocal},
                                            {"ipv6_site_status", ZNEntity::IPv6SiteLocal},
                                            {"ipv6_global_status", ZNEntity::IPv6Global},
                                            {kNodeStatus.key, ZNEntity::IPv4Overall},
                                            {kNodeStatus.key, ZNEntity::Overall}};

Json statusText(const ObjectStatus* status) {
  return status == nullptr ? Json() : kNodeStatus.value(status->getStatusAsInt());
}

void tell(const TopologyStatusNotification& event, EventObjects& objects, EventRecord& record) {
  record.kind = "status";
  record.object = objects.object(event.getSrcEntityType(), event.getSrcID());
  const Json type = nameOrNull(kStatusTypes, static_cast<int>(event.getv6StatusType()));
  record.state = type.is_null() ? kNodeStatus.key : type.get<std::string>();
  record.was = statusText(event.getPrevStatus());
  record.is = statusText(event.getStatus());
}

void tell(const TopologyAttrChangeNotification& event, EventObjects& objects, EventRecord& record) {
  record.kind = "attribute";
  const StateKind* const kind = stateOfAttribute(event.getAttrType());
  if (kind == &kAssociationState) {
    record.object = objects.association(event.getSrcID(), event.getIfcRightObjID(),
                                        event.getIfcAssociationType());
  } else if (event.getSrcEntityType() == E_HSRP) {
    record.object = objects.hsrpMember(event.getSrcID(), event.getAddrId());
  } else {
    record.object = objects.object(event.getSrcEntityType(), event.getSrcID());
  }
  record.state = kind == nullptr ? "" : kind->key;
  record.is = kind == nullptr ? Json(event.getAttrValInt()) : kind->value(event.getAttrValInt());
}

void tell(const TopologyLifeCycleNotification& event, EventObjects& objects, EventRecord& record) {
  record.kind = "life-cycle";
  // The object may have come or gone, and its name with it.
  objects.forget();
  record.object = objects.object(event.getSrcEntityType(), event.getSrcID());
  record.zone = event.getZoneID();
}

void tell(const TopologyStateNotification& event, EventObjects& objects, EventRecord& record) {
  record.kind = "state";
  objects.forget();
  record.object = {.type = "topology", .id = event.getSrcID().toString(), .name = ""};
  record.state = kTopologyState.key;
  record.is = kTopologyState.value(event.getTopologyState());
  record.discoStartTime = event.getDiscoStartTime();
  record.discoEndTime = event.getDiscoEndTime();
  record.prevDiscoEndTime = event.getPrevDiscoEndTime();
  record.discovery = nameOrNull(kDiscoveries, static_cast<int>(event.getDiscoFlag()));
}

/// Tells of an event if it is of a class; false if not. Its type does not say what it is: a
/// received life cycle event passes for a change of an attribute.
template <typename Event>
bool tellIf(const TopologyNotification& event, EventObjects& objects, EventRecord& record) {
  const auto* const known = dynamic_cast<const Event*>(&event);
  if (known) tell(*known, objects, record);
  return known != nullptr;
}

std::string receipt(const EventRecord& record) { return timeText(record.time); }

constexpr Field<EventRecord> kHeadFields[] = {
    {.key = "time", .value = [](const EventRecord& one) -> Json { return receipt(one); }},
    {.key = "event", .value = member<&EventRecord::kind>},
};
constexpr Field<EventRecord> kTailFields[] = {
    {.key = "state", .value = knownMember<&EventRecord::state>},
    {.key = "was", .value = member<&EventRecord::was>},
    {.key = "is", .value = member<&EventRecord::is>},
    {.key = "zone", .value = member<&EventRecord::zone>},
    {.key = "discovery", .value = member<&EventRecord::discovery>},
    {.key = "discovery_start_time", .value = member<&EventRecord::discoStartTime>},
    {.key = "discovery_end_time", .value = member<&EventRecord::discoEndTime>},
    {.key = "prev_discovery_end_time", .value = member<&EventRecord::prevDiscoEndTime>},
};
constexpr auto kFields =
    joined(std::to_array(kHeadFields), kNamedFields<&EventRecord::object, EventRecord>,
           std::to_array(kTailFields));

/// What has happened to the object.
std::string changeText(const EventRecord& record) {
  if (record.state.empty() && record.is.is_null()) {
    return "came or went (zone " + valueText(record.zone) + ")";
  }
  return record.state + (record.was.is_null() ? "" : " " + valueText(record.was) + " ->") + " " +
         valueText(record.is);
}

std::string padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

}  // namespace

EventRecord recordOf(const TopologyNotification& event, EventObjects& objects) {
  EventRecord record;
  record.time = static_cast<long>(std::time(nullptr));
  const bool isTold = tellIf<TopologyStatusNotification>(event, objects, record) ||
                      tellIf<TopologyAttrChangeNotification>(event, objects, record) ||
                      tellIf<TopologyLifeCycleNotification>(event, objects, record) ||
                      tellIf<TopologyStateNotification>(event, objects, record);
  if (!isTold) record.kind = "unknown";
  return record;
}

std::string textLine(const EventRecord& record) {
  constexpr std::size_t kindWidth = 10;
  return printable(receipt(record) + "  " + padded(record.kind, kindWidth) + "  " +
                   record.object.text() + "  " + changeText(record)) +
         "\n";
}

std::string jsonLine(const EventRecord& record) {
  return jsonLine(fieldsJson<EventRecord>(kFields, record));
}

}  // namespace zntopo::tools
