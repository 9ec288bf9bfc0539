#include "zntopo/model/InetAddressDNS.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<InetAddressDNS>;

constexpr Line kText[] = {
    {"\n+++++++++++++++InetAddressDNS+++++++++++++++", Line::baseText<InetAddress>},
    {"\nDNSName:", Line::of<&InetAddressDNS::getAddressAsString>},
    {"\n---------------InetAddressDNS---------------"},
};

}  // namespace

InetAddressDNS::InetAddressDNS() : InetAddress(DNS, ActiveDB) {}

InetAddressDNS::InetAddressDNS(const std::string& addrVal, TopoDBType dbType)
    : InetAddressDNS(addrVal, false, dbType) {}

InetAddressDNS::InetAddressDNS(const std::string& addrVal, bool isSubnet, TopoDBType dbType)
    : InetAddressDNS(addrVal, isSubnet, ObjID(), ObjID(), dbType) {}

InetAddressDNS::InetAddressDNS(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                               const ObjID& anAssEntID, TopoDBType dbType)
    : InetAddressDNS(addrVal, isSubnet, anAID, anAssEntID, 0, dbType) {}

InetAddressDNS::InetAddressDNS(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                               const ObjID& anAssEntID, unsigned long rd, TopoDBType dbType)
    : InetAddress(DNS, isSubnet, anAID, anAssEntID, static_cast<RouteDistinguisher>(rd), dbType),
      _addrVal(addrVal) {}

InetAddressDNS::~InetAddressDNS() = default;

const std::string& InetAddressDNS::getAddressAsString() const { return _addrVal; }
std::string InetAddressDNS::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
