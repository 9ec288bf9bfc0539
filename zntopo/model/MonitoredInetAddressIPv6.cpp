#include "zntopo/model/MonitoredInetAddressIPv6.h"

#include "zntopo/model/detail/EnumTable.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Monitored = MonitoredInetAddressIPv6;

constexpr detail::EnumText<Monitored::IPv6AddrStatus> kStatuses[] = {
    {Monitored::Preferred, "Preferred"},
    {Monitored::Deprecated, "Deprecated"},
    {Monitored::Inaccessible, "Inaccessible"},
    {Monitored::UnknownIPv6AddrStatus, "UnknownIPv6AddrStatus"},
};

constexpr detail::EnumText<Monitored::IPv6AddrType> kTypes[] = {
    {Monitored::Stateless, "Stateless"},
    {Monitored::Stateful, "Stateful"},
    {Monitored::UnknownIPv6AddrType, "UnknownIPv6AddrType"},
};

constexpr detail::EnumText<Monitored::IPv6NetToMediaState> kStates[] = {
    {Monitored::Reachable, "Reachable"}, {Monitored::Stale, "Stale"},
    {Monitored::Delay, "Delay"},         {Monitored::Probe, "Probe"},
    {Monitored::Invalid, "Invalid"},     {Monitored::Unknown, "Unknown"},
};

using Line = detail::Line<Monitored>;

constexpr Line kText[] = {
    {"\n+++++++++++++MonitoredInetAddressIPv6++++++++++++++", Line::baseText<InetAddressIPv6>},
    {"QRMObjId:", Line::of<&Monitored::getQRMObjID>},
    {"\nIPv6AddrState:",
     [](const Monitored& address) {
       return Monitored::IPv6AddrStatusToString(address.getIPv6AddrStatus());
     }},
    {"\nIPv6NetToMediaState:",
     [](const Monitored& address) {
       return Monitored::IPv6NetToMediaStateToString(address.getIPv6NetToMediaState());
     }},
    {"\nIPv6AddrType:",
     [](const Monitored& address) {
       return Monitored::IPv6AddrTypeToString(address.getIPv6AddrType());
     }},
    {"\n", Line::textOf<&Monitored::getPingStatus>},
    {"\n-------------MonitoredInetAddressIPv6------------"},
};

}  // namespace

MonitoredInetAddressIPv6::MonitoredInetAddressIPv6() = default;

MonitoredInetAddressIPv6::MonitoredInetAddressIPv6(const InetAddressIPv6& address)
    : InetAddressIPv6(address) {}

MonitoredInetAddressIPv6::MonitoredInetAddressIPv6(const InetAddressIPv6& address,
                                                   IPv6NetToMediaState ntmState,
                                                   IPv6AddrStatus aStat, IPv6AddrType aType,
                                                   const PingStatus& pStat, const ObjID& anID)
    : InetAddressIPv6(address),
      _pingStatus(pStat),
      _ntmState(ntmState),
      _addrStatus(aStat),
      _addrType(aType),
      _QRMObjId(anID) {}

MonitoredInetAddressIPv6::~MonitoredInetAddressIPv6() = default;

bool MonitoredInetAddressIPv6::isMonitored() const { return true; }
std::string MonitoredInetAddressIPv6::toString() const { return detail::rendered(*this, kText); }

void MonitoredInetAddressIPv6::setQRMObjID(const ObjID& id) {
  _QRMObjId = id;
  _fieldVector[F_QRMObjId] = 1;
}

void MonitoredInetAddressIPv6::setPingStatus(const PingStatus& status) {
  _pingStatus = status;
  _fieldVector[F_Status] = 1;
}

void MonitoredInetAddressIPv6::initFieldVector() {
  for (AtomicField<short>& field : _fieldVector) field = 0;
}

Monitored::IPv6AddrStatus MonitoredInetAddressIPv6::ShortToIPv6AddrStatus(short value) {
  return detail::valueOf(kStatuses, value, UnknownIPv6AddrStatus);
}

Monitored::IPv6AddrType MonitoredInetAddressIPv6::ShortToIPv6AddrType(short value) {
  return detail::valueOf(kTypes, value, UnknownIPv6AddrType);
}

Monitored::IPv6NetToMediaState MonitoredInetAddressIPv6::ShortToIPv6NetToMediaState(short value) {
  return detail::valueOf(kStates, value, Unknown);
}

std::string MonitoredInetAddressIPv6::IPv6AddrStatusToString(IPv6AddrStatus status) {
  return detail::textOf(kStatuses, status, "");
}

std::string MonitoredInetAddressIPv6::IPv6AddrTypeToString(IPv6AddrType type) {
  return detail::textOf(kTypes, type, "");
}

std::string MonitoredInetAddressIPv6::IPv6NetToMediaStateToString(IPv6NetToMediaState state) {
  return detail::textOf(kStates, state, "");
}

}  // namespace zntopo
