#include "zntopo/model/ZNHSRP.h"

#include <algorithm>

#include "zntopo/core/MCLog.h"
#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/ZNHSRPAddrEqualObjID.h"
#include "zntopo/model/detail/Rendering.h"
#include "zntopo/model/detail/WriteThrough.h"

namespace zntopo {

namespace {

constexpr int kHighestCertainty = 100;
constexpr int kHighestPriority = 64000;

bool inRange(int value, int highest) { return value >= 0 && value <= highest; }

using Line = detail::Line<ZNHSRP>;

std::string membersOf(const ZNHSRP& group) {
  return detail::joined(group.getHSRPAddrInfoList(), [](const ZNHSRPAddressInfo& member) {
    return "\n---------------" + member.toString();
  });
}

constexpr Line kText[] = {
    {"++++++++++++ HSRP ++++++++++++++++++ \n", Line::baseText<ZNEntity>},
    {"\nHSRPGroupNumber: ", Line::of<&ZNHSRP::getHSRPNumber>},
    {"\n============= HSRP Address =============== \n", membersOf},
    {"\n------------- HSRP --------------\n"},
};

constexpr Line kXml[] = {
    {"<HSRP>\n", Line::baseXml<ZNEntity>},
    {"GroupNumber", Line::of<&ZNHSRP::getHSRPNumber>, "int"},
    {"<HSRPAddressList>\n", Line::xmls<&ZNHSRP::getHSRPAddrInfoList>},
    {"</HSRPAddressList>\n"},
    {"</HSRP>\n"},
};

}  // namespace

/// A change of one member, and what of it was new.
struct ZNHSRP::Update {
  ZNHSRPAddressInfo& info;
  ZNHSRPAddressInfo::HSRPState state;
  int certainty;
  int priority;
  bool withPriority;
  bool stateChanged = false;
  bool certaintyChanged = false;
  bool priorityChanged = false;
};

ZNHSRP::ZNHSRP() { _entityType = E_HSRP; }

ZNHSRP::ZNHSRP(const ZNEntity& ent) : ZNEntity(ent) { _entityType = E_HSRP; }

ZNHSRP::ZNHSRP(const ZNEntity& ent, const AddressInfoList& list) : ZNHSRP(ent) {
  setZNHSRPAddressInfoList(list);
}

ZNHSRP::ZNHSRP(const ZNHSRP& other) : ZNEntity(other) {
  setZNHSRPAddressInfoList(other.getHSRPAddrInfoList());
}

ZNHSRP& ZNHSRP::operator=(const ZNHSRP& other) {
  if (this == &other) return *this;
  ZNEntity::operator=(other);
  setZNHSRPAddressInfoList(other.getHSRPAddrInfoList());
  return *this;
}

ZNHSRP::~ZNHSRP() = default;

std::string ZNHSRP::toString() const { return detail::rendered(*this, kText); }
std::string ZNHSRP::toXML() const { return detail::rendered(*this, kXml); }
std::string ZNHSRP::toShortString() const { return ""; }

int ZNHSRP::getHSRPNumber() const {
  MutexLockInternal lock(myMutex);
  return myAddressInfoList.empty() ? 0 : myAddressInfoList.front().getHSRPNumber();
}

const ZNHSRP::AddressInfoList& ZNHSRP::getActiveAddressInfoList() const {
  MutexLockInternal lock(myMutex);
  return myActiveInfoList;
}

const ZNHSRP::AddressInfoList& ZNHSRP::getStandbyAddressInfoList() const {
  MutexLockInternal lock(myMutex);
  return myStandByInfoList;
}

const ZNHSRP::AddressInfoList& ZNHSRP::getMiscStateAddressInfoList() const {
  MutexLockInternal lock(myMutex);
  return myMiscStateInfoList;
}

ZNHSRP::AddressInfoList ZNHSRP::getHSRPAddrInfoList() const { return locked(myAddressInfoList); }

void ZNHSRP::setZNHSRPAddressInfoList(const AddressInfoList& list) {
  MutexLockInternal lock(myMutex);
  myAddressInfoList = list;
  recomputeAddressList();
}

void ZNHSRP::recomputeAddressList() {
  myActiveInfoList.clear();
  myStandByInfoList.clear();
  myMiscStateInfoList.clear();
  for (const ZNHSRPAddressInfo& info : myAddressInfoList) {
    switch (info.getHSRPState()) {
      case ZNHSRPAddressInfo::Active:
        myActiveInfoList.push_back(info);
        break;
      case ZNHSRPAddressInfo::StandBy:
        myStandByInfoList.push_back(info);
        break;
      default:
        myMiscStateInfoList.push_back(info);
    }
  }
}

ZNTopoAPIStatus ZNHSRP::setHSRPState(ZNHSRPAddressInfo& anInfo, ZNHSRPAddressInfo::HSRPState aStat,
                                     int aStatCertainty, bool updateDB, TopoDBType dbType) {
  return setHSRPStateAndPriority(anInfo, aStat, aStatCertainty, anInfo.getHSRPPriority(), updateDB,
                                 dbType);
}

ZNTopoAPIStatus ZNHSRP::setHSRPStateAndPriority(ZNHSRPAddressInfo& anInfo,
                                                ZNHSRPAddressInfo::HSRPState aStat,
                                                int aStatCertainty, int aPriority, bool updateDB,
                                                TopoDBType) {
  Update change{anInfo, aStat, aStatCertainty, aPriority, true};
  return update(change, updateDB);
}

ZNTopoAPIStatus ZNHSRP::setHSRPStateHelper(ZNHSRPAddressInfo& anInfo,
                                           ZNHSRPAddressInfo::HSRPState aStat, int aStatCertainty,
                                           bool updateDB, TopoDBType) {
  Update change{anInfo, aStat, aStatCertainty, anInfo.getHSRPPriority(), false};
  return update(change, updateDB);
}

std::optional<ZNTopoAPIStatus> ZNHSRP::apply(Update& change) {
  if (change.withPriority && !inRange(change.certainty, kHighestCertainty)) {
    return ZNTopoAPIStatus(ZN_API_ILLEGAL_INPUT, "Certainty value not in valid range");
  }
  if (change.withPriority && !inRange(change.priority, kHighestPriority)) {
    return ZNTopoAPIStatus(ZN_API_ILLEGAL_INPUT, "Priority value not in valid range");
  }
  ZNHSRPAddressInfo& info = change.info;
  change.priorityChanged = info.getHSRPPriority() != change.priority;
  change.stateChanged = info.getHSRPState() != change.state;
  change.certaintyChanged = info.getHSRPStateCertainty() != change.certainty;
  copyTo(info, change);
  if (!change.priorityChanged && !change.stateChanged && !change.certaintyChanged) {
    MCLog::log(MC_INFO, "%s",
               change.withPriority
                   ? "No update required. Priority, State and certain remain the same "
                   : "No update required. State and certain remain the same ");
    return ZNTopoAPIStatus();
  }
  const auto member = std::find_if(myAddressInfoList.begin(), myAddressInfoList.end(),
                                   ZNHSRPAddrEqualObjID(info.getIFObjID()));
  if (member == myAddressInfoList.end()) {
    return ZNTopoAPIStatus(ZN_API_OBJ_NOT_EXIST, "setHSRPState() could not find hsrp address");
  }
  copyTo(*member, change);
  recomputeAddressList();
  return std::nullopt;
}

void ZNHSRP::copyTo(ZNHSRPAddressInfo& info, const Update& change) {
  if (change.withPriority) info.setHSRPPriority(change.priority);
  info.setHSRPState(change.state);
  info.setHSRPStateCertainty(change.certainty);
}

ZNTopoAPIStatus ZNHSRP::update(Update& change, bool updateDB) {
  MutexLockInternal lock(myMutex);
  detail::WriteThroughSteps steps;
  steps.change = [&] { return apply(change); };
  steps.write = [&](TopologyGateway& gateway) {
    return gateway.setHSRPAddressInfo(_dbType, change.info);
  };
  steps.notify = [&](TopologyGateway& gateway) {
    const auto send = [&](bool changed, TopologyAttributeType attribute, int value) {
      if (!changed) return;
      gateway.sendAttributeNotification(
          {_entityType, _id, attribute, value, change.info.getAddressID(), 0});
    };
    send(change.stateChanged, HSRP_State, change.state);
    send(change.certaintyChanged, HSRP_Certainity, change.certainty);
    send(change.priorityChanged, HSRP_Priority, change.priority);
    return ZNTopoAPIStatus();
  };
  return detail::writeThrough({true, false}, _dbType, updateDB, steps);
}

}  // namespace zntopo
