#include "tools/zntopo/StateChange.h"

#include <algorithm>

#include "tools/network/StoreStatement.h"
#include "tools/zntopo/EventBrokerName.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/platform/tvsnmp/TvSnmp.h"

namespace zntopo::tools {

namespace {

constexpr const char* kSent = "sent";
constexpr const char* kNotSent = "not_sent";
constexpr const char* kNone = "none";

constexpr const char* kNobodyTold =
    "TV_EVENT_BROKER names no broker: nobody else was told (docs/events.md).";

/// One state of one object, and what became of it.
struct WrittenState {
  NamedObject object;
  std::string state;
  Json was;
  Json is;
  /// Null if it could not be found out.
  Json written;
  std::string event;
};

constexpr Field<WrittenState> kOwnFields[] = {
    {.head = "OBJECT", .value = [](const WrittenState& one) -> Json { return one.object.text(); }},
    {.key = "state", .head = "STATE", .value = member<&WrittenState::state>},
    {.key = "was", .head = "WAS", .value = member<&WrittenState::was>},
    {.key = "is", .head = "IS", .value = member<&WrittenState::is>},
    {.key = "written", .head = "WRITTEN", .value = member<&WrittenState::written>},
    {.key = "event", .head = "EVENT", .value = member<&WrittenState::event>},
};

constexpr auto kFields =
    joined(kNamedFields<&WrittenState::object, WrittenState>, std::to_array(kOwnFields));

/// Why an event was not sent: what the send says, else what kept the session from being opened.
std::string reasonOf(const ZNTopoAPIStatus& status) {
  std::string text = status.getAuxMsg();
  while (text.ends_with('\n')) text.pop_back();
  return text.empty() ? TVsnmpErrString(TVsnmpErrno) : text;
}

/// Makes changes one by one, and keeps what became of them.
class Changer {
 public:
  explicit Changer(Session& session) : session_(session) {}

  void make(const StateChange& change);
  /// Waits until the broker has the events, for a bounded time.
  void finish();
  void fill(Answer& answer) const;

 private:
  bool isInStore(const StateChange& change);
  /// False for a session that could not be opened: only the change that tried is told so.
  static bool hasSession();
  /// Keeps what may have been written.
  void keep(const StateChange& change, const char* event);
  /// Tells what became of it.
  void confirm(const StateChange& change, bool isWritten);
  /// @param what has become of the event.
  void fail(ZNTopoStatus status, const std::string& what);

  Session& session_;
  std::vector<WrittenState> written_;
  /// Why the first event that was not sent was not.
  ZNTopoAPIStatus unsent_;
  ZNTopoStatus lastEvent_ = ZN_API_SUCCESS;
};

/// Whether the store has what was to be written. A statement that changes no row is none that
/// fails, nor is one that can't be committed.
bool Changer::isInStore(const StateChange& change) {
  return std::all_of(change.states.begin(), change.states.end(), [&](const NewState& state) {
    const auto rows = selectTexts(session_.connection(),
                                  std::string("select ") + state.kind.column + " from " +
                                      state.kind.table + " where " + change.rows.sql,
                                  1, change.rows.parameters);
    return !rows.empty() && std::all_of(rows.begin(), rows.end(), [&](const TextRow& row) {
      return row.front() == std::to_string(state.number);
    });
  });
}

bool Changer::hasSession() {
  const auto session = TopoNotificationClientFactory::instance()->getTopologySession();
  return !session.isNull() && session->getSessionStatus().isOK();
}

void Changer::keep(const StateChange& change, const char* event) {
  for (const NewState& state : change.states) {
    const bool isLeft = change.isLeft(state);
    written_.push_back({.object = change.object,
                        .state = state.kind.key,
                        .was = state.before ? state.kind.value(*state.before) : Json(),
                        .is = isLeft ? state.kind.value(state.number) : Json(),
                        .written = isLeft ? Json(false) : Json(),
                        .event = isLeft ? kNone : event});
  }
}

void Changer::confirm(const StateChange& change, bool isWritten) {
  auto row = written_.end() - static_cast<std::ptrdiff_t>(change.states.size());
  for (const NewState& state : change.states) {
    if (isWritten) row->is = state.kind.value(state.number);
    row->written = isWritten && !change.isLeft(state);
    ++row;
  }
}

void Changer::fail(ZNTopoStatus status, const std::string& what) {
  if (!unsent_.isOK()) return;
  unsent_ = Failure(status, "The store has the new state, but " + what +
                                ". Who has the object in a cache keeps the old state until it is "
                                "read anew.")
                .status();
}

void Changer::make(const StateChange& change) {
  const bool isLeft = std::all_of(change.states.begin(), change.states.end(),
                                  [&](const NewState& one) { return change.isLeft(one); });
  if (isLeft) return keep(change, kNone);
  TVsnmpErrno = 0;
  const ZNTopoAPIStatus status = change.set();
  const bool isUntold = status.getStatus() == ZN_API_NOTIFCHANNEL_CREATION_ERROR ||
                        status.getStatus() == change.eventFailure;
  if (!status.isOK() && !isUntold) throw Failure(status);
  const char* const event = isUntold || !hasSession() ? kNotSent : hasBroker() ? kSent : kNone;
  lastEvent_ = change.eventFailure;
  keep(change, event);
  const bool isWritten = isInStore(change);
  confirm(change, isWritten);
  if (!isWritten) {
    throw Failure(ZN_API_SQL_EXEC_ERROR,
                  "The store does not have the new state of the " + change.object.text() +
                      ": its row is gone, somebody else has changed it since, or the store could "
                      "not keep the change (the log tells)." +
                      (event == kSent ? " The event was sent all the same." : ""));
  }
  if (isUntold) fail(status.getStatus(), "the event was not sent: " + reasonOf(status));
}

void Changer::finish() {
  // Without a session release() would open one.
  if (TopoNotificationClientFactory::instance()->getTopologySession().isNull()) return;
  TVsnmpErrno = 0;
  ZNTopoAPI::release();
  if (TVsnmpErrno == 0) return;
  for (WrittenState& one : written_) {
    if (one.event == kSent) one.event = kNotSent;
  }
  fail(lastEvent_,
       std::string("the broker has not confirmed its event: ") + TVsnmpErrString(TVsnmpErrno));
}

void Changer::fill(Answer& answer) const {
  Listing<WrittenState> listing(kFields);
  for (const WrittenState& one : written_) listing.add(one);
  listing.fill(answer, "changes", "state");
  if (written_.empty()) answer.text.clear();
  const bool isWritten = std::any_of(written_.begin(), written_.end(),
                                     [](const WrittenState& one) { return one.written == true; });
  if (isWritten && !hasBroker()) answer.note = kNobodyTold;
  if (!answer.status.isOK() || unsent_.isOK()) return;
  answer.status = unsent_;
  answer.exitOnFailure = ExitNoEvents;
}

}  // namespace

void change(Session& session, const std::vector<StateChange>& changes, Answer& answer) {
  Changer changer(session);
  try {
    for (const StateChange& one : changes) changer.make(one);
  } catch (const std::exception& error) {
    answer.status = statusOf(error);
  }
  changer.finish();
  changer.fill(answer);
}

}  // namespace zntopo::tools
