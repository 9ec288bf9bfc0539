#include "zntopo/model/detail/WriteThrough.h"

namespace zntopo::detail {

ZNTopoAPIStatus writeThrough(const WriteThroughKind& kind, TopoDBType dbType, bool updateDB,
                             const WriteThroughSteps& steps) {
  TopologyGateway& gateway = topologyGateway();
  if (kind.asksForReadiness && gateway.getTopoMode(dbType) != 0) {
    return ZNTopoAPIStatus(ZN_API_DB_NOT_READY, "");
  }
  if (std::optional<ZNTopoAPIStatus> end = steps.change()) return *end;
  if (!updateDB) {
    if (steps.mark) steps.mark();
    return ZNTopoAPIStatus();
  }
  ZNTopoAPIStatus status = steps.write(gateway);
  if (!status.isOK()) return status;
  status = gateway.ensureNotificationClient();
  if (!status.isOK()) return status;
  const ZNTopoAPIStatus sent = steps.notify(gateway);
  return kind.returnsSendStatus ? sent : status;
}

}  // namespace zntopo::detail
