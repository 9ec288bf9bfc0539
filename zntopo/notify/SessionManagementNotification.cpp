#include "zntopo/notify/SessionManagementNotification.h"

namespace zntopo {

ZNTopoAPIStatus SessionManagementNotification::createAndSendNotification() {
  return ZNTopoAPIStatus();
}

}  // namespace zntopo
