#pragma once

#include <functional>
#include <optional>

#include "zntopo/model/TopologyGateway.h"

namespace zntopo::detail {

/// In what the state setters differ.
struct WriteThroughKind {
  /// Fails with ZN_API_DB_NOT_READY while the topology is not ready.
  bool asksForReadiness;
  /// The caller gets the status of the send; else a failed send goes unnoticed.
  bool returnsSendStatus;
};

/// The steps of one change. mark may be left out.
struct WriteThroughSteps {
  /// Changes the object; a status ends the call there.
  std::function<std::optional<ZNTopoAPIStatus>()> change;
  /// Runs instead of the rest when the store is not to be written.
  std::function<void()> mark;
  std::function<ZNTopoAPIStatus(TopologyGateway&)> write;
  std::function<ZNTopoAPIStatus(TopologyGateway&)> notify;
};

/// Changes an object's state, and with updateDB writes the store and tells the world. The caller
/// holds the object's mutex. What was changed stays changed after a failure.
ZNTopoAPIStatus writeThrough(const WriteThroughKind& kind, TopoDBType dbType, bool updateDB,
                             const WriteThroughSteps& steps);

}  // namespace zntopo::detail
