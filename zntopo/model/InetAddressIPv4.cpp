#include "zntopo/model/InetAddressIPv4.h"

#include "zntopo/model/IPv4SubnetMask.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

short prefixOf(const std::string& subnetMask) {
  return static_cast<short>(IPv4SubnetMask(subnetMask).getPrefixLen());
}

using Line = detail::Line<InetAddressIPv4>;

constexpr Line kText[] = {
    {"\n+++++++++++++++InetAddressIPv4+++++++++++++++", Line::baseText<InetAddress>},
    {"\nIPV4:", Line::of<&InetAddressIPv4::getAddressAsString>},
    {"\nPublic Address:", Line::of<&InetAddressIPv4::getPublicAddress>},
    {"\nPrefixLength:", Line::of<&InetAddressIPv4::getPrefixLength>},
    {"\n---------------InetAddressIPv4---------------"},
};

constexpr Line kXml[] = {
    {"<IPv4Address>\n", Line::baseXml<InetAddress>},
    {"PrivateAddr", Line::of<&InetAddressIPv4::getAddressAsString>, "str"},
    {"PublicAddr", Line::of<&InetAddressIPv4::getPublicAddress>, "str"},
    {"PrefixLength", Line::of<&InetAddressIPv4::getPrefixLength>, "int"},
    {"</IPv4Address>\n"},
};

}  // namespace

InetAddressIPv4::InetAddressIPv4() : InetAddress(IPv4, ActiveDB) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, TopoDBType dbType)
    : InetAddressIPv4(addrVal, false, dbType) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, bool isSubnet, TopoDBType dbType)
    : InetAddress(IPv4, isSubnet, dbType), _addrVal(addrVal), _publicAddrVal(addrVal) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                                 const ObjID& anAssEntID, TopoDBType dbType)
    : InetAddress(IPv4, isSubnet, anAID, anAssEntID, dbType),
      _addrVal(addrVal),
      _publicAddrVal(addrVal) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                                 const ObjID& anAssEntID, const ObjID& aSubnetID, TopoDBType dbType)
    : InetAddress(IPv4, isSubnet, anAID, anAssEntID, aSubnetID, dbType),
      _addrVal(addrVal),
      _publicAddrVal(addrVal) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, bool isSubnet, RouteDistinguisher rd,
                                 const std::string& subnetMask, TopoDBType dbType)
    : InetAddress(IPv4, isSubnet, ObjID(), ObjID(), rd, dbType),
      _prefixLen(prefixOf(subnetMask)),
      _addrVal(addrVal),
      _publicAddrVal(addrVal) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                                 const ObjID& anAssEntID, const ObjID& aSubnetID,
                                 RouteDistinguisher rd, const std::string& pubAddr,
                                 TopoDBType dbType)
    : InetAddress(IPv4, isSubnet, anAID, anAssEntID, rd, aSubnetID, dbType),
      _addrVal(addrVal),
      _publicAddrVal(pubAddr) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                                 const ObjID& anAssEntID, const ObjID& aSubnetID,
                                 RouteDistinguisher rd, const std::string& subnetMask,
                                 const std::string& pubAddr, TopoDBType dbType)
    : InetAddressIPv4(addrVal, isSubnet, anAID, anAssEntID, aSubnetID, rd, subnetMask,
                      Ping_Responding, 0, pubAddr, dbType) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                                 const ObjID& anAssEntID, const ObjID& aSubnetID,
                                 RouteDistinguisher rd, const std::string& subnetMask,
                                 PingState aStat, long pingStateUpdTime, const std::string& pubAddr,
                                 TopoDBType dbType)
    : InetAddress(IPv4, aStat, pingStateUpdTime, isSubnet, anAID, anAssEntID, rd, aSubnetID,
                  dbType),
      _prefixLen(prefixOf(subnetMask)),
      _addrVal(addrVal),
      _publicAddrVal(pubAddr) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, const std::string& publicAddressVal,
                                 RouteDistinguisher rd, TopoDBType dbType)
    : InetAddressIPv4(addrVal, false, ObjID(), ObjID(), ObjID(), rd, publicAddressVal, dbType) {}

InetAddressIPv4::InetAddressIPv4(const std::string& addrVal, const std::string& publicAddressVal,
                                 RouteDistinguisher rd, const std::string& subnetMask,
                                 TopoDBType dbType)
    : InetAddressIPv4(addrVal, false, ObjID(), ObjID(), ObjID(), rd, subnetMask, publicAddressVal,
                      dbType) {}

InetAddressIPv4::InetAddressIPv4(const InetAddressIPv4& other) = default;
InetAddressIPv4& InetAddressIPv4::operator=(const InetAddressIPv4& other) = default;
InetAddressIPv4::~InetAddressIPv4() = default;

const std::string& InetAddressIPv4::getAddressAsString() const { return _addrVal; }
std::string InetAddressIPv4::toString() const { return detail::rendered(*this, kText); }
std::string InetAddressIPv4::toXML() const { return detail::rendered(*this, kXml); }
std::string InetAddressIPv4::getAddressAsBitString() const { return _addrVal; }

}  // namespace zntopo
