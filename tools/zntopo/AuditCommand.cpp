#include <map>

#include "tools/network/FieldWords.h"
#include "tools/network/StoreStatement.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/IsoTime.h"
#include "tools/zntopo/NaturalOrder.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/fields/Field.h"

namespace zntopo::tools {

namespace {

using Action = ZNAuditAction;
using Trail = ZNAuditTrail;

struct AuditOptions {
  std::string from;
  std::string to;
  std::optional<int> type;
  std::optional<int> object;
};

/// One action, with what it was done to.
struct Entry {
  Action action;
  Trail::ObjectType kind;
  std::string id;
  std::string name;
};

Json detail(const Entry& entry) {
  if (entry.action.getDetail() == Action::NotApplicable) return nullptr;
  return nameOrNumber(names::kAuditDetail, entry.action.getDetail());
}

constexpr Field<Entry> kEntryFields[] = {
    {.key = "time",
     .head = "TIME",
     .value = [](const Entry& entry) { return Json(timeText(entry.action.getActionTimeUTC())); }},
    {.key = "time_utc",
     .value = [](const Entry& entry) { return Json(entry.action.getActionTimeUTC()); }},
    {.key = "type",
     .head = "TYPE",
     .value =
         [](const Entry& entry) {
           return nameOrNumber(names::kAuditAction, entry.action.getType());
         }},
    {.key = "object",
     .head = "OBJECT",
     .value = [](const Entry& entry) { return nameOrNumber(names::kObjectType, entry.kind); }},
    {.key = "name", .head = "NAME", .value = knownMember<&Entry::name>},
    {.key = "id", .head = "ID", .value = member<&Entry::id>},
    {.key = "detail", .head = "DETAIL", .value = detail, .isRare = true},
    {.key = "info",
     .head = "INFO",
     .value = [](const Entry& entry) { return known(entry.action.getInfo()); },
     .isRare = true},
};

/// A time that the library takes for one: it takes 0 and what is before for none.
CLI::Validator isTime(DayEnd dayEnd) {
  return CLI::Validator(
      [dayEnd](const std::string& text) -> std::string {
        const std::optional<long> time = isoTime(text, dayEnd);
        if (!time) return "\"" + text + "\" is no time: write 2026-11-21 or 2026-11-21T11:23:24Z";
        return *time > 0 ? "" : "\"" + text + "\" is before all times";
      },
      "");
}

void addOptions(CLI::App& command, AuditOptions& options) {
  command
      .add_option("--from", options.from,
                  "Only what was done at this time or later: 2026-11-21, 2026-11-21T11:23:24Z or "
                  "with a distance as +01:00; UTC without one")
      ->type_name("TIME")
      ->check(isTime(DayEnd::First));
  command
      .add_option("--to", options.to, "Only what was done at this time or before; a day to its end")
      ->type_name("TIME")
      ->check(isTime(DayEnd::Last));
  addNamedOption(command, "--type", options.type, names::kAuditAction, "TYPE",
                 "Only what is of this type");
  addNamedOption(command, "--object", options.object, names::kObjectType, "OBJECT",
                 "Only what was done to objects of this kind");
}

/// The names of objects by identifier, of those in the trail that are still there. An interface
/// has its node's name in front.
std::map<std::string, std::string> namesOf(Session& session) {
  const std::string in = " in (select ObjID from nwtopoaudittrail)";
  std::map<std::string, std::string> names;
  for (const std::string& sql :
       {"select ObjId, EntityName from nwentity where ObjId" + in,
        "select i.ObjId, n.EntityName || ' ' || i.EntityName from nwinterface i join nwnode n on "
        "n.ObjId = i.NodeObjID where i.ObjId" +
            in,
        "select AddressId, V4Address from address where AddressType = 1 and AddressId" + in,
        "select AddressId, V6Address from address where AddressType = 2 and AddressId" + in,
        "select AddressId, DNSName from address where AddressType = 16 and AddressId" + in}) {
    for (const TextRow& row : selectTexts(session.connection(), sql, 2, {})) {
      names[row[0]] = row[1];
    }
  }
  return names;
}

void audit(const Context& context, const AuditOptions& options, Answer& answer) {
  const long from = isoTime(options.from).value_or(0);
  const long to = isoTime(options.to, DayEnd::Last).value_or(0);
  if (to != 0 && from > to) {
    throw Failure(ZN_API_ILLEGAL_INPUT, "--from " + options.from + " is behind --to " + options.to);
  }
  Session session(context, Session::Load::NodesAlone);
  ZNTopoAPIStatus status;
  const auto trails = session.api().getAuditTrail(
      from, to, static_cast<Action::Type>(options.type.value_or(Action::TypeDontCare)),
      static_cast<Trail::ObjectType>(options.object.value_or(Trail::ObjectTypeDontCare)), status);
  check(status);
  const std::map<std::string, std::string> names = namesOf(session);
  std::vector<Entry> entries;
  for (const auto& trail : *trails) {
    const std::string id = trail->getObjID().toString();
    const auto name = names.find(id);
    const auto actions = trail->getActionList();
    for (const Action& action : *actions) {
      entries.push_back({action, trail->getObjType(), id, name == names.end() ? "" : name->second});
    }
  }
  // The store gives no order.
  sortBy(entries, [](const Entry& entry) {
    return std::tuple(entry.action.getActionTimeUTC(), Natural{entry.name}, entry.id);
  });
  Listing<Entry> listing(kEntryFields);
  for (const Entry& entry : entries) listing.add(entry);
  listing.fill(answer, "actions", "action");
}

}  // namespace

constinit const Command kAuditCommand = {
    .name = "audit",
    .about = "List what discovery did to its objects, by time.",
    .examples =
        "  zntopo audit\n"
        "  zntopo audit --from 2026-11-21 --to 2026-11-21T12:00+01:00\n"
        "  zntopo audit --type object-deletion --object interface --json",
    .empty = R"({"actions": []})",
    .prepare = prepare<addOptions, audit>,
};

}  // namespace zntopo::tools
