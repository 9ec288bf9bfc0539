#pragma once

#include <string>

#include "zntopo/core/AtomicField.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The status of a topology object. Store, events and this class share one numbering; the legacy
/// platform has another, which can only be read.
///
/// A status may be read while another thread assigns to it.
class ZNTOPO_EXPORT ObjectStatus {
 public:
  enum Status : int {
    NoStatus = 0,
    Normal = 1,
    Unknown = 2,
    Warning = 3,
    Marginal = 4,
    Major = 5,
    Critical = 6,
    Unmanaged = 10,
    Restricted = 11,
    Testing = 12,
    Disabled = 13
  };

  /// The legacy platform's numbering of the same states.
  enum QRMMappedStatus : int {
    QRMNoStatus = 0,
    QRMUnknown = 1,
    QRMNormal = 2,
    QRMMarginal = 3,
    QRMCritical = 4,
    QRMUnmanaged = 5,
    QRMWarning = 6,
    QRMMajor = 7,
    QRMRestricted = 8,
    QRMTesting = 9,
    QRMDisabled = 10
  };

  /// Normal.
  ObjectStatus() : _stat(Normal) {}
  ObjectStatus(Status status) : _stat(status) {}            // NOLINT
  ObjectStatus(int status) : _stat(IntToStatus(status)) {}  // NOLINT

  /// Back to Normal.
  void reset() { _stat = Normal; }
  Status getStatus() const { return _stat; }
  short getStatusAsInt() const { return static_cast<short>(_stat.get()); }
  /// 0 for a number that is no state.
  int getQRMMappedStatusAsInt() const;
  /// "NoStatus" for a number that is no state.
  std::string toString() const;

  /// NoStatus for a number that is no state.
  static Status IntToStatus(int value);

 private:
  AtomicField<Status> _stat;
};

}  // namespace zntopo
