#include "tools/zntopo/NameLookup.h"

#include <cctype>
#include <charconv>
#include <tuple>

#include "tools/network/PlainText.h"
#include "tools/network/StoreStatement.h"
#include "tools/zntopo/NaturalOrder.h"

namespace zntopo::tools {

namespace {

/// The columns of a row that a text may mean.
enum RowColumn : std::size_t { RowId, RowName, RowZone, ROW_COLUMN_COUNT };

/// The pattern of "like" for texts that begin with a text; "!" escapes its wildcards.
std::string beginningPattern(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '!' || c == '%' || c == '_') result += '!';
    result += c;
  }
  return result + "%";
}

/// The objects that a text may mean; those of one name differ in their zone.
std::vector<std::string> candidates(std::vector<TextRow> rows) {
  sortBy(rows, [](const TextRow& row) {
    return std::tuple(Natural{row[RowName]}, Natural{row[RowZone]}, row[RowId]);
  });
  std::vector<std::string> list;
  for (const TextRow& row : rows) {
    const std::string& zone = row[RowZone];
    list.push_back(row[RowId] + "  " + printable(row[RowName]) +
                   (zone.empty() ? "" : "  (zone " + printable(zone) + ")"));
  }
  return list;
}

ObjID findReadyObject(Session& session, const NamedKind& kind, const std::string& text) {
  std::vector<Condition> conditions = {isNamed(text), isIdentified(text)};
  if (kind.otherNames) {
    for (Condition& other : kind.otherNames(text)) conditions.push_back(std::move(other));
  }
  conditions.push_back(beginsWith(text));
  for (const Condition& condition : conditions) {
    if (const auto id = oneThat(session, kind, text, condition)) return *id;
  }
  throw Failure(ZN_API_OBJ_NOT_EXIST, std::string("There is no ") + kind.word + " [" + text + "].");
}

}  // namespace

std::string mayBeOneOf(const std::vector<std::string>& meanings) {
  constexpr std::size_t most = 10;
  std::string text = " It may be one of";
  for (std::size_t i = 0; i < meanings.size() && i < most; ++i) text += "\n  " + meanings[i];
  return text + (meanings.size() > most ? "\n  ..." : "");
}

std::optional<int> wholeNumber(const std::string& text) {
  int number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = fault == std::errc() && end == text.data() + text.size() && number >= 0;
  return isWhole ? std::optional(number) : std::nullopt;
}

Condition isNamed(const std::string& text) { return {"EntityName = ?", {text}}; }

Condition isIdentified(const std::string& text) {
  const ObjID id(text);
  return {"ObjId = ?", {id.getIDType() == ObjID::E_MsUuid ? id.toString() : text}};
}

Condition beginsWith(const std::string& text) {
  return {"EntityName like ? escape '!'", {beginningPattern(text)}};
}

std::optional<ObjID> oneThat(Session& session, const NamedKind& kind, const std::string& text,
                             const Condition& condition) {
  const auto rows = selectTexts(
      session.connection(),
      std::string("select ObjId, EntityName, ZoneNumber from ") + kind.rows + " " + condition.sql,
      ROW_COLUMN_COUNT, condition.parameters);
  if (rows.empty()) return std::nullopt;
  if (rows.size() == 1) return ObjID(rows.front()[RowId]);
  std::string word = kind.word;
  word.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
  throw Failure(ZN_API_NONUNIQUE_NAME,
                word + " [" + text + "] is not unique." + mayBeOneOf(candidates(rows)));
}

ObjID findObject(Session& session, const NamedKind& kind, const std::string& text) {
  ObjID id;
  lookUp(session, [&] { id = findReadyObject(session, kind, text); });
  return id;
}

void requireReady(Session& session) {
  ZNTopoAPIStatus status;
  const ZNTopologyState state = session.api().getTopologyState(status);
  check(status);
  if (state.getTopoState() == ZNTopologyState::READY) return;
  throw Failure(ZN_API_DB_NOT_READY,
                "Topology DB is not ready: it is empty until something is imported, or discovery "
                "is at work (\"zntopo state\").");
}

void lookUp(Session& session, const std::function<void()>& look) {
  try {
    look();
  } catch (const Failure& failure) {
    const ZNTopoStatus code = failure.status().getStatus();
    if (code == ZN_API_OBJ_NOT_EXIST || code == ZN_API_NONUNIQUE_NAME) requireReady(session);
    throw;
  }
}

}  // namespace zntopo::tools
