#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/EventBrokerName.h"
#include "tools/zntopo/EventRecord.h"
#include "tools/zntopo/Interruption.h"
#include "zntopo/notify/SessionManagementNotification.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/platform/tvsnmp/TvSnmp.h"

namespace zntopo::tools {

namespace {

enum EventKinds : unsigned { Status = 1, Attribute = 2, LifeCycle = 4, Every = 7 };

constexpr NumberName<unsigned> kKinds[] = {
    {"status", Status}, {"attribute", Attribute}, {"life-cycle", LifeCycle}, {"all", Every}};

/// The library's filter of each set of kinds.
constexpr struct {
  unsigned kinds;
  NotificationFilter filter;
} kFilters[] = {{Status, STATUS_CHANGE_NOTIFICATION},
                {Attribute, ATTR_CHANGE_NOTIFICATION},
                {LifeCycle, LIFE_CYCLE_NOTIFICATION},
                {Status | Attribute, STATUS_ATTR_CHANGE_NOTIFICATION},
                {Attribute | LifeCycle, ATTR_LIFECYCLE_NOTIFICATION},
                {LifeCycle | Status, LIFECYCLE_STATUS_NOTIFICATION},
                {Every, ALL}};

struct WatchOptions {
  std::vector<std::string> kinds;

  unsigned wanted() const {
    unsigned result = kinds.empty() ? unsigned{Every} : 0;
    for (const NumberName<unsigned>& one : kKinds) {
      if (std::find(kinds.begin(), kinds.end(), one.name) != kinds.end()) result |= one.number;
    }
    return result;
  }
  NotificationFilter filter() const {
    const auto* const row =
        std::find_if(std::begin(kFilters), std::end(kFilters),
                     [wanted = wanted()](const auto& one) { return one.kinds == wanted; });
    return row->filter;
  }
};

void addOptions(CLI::App& command, WatchOptions& options) {
  std::vector<std::string> names;
  for (const NumberName<unsigned>& one : kKinds) names.emplace_back(one.name);
  command
      .add_option("--filter", options.kinds,
                  "Only events of these kinds, with commas between them. One of " +
                      CLI::detail::join(names, ", ") +
                      ". The state of the topology comes with each")
      ->type_name("KINDS")
      ->delimiter(',')
      ->take_all()
      ->transform(isOneOf(names));
}

void requireBroker() {
  if (hasBroker()) return;
  throw Failure(
      ZN_API_NOTIFCHANNEL_CREATION_ERROR,
      "TV_EVENT_BROKER names no broker, so only events of this process itself would come, "
      "and it sends none. Let it name the one that the others use, as in "
      "TV_EVENT_BROKER=mqtt://broker.example.com (docs/events.md).");
}

void requireOutput(const Context& context) {
  if (context.answers.descriptor() >= 0) return;
  throw Failure(ZN_API_INTERNAL_ERROR, "Standard output is closed: events could not be shown.");
}

ZNRefPtr<TopologyNotificationClient> listen(NotificationFilter filter) {
  auto* const factory = TopoNotificationClientFactory::instance();
  TVsnmpErrno = 0;
  ZNTopoAPIStatus status;
  auto client = factory->createNotificationClient(filter, status);
  if (!status.isOK()) {
    throw Failure(status.getStatus(),
                  std::string("No event can be received: ") + TVsnmpErrString(TVsnmpErrno) + ".");
  }
  check(factory->receiveNotification());
  return client;
}

/// What keeps a session from going on; OK for what is an event.
ZNTopoAPIStatus lossOf(const TopologyNotification& notification) {
  const auto* const end = dynamic_cast<const SessionManagementNotification*>(&notification);
  if (end == nullptr) return {};
  return Failure(end->getStatus().getStatus(),
                 "The channel of events is lost: the broker is gone or ends this session, or more "
                 "events waited to be shown than fit. What happened since is not known: read the "
                 "store anew, and start again.")
      .status();
}

void show(Session& session, TopologyNotificationClient& client, Interruption& interruption,
          bool isJson, Answer& answer) {
  EventObjects objects(session);
  for (;;) {
    const auto notification = client.getNextNotification();
    if (interruption.hasEnded()) return;
    answer.status = lossOf(*notification);
    if (!answer.status.isOK()) {
      answer.exitOnFailure = ExitNoEvents;
      return;
    }
    const EventRecord record = recordOf(*notification, objects);
    if (!interruption.write(isJson ? jsonLine(record) : textLine(record))) return;
  }
}

void watch(const Context& context, const WatchOptions& options, Answer& answer) {
  answer.isStream = true;
  requireOutput(context);
  requireBroker();
  std::atomic<bool> isListening = false;
  // Before the library starts threads, so that the signals come to none of them.
  Interruption interruption(context.answers.descriptor(), [&isListening] {
    // A store or a broker that does not answer holds the work up, and nothing is there to end yet.
    if (!isListening) std::_Exit(ExitAnswer);
    TopologyNotificationClient().sendShutdownNotif(
        new SessionManagementNotification(SHUTDOWN, ZNTopoAPIStatus()));
  });
  Session session(context, Session::Load::NodesAlone);
  const auto client = listen(options.filter());
  isListening = true;
  std::cerr << "zntopo: listening for events" << std::endl;
  show(session, *client, interruption, context.isJson, answer);
  ZNTopoAPI::release();
}

}  // namespace

constinit const Command kWatchCommand = {
    .name = "watch",
    .about =
        "Show events as they come, until interrupted: changes of states, and objects that come and "
        "go.\nTV_EVENT_BROKER names the broker from which they come.",
    .examples =
        "  zntopo watch\n"
        "  zntopo watch --filter status,attribute --json\n"
        "  TV_EVENT_BROKER=mqtt://broker.example.com zntopo watch",
    .prepare = prepare<addOptions, watch>,
};

}  // namespace zntopo::tools
