#pragma once

#include <array>
#include <string>

#include "zntopo/model/InetAddressIPv6.h"
#include "zntopo/model/PingStatus.h"

namespace zntopo {

/// An IPv6 address that the platform watches. Nothing here writes to the store.
///
/// setPingStatus() may run while other threads read.
class ZNTOPO_EXPORT MonitoredInetAddressIPv6 : public InetAddressIPv6 {
 public:
  enum IPv6AddrStatus : int {
    Preferred = 1,
    Deprecated = 2,
    Inaccessible = 3,
    UnknownIPv6AddrStatus = 4
  };
  enum IPv6AddrType : int { Stateless = 1, Stateful = 2, UnknownIPv6AddrType = 3 };
  enum IPv6NetToMediaState : int {
    Reachable = 1,
    Stale = 2,
    Delay = 3,
    Probe = 4,
    Invalid = 5,
    Unknown = 6
  };
  /// What was changed in memory and is not in the store.
  enum Field : int { F_QRMObjId = 0, F_Status = 1 };

  MonitoredInetAddressIPv6();
  explicit MonitoredInetAddressIPv6(const InetAddressIPv6& address);
  MonitoredInetAddressIPv6(const InetAddressIPv6& address, IPv6NetToMediaState ntmState,
                           IPv6AddrStatus aStat, IPv6AddrType aType, const PingStatus& pStat,
                           const ObjID& anID);
  ~MonitoredInetAddressIPv6() override;

  bool isMonitored() const override;
  std::string toString() const override;

  const PingStatus& getPingStatus() const { return _pingStatus; }
  IPv6AddrStatus getIPv6AddrStatus() const { return _addrStatus; }
  IPv6AddrType getIPv6AddrType() const { return _addrType; }
  IPv6NetToMediaState getIPv6NetToMediaState() const { return _ntmState; }
  /// The address's identity in the legacy object store.
  const ObjID& getQRMObjID() const { return _QRMObjId; }
  /// Marks F_QRMObjId.
  void setQRMObjID(const ObjID& id);
  /// Marks F_Status.
  void setPingStatus(const PingStatus& status);

  bool isStatusModified() const { return _fieldVector[F_Status] != 0; }
  bool isQRMObjIDModified() const { return _fieldVector[F_QRMObjId] != 0; }
  void initFieldVector();

  /// The converters from numbers give the unknown value for what is not in the list; those to
  /// text give an empty text.
  static IPv6AddrStatus ShortToIPv6AddrStatus(short value);
  static IPv6AddrType ShortToIPv6AddrType(short value);
  static IPv6NetToMediaState ShortToIPv6NetToMediaState(short value);
  static std::string IPv6AddrStatusToString(IPv6AddrStatus status);
  static std::string IPv6AddrTypeToString(IPv6AddrType type);
  static std::string IPv6NetToMediaStateToString(IPv6NetToMediaState state);

 private:
  PingStatus _pingStatus;
  IPv6NetToMediaState _ntmState = Unknown;
  IPv6AddrStatus _addrStatus = UnknownIPv6AddrStatus;
  IPv6AddrType _addrType = UnknownIPv6AddrType;
  ObjID _QRMObjId;
  std::array<AtomicField<short>, 20> _fieldVector;
};

}  // namespace zntopo
