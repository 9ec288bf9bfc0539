#pragma once

namespace zntopo {

/// The state that an interface is told to have, as the column IfAdminState of nwinterface holds
/// it.
enum IfAdminStatus : int { Up = 1, Down = 2, Testing = 3 };

/// The state that an interface has, as the column IfOperStatus of nwinterface holds it.
enum IfOperStatus : int {
  up = 1,
  down = 2,
  testing = 3,
  unknown = 4,
  dormant = 5,
  notPresent = 6,
  lowerLayerDown = 7
};

}  // namespace zntopo
