#include "zntopo/model/ZNAddress.h"

#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/detail/EnumTable.h"
#include "zntopo/model/detail/LeafLock.h"
#include "zntopo/model/detail/Rendering.h"
#include "zntopo/model/detail/WriteThrough.h"

namespace zntopo {

namespace {

constexpr detail::EnumText<ZNAddress::AddressType> kTypes[] = {
    {ZNAddress::IPv4, "IPv4"},     {ZNAddress::IPv6, "IPv6"}, {ZNAddress::Physical, "Physical"},
    {ZNAddress::IDName, "IDName"}, {ZNAddress::FDN, "FDN"},   {ZNAddress::DNS, "DNS"},
};

constexpr detail::EnumText<PingState> kPingStates[] = {
    {Ping_Responding, "Ping Responding"},   {Ping_NotResponding, "Ping Not Responding"},
    {Ping_Unreachable, "Ping Unreachable"}, {Ping_AgentDown, "Ping Agent Down"},
    {Ping_Disabled, "Ping Disabled"},
};

using Line = detail::Line<ZNAddress>;

constexpr Line kText[] = {
    {"\nAddressID:", Line::of<&ZNAddress::getAddressID>},
    {"\nAssociatedEntityID:", Line::of<&ZNAddress::getAssEntityID>},
    {"\nAddressType:",
     [](const ZNAddress& address) { return detail::textOf(kTypes, address.getAddressType(), ""); }},
    {"\nPing State:",
     [](const ZNAddress& address) {
       return detail::textOf(kPingStates, address.getPingState(), "");
     }},
};

constexpr Line kXml[] = {
    {"AddrID", Line::of<&ZNAddress::getAddressID>, "objID"},
    {"AscEntObjID", Line::of<&ZNAddress::getAssEntityID>, "objID"},
    {"AddrType", Line::of<&ZNAddress::getAddressType>, "int"},
    {"PingState", Line::of<&ZNAddress::getPingState>, "int"},
};

}  // namespace

ZNAddress::ZNAddress() = default;

ZNAddress::ZNAddress(AddressType type, TopoDBType dbType) : _type(type), myDBType(dbType) {}

ZNAddress::ZNAddress(AddressType type, const ObjID& aid, TopoDBType dbType)
    : _type(type), _aID(aid), myDBType(dbType) {}

ZNAddress::ZNAddress(AddressType type, const ObjID& aid, const ObjID& eid, TopoDBType dbType)
    : _type(type), _aID(aid), _entID(eid), myDBType(dbType) {}

ZNAddress::ZNAddress(AddressType type, const ObjID& aid, const ObjID& eid,
                     const PingState& aPingState, long aPingStateUpdTime, TopoDBType dbType)
    : _type(type),
      _aID(aid),
      _entID(eid),
      myDBType(dbType),
      myPingState(aPingState),
      myPingStateUpdTime(aPingStateUpdTime) {}

ZNAddress::ZNAddress(const ZNAddress& other) { *this = other; }

ZNAddress& ZNAddress::operator=(const ZNAddress& other) {
  if (this == &other) return *this;
  _type = other._type;
  _aID = other._aID;
  _entID = other._entID;
  _tmpStr = other._tmpStr;
  myHSRPObjIDList = other.myHSRPObjIDList;
  myDBType = other.myDBType;
  myPingState = other.myPingState;
  myPingStateUpdTime = other.myPingStateUpdTime;
  return *this;
}

ZNAddress::~ZNAddress() = default;

bool ZNAddress::isInHSRP() const { return false; }
const std::list<ObjID>& ZNAddress::getHSRPObjIDs() const { return myHSRPObjIDList.get(); }
bool ZNAddress::isInetAddress() const { return false; }
const std::string& ZNAddress::getAddressAsString() const { return _tmpStr; }
bool ZNAddress::isMonitored() const { return false; }
std::string ZNAddress::toString() const { return detail::rendered(*this, kText); }
std::string ZNAddress::toXML() const { return detail::rendered(*this, kXml); }

ZNTopoAPIStatus ZNAddress::setPingState(PingState aPingState, bool updateDB) {
  MutexLockInternal lock(myMutex);
  detail::WriteThroughSteps steps;
  steps.change = [&]() -> std::optional<ZNTopoAPIStatus> {
    myPingState = aPingState;
    return std::nullopt;
  };
  steps.write = [&](TopologyGateway& gateway) {
    return gateway.setAddressState(myDBType, _aID, aPingState);
  };
  steps.notify = [&](TopologyGateway& gateway) {
    return gateway.sendAttributeNotification({E_Address, _aID, Ping_State, aPingState, ObjID(), 0});
  };
  return detail::writeThrough({true, true}, myDBType, updateDB, steps);
}

}  // namespace zntopo
