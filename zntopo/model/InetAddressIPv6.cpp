#include "zntopo/model/InetAddressIPv6.h"

#include "zntopo/model/IPv6AddrToBin.h"
#include "zntopo/model/detail/EnumTable.h"
#include "zntopo/model/detail/LeafLock.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

constexpr detail::EnumText<InetAddressIPv6::ScopeType> kScopes[] = {
    {InetAddressIPv6::Unknown, "Unknown"},
    {InetAddressIPv6::LinkLocal, "LinkLocal"},
    {InetAddressIPv6::SiteLocal, "SiteLocal"},
    {InetAddressIPv6::Global, "Global"},
};

using Line = detail::Line<InetAddressIPv6>;

constexpr Line kText[] = {
    {"", Line::baseText<InetAddress>},
    {"\nScopeType:",
     [](const InetAddressIPv6& address) {
       return InetAddressIPv6::ScopeTypeToString(address.getScopeType());
     }},
    {"\nAddress:", Line::of<&InetAddressIPv6::getAddressAsString>},
    {"\n"},
    {"PrefixLength:", Line::of<&InetAddressIPv6::getPrefixLength>},
    {"\n"},
};

}  // namespace

InetAddressIPv6::InetAddressIPv6() : InetAddress(IPv6, ActiveDB) {}

InetAddressIPv6::InetAddressIPv6(const std::string& addrVal, ScopeType sType, short prefixLen,
                                 TopoDBType dbType)
    : InetAddressIPv6(addrVal, sType, prefixLen, false, dbType) {}

InetAddressIPv6::InetAddressIPv6(const std::string& addrVal, ScopeType sType, short prefixLen,
                                 bool isSubnet, TopoDBType dbType)
    : InetAddressIPv6(addrVal, sType, prefixLen, isSubnet, ObjID(), ObjID(), ObjID(), dbType) {}

InetAddressIPv6::InetAddressIPv6(const std::string& addrVal, ScopeType sType, short prefixLen,
                                 bool isSubnet, const ObjID& anAID, const ObjID& anAssEntID,
                                 const ObjID& aSubnetID, TopoDBType dbType)
    : InetAddressIPv6(addrVal, sType, prefixLen, isSubnet, anAID, anAssEntID, aSubnetID, 0,
                      dbType) {}

InetAddressIPv6::InetAddressIPv6(const std::string& addrVal, ScopeType sType, short prefixLen,
                                 bool isSubnet, const ObjID& anAID, const ObjID& anAssEntID,
                                 const ObjID& aSubnetID, unsigned long rd, TopoDBType dbType)
    : InetAddress(IPv6, isSubnet, anAID, anAssEntID, static_cast<RouteDistinguisher>(rd), aSubnetID,
                  dbType),
      _addrVal(addrVal),
      _prefixLen(prefixLen),
      _scopeType(sType) {}

InetAddressIPv6::InetAddressIPv6(const InetAddressIPv6& other) = default;
InetAddressIPv6& InetAddressIPv6::operator=(const InetAddressIPv6& other) = default;
InetAddressIPv6::~InetAddressIPv6() = default;

const std::string& InetAddressIPv6::getAddressAsString() const { return _addrVal; }
std::string InetAddressIPv6::toString() const { return detail::rendered(*this, kText); }

std::string InetAddressIPv6::getAddressAsBitString(int len) const {
  if (_addrValBS.get().empty()) {
    std::string bits = IPv6AddrToBin(_addrVal).getBinStr();
    detail::LeafLock lock(this);
    _addrValBS.publish(std::move(bits));
  }
  const std::string& all = _addrValBS.get();
  return len > 0 ? IPv6AddrToBin::getBinStrPrefix(all, len) : all;
}

std::string InetAddressIPv6::ScopeTypeToString(ScopeType scope) {
  return detail::textOf(kScopes, scope, "");
}

InetAddressIPv6::ScopeType InetAddressIPv6::ShortToScopeType(short value) {
  return detail::valueOf(kScopes, value, Unknown);
}

}  // namespace zntopo
