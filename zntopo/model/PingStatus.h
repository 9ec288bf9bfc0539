#pragma once

#include <string>

#include "zntopo/core/AtomicField.h"
#include "zntopo/model/ObjectStatus.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The status of a monitored address with its two times, in seconds UTC. Each of its fields may
/// be read while another thread assigns to it.
class ZNTOPO_EXPORT PingStatus {
 public:
  PingStatus() = default;
  explicit PingStatus(short st) : _stat(static_cast<int>(st)) {}
  explicit PingStatus(const ObjectStatus& stat) : _stat(stat) {}
  PingStatus(const ObjectStatus& stat, long pTime, long statTime)
      : _stat(stat), _lastPingTime(pTime), _lastStatusUpdateTime(statTime) {}

  std::string toString() const;

  const ObjectStatus& getStatus() const { return _stat; }
  long getLastPingTime() const { return _lastPingTime; }
  long getLastStatusUpdateTime() const { return _lastStatusUpdateTime; }

 private:
  ObjectStatus _stat;
  AtomicField<long> _lastPingTime;
  AtomicField<long> _lastStatusUpdateTime;
};

}  // namespace zntopo
