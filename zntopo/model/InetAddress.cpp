#include "zntopo/model/InetAddress.h"

#include <cstdlib>

#include "zntopo/core/MCLog.h"
#include "zntopo/model/TopologyGateway.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/detail/HSRPLine.h"
#include "zntopo/model/detail/LeafLock.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<InetAddress>;

std::string oadIdOf(const InetAddress& address) {
  return detail::shownAs32Bits(address.getRouteDistinguisher());
}

constexpr Line kText[] = {
    {"", Line::baseText<ZNAddress>},
    {"\nOADId:", oadIdOf},
    {"\nSubnetObjID:", Line::of<&InetAddress::getSubnetObjID>},
    {"\nisSubnetAddress:", Line::of<&InetAddress::isSubnetAddress>},
    {"", [](const InetAddress& address) { return detail::hsrpLine(address.getHSRPObjIDs()); },
     nullptr,
     [](const InetAddress& address) {
       return std::getenv("TOPODUMP_DETAIL") != nullptr && address.isInHSRP();
     }},
};

constexpr Line kXml[] = {
    {"", Line::baseXml<ZNAddress>},
    {"SubnetObjID", Line::of<&InetAddress::getSubnetObjID>, "objID"},
    {"OADId", oadIdOf, "int"},
    {"isSubnetAddr",
     [](const InetAddress& address) -> std::string {
       return address.isSubnetAddress() ? "1" : "0";
     },
     "int"},
};

}  // namespace

InetAddress::InetAddress(const AddressType& type, TopoDBType dbType) : ZNAddress(type, dbType) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, TopoDBType dbType)
    : ZNAddress(type, dbType), _isSubnetAddr(isSubnetAddr) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
                         const ObjID& anAssEntID, TopoDBType dbType)
    : InetAddress(type, isSubnetAddr, anAID, anAssEntID, 0, ObjID(), dbType) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
                         const ObjID& anAssEntID, RouteDistinguisher rd, TopoDBType dbType)
    : InetAddress(type, isSubnetAddr, anAID, anAssEntID, rd, ObjID(), dbType) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
                         const ObjID& anAssEntID, RouteDistinguisher rd, const ObjID& aSubnetID,
                         TopoDBType dbType)
    : InetAddress(type, Ping_Responding, 0, isSubnetAddr, anAID, anAssEntID, rd, aSubnetID,
                  dbType) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
                         const ObjID& anAssEntID, const ObjID& aSubnetID, TopoDBType dbType)
    : InetAddress(type, isSubnetAddr, anAID, anAssEntID, 0, aSubnetID, dbType) {}

InetAddress::InetAddress(const AddressType& type, const PingState& aStat, long aPingStateUpdTime,
                         bool isSubnetAddr, const ObjID& anAID, const ObjID& anAssEntID,
                         RouteDistinguisher rd, const ObjID& aSubnetID, TopoDBType dbType)
    : ZNAddress(type, anAID, anAssEntID, aStat, aPingStateUpdTime, dbType),
      _routeDistinguisher(rd),
      _isSubnetAddr(isSubnetAddr),
      _subnetID(aSubnetID) {}

// The assignment copies all, the base's fields included, under its lock.
InetAddress::InetAddress(const InetAddress& other)  // NOLINT(bugprone-copy-constructor-init)
    : ZNAddress() {
  *this = other;
}

InetAddress& InetAddress::operator=(const InetAddress& other) {
  if (this == &other) return *this;
  // The list of groups and the flags that tell about it change together.
  detail::LeafLock lock(&other);
  ZNAddress::operator=(other);
  _routeDistinguisher = other._routeDistinguisher;
  _isSubnetAddr = other._isSubnetAddr;
  _subnetID = other._subnetID;
  myIsHSRP = other.myIsHSRP;
  myHSRPLoaded = other.myHSRPLoaded;
  return *this;
}

InetAddress::~InetAddress() = default;

bool InetAddress::isInHSRP() const {
  if (myHSRPLoaded || _isSubnetAddr) return myIsHSRP;
  if (_entID.isNull()) return false;
  TopologyGateway& gateway = topologyGateway();
  ZNTopoAPIStatus status;
  const ZNRefPtr<ZNInterface> owner = gateway.getInterfaceByObjID(ActiveDB, _entID, status);
  if (!status.isOK()) {
    MCLog::log(MC_CRITICAL, "Error in getInterfaceByObjID() from  Address::isInHSRP()\n");
    return false;
  }
  if (owner.isNull()) return false;
  const bool inHSRP = owner->isInHSRP();
  std::unique_ptr<std::list<ObjID>> groups;
  if (inHSRP) {
    status.reset();
    groups = gateway.getHSRPObjIDsByIFAddressObjID(ActiveDB, _aID, TopologyGateway::HSRP_Address,
                                                   status);
    if (!status.isOK()) {
      MCLog::log(MC_CRITICAL, "getHSRPObjIDsByIFAddressObjID() fail for Address : %s\n",
                 _aID.getStrValue().c_str());
    }
  }
  detail::LeafLock lock(this);
  if (myHSRPLoaded) return myIsHSRP;
  myIsHSRP = inHSRP;
  if (!status.isOK()) return inHSRP;
  if (groups) myHSRPObjIDList.publish(std::move(*groups));
  myHSRPLoaded = true;
  return inHSRP;
}

const std::list<ObjID>& InetAddress::getHSRPObjIDs() const {
  isInHSRP();
  return myHSRPObjIDList.get();
}

bool InetAddress::isInetAddress() const { return true; }
std::string InetAddress::toString() const { return detail::rendered(*this, kText); }
std::string InetAddress::toXML() const { return detail::rendered(*this, kXml); }
RouteDistinguisher InetAddress::getRouteDistinguisher() const { return _routeDistinguisher; }

}  // namespace zntopo
