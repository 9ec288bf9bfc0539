#include "zntopo/model/ZNIfcAssocInfo.h"

#include "zntopo/model/detail/Rendering.h"
#include "zntopo/model/detail/WriteThrough.h"

namespace zntopo {

namespace {

/// The number of this state among the attribute types, which have no enumerator for it.
constexpr int kAssociationAttribute = 7;

using Line = detail::Line<ZNIfcAssocInfo>;

constexpr Line kText[] = {
    {"\n\n          +++++++++++++++++ ZNIfcAssocInfo ++++++++++++++++"},
    {"\n          LeftIfCObjId: ", Line::of<&ZNIfcAssocInfo::getLeftIfcId>},
    {"\n          LeftIfcType: ", Line::of<&ZNIfcAssocInfo::getLeftIfcType>},
    {"\n          RightIfCObjId: ", Line::of<&ZNIfcAssocInfo::getRightIfcId>},
    {"\n          RightIfcType: ", Line::of<&ZNIfcAssocInfo::getRightIfcType>},
    {"\n          RelationType: ", Line::of<&ZNIfcAssocInfo::getIfcRelationType>},
    {"\n          AssociationStatus: ", Line::of<&ZNIfcAssocInfo::getAssocState>},
    {"\n          AssociationChangeTime: ", Line::of<&ZNIfcAssocInfo::getAssocStateTime>},
    {"\n          AssociationDescription: ", Line::of<&ZNIfcAssocInfo::getAssocDescription>},
    {"\n          AssociationExtraInfo: ", Line::of<&ZNIfcAssocInfo::getAssocExtraInfo>},
    {"\n          ----------------- ZNIfcAssocInfo ----------------"},
};

}  // namespace

ZNIfcAssocInfo::ZNIfcAssocInfo(const ObjID& assocIfcObjID, const int& ifcAssocType)
    : _znRightIfcObjId(assocIfcObjID), _znIfcRelationType(ifcAssocType) {}

ZNIfcAssocInfo::ZNIfcAssocInfo(const ObjID& leftIfcObjId, const ObjID& rightIfcObjId,
                               const int& assocType, const int& leftIfcType,
                               const int& rightIfcType, const int& state, const int& stateTime,
                               const std::string& description, const std::string& extra_info)
    : _znRightIfcObjId(rightIfcObjId),
      _znRightIfcType(rightIfcType),
      _znIfcRelationType(assocType),
      _znAssocState(state),
      _znAssocStateTime(stateTime),
      _znAssocDescription(description),
      _znAssocExtraInfo(extra_info),
      _znLeftIfcObjId(leftIfcObjId),
      _znLeftIfcType(leftIfcType) {}

ZNIfcAssocInfo::ZNIfcAssocInfo(const std::string& leftIfcName, const std::string& rightIfcName,
                               const int& assocType, const int& leftIfcType,
                               const int& rightIfcType, const int& state, const int& stateTime,
                               const std::string& description, const std::string& extra_info,
                               const int& ipLevel)
    : ZNIfcAssocInfo(ObjID(), ObjID(), assocType, leftIfcType, rightIfcType, state, stateTime,
                     description, extra_info) {
  _znLeftIfcName = leftIfcName;
  _znRightIfcName = rightIfcName;
  _znIpLevel = ipLevel;
}

std::string ZNIfcAssocInfo::toString() const { return detail::rendered(*this, kText); }

ZNTopoAPIStatus ZNIfcAssocInfo::updateState(int state, bool updateDB) {
  MutexLockInternal lock(myMutex);
  detail::WriteThroughSteps steps;
  steps.change = [&]() -> std::optional<ZNTopoAPIStatus> {
    _znAssocState = state;
    return std::nullopt;
  };
  steps.write = [&](TopologyGateway& gateway) {
    return gateway.setNWIfcAssocInfoState(_znLeftIfcObjId, _znRightIfcObjId, _znIfcRelationType,
                                          state);
  };
  steps.notify = [&](TopologyGateway& gateway) {
    return gateway.sendAttributeNotification({E_IfC, _znLeftIfcObjId, kAssociationAttribute, state,
                                              _znRightIfcObjId, _znIfcRelationType});
  };
  return detail::writeThrough({false, true}, ActiveDB, updateDB, steps);
}

}  // namespace zntopo
