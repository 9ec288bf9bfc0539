#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tools/zntopo/Session.h"
#include "zntopo/core/ObjID.h"

/// @file
/// From what a user types to the identifier of an object. Texts go into the store's statements as
/// parameters, so they may hold anything.

namespace zntopo::tools {

/// A condition on rows, with "?" for its parameters. Numbers stand in it as they are: not every
/// engine compares a column of numbers with a text.
struct Condition {
  std::string sql;
  std::vector<std::string> parameters;
};

/// How the objects of a kind are told by what users type.
struct NamedKind {
  /// In messages: "VLAN".
  const char* word;
  /// The rows of the kind, with ObjId, EntityName and ZoneNumber, up to a further condition:
  /// "nwnode where".
  const char* rows;
  /// What else a text may mean beside a name and an identifier, the likeliest first.
  std::vector<Condition> (*otherNames)(const std::string& text) = nullptr;
};

/// The end of a message about what has several meanings, or none: " It may be one of" with a line
/// each, of which there are ten at most.
std::string mayBeOneOf(const std::vector<std::string>& meanings);

/// The number of a text of digits and nothing else; nothing if it is none that the store can hold.
std::optional<int> wholeNumber(const std::string& text);

/// Rows whose name is a text, whose identifier is it, or whose name begins with it.
Condition isNamed(const std::string& text);
Condition isIdentified(const std::string& text);
Condition beginsWith(const std::string& text);

/// The object of a kind that meets a condition; nothing if none does. Throws a Failure
/// ZN_API_NONUNIQUE_NAME that lists the objects if several do.
std::optional<ObjID> oneThat(Session& session, const NamedKind& kind, const std::string& text,
                             const Condition& condition);

/// The object that a text names: the one with this name; else with this identifier; else what
/// the kind's other names say; else the one whose name begins with the text.
///
/// Throws a Failure: ZN_API_OBJ_NOT_EXIST, ZN_API_NONUNIQUE_NAME, ZN_API_DB_NOT_READY for either
/// in a store that is not ready.
ObjID findObject(Session& session, const NamedKind& kind, const std::string& text);

/// Throws a Failure ZN_API_DB_NOT_READY if the store is not ready.
void requireReady(Session& session);

/// Runs a look-up. What it misses in a store that is not ready may come: then a Failure
/// ZN_API_DB_NOT_READY takes the place of ZN_API_OBJ_NOT_EXIST and ZN_API_NONUNIQUE_NAME.
void lookUp(Session& session, const std::function<void()>& look);

}  // namespace zntopo::tools
