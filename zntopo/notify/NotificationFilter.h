#pragma once

namespace zntopo {

/// Which events a process wants to receive. The state of the topology comes with each but NONE.
enum NotificationFilter : int {
  STATUS_CHANGE_NOTIFICATION = 0,
  ATTR_CHANGE_NOTIFICATION = 1,
  LIFE_CYCLE_NOTIFICATION = 2,
  STATUS_ATTR_CHANGE_NOTIFICATION = 3,
  ATTR_LIFECYCLE_NOTIFICATION = 4,
  LIFECYCLE_STATUS_NOTIFICATION = 5,
  ALL = 6,
  NONE = 7
};

}  // namespace zntopo
