#pragma once

#include <functional>
#include <vector>

#include "tools/zntopo/NameLookup.h"
#include "tools/zntopo/NamedObject.h"
#include "tools/zntopo/fields/StateKind.h"

/// @file
/// Changes of states: written to the store and told as events by the library's objects.

namespace zntopo::tools {

/// One state with the number that it has now, as lists show it, and the one that it shall have.
struct NewState {
  const StateKind& kind;
  std::optional<int> before;
  int number;
};

/// What one call of an object's setter changes.
struct StateChange {
  NamedObject object;
  std::vector<NewState> states;
  /// The rows that have the states.
  Condition rows;
  /// Writes and tells.
  std::function<ZNTopoAPIStatus()> set;
  /// The library neither writes nor tells a state that is as it shall be.
  bool skipsTheSame = false;
  /// What the library calls an event of it that can't be sent.
  ZNTopoStatus eventFailure = ZN_API_ATTR_NOTIF_GEN_ERROR;

  bool isLeft(const NewState& state) const { return skipsTheSame && state.before == state.number; }
};

/// The answer of a change before its work.
constexpr const char* kNoChanges = R"({"changes": []})";

/// Makes changes, in their order, and answers what was written and what was told. Throws nothing: a
/// failure ends the work and is the status of the answer, with what was done before it. A state
/// that is in the store, but could not be told, is ExitNoEvents.
///
/// The process's session of events is closed afterwards.
void change(Session& session, const std::vector<StateChange>& changes, Answer& answer);

}  // namespace zntopo::tools
