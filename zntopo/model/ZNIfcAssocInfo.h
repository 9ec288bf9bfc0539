#pragma once

#include <string>

#include "zntopo/core/AtomicField.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNMutex.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// A relation between two interface containers: a row of nwifcasc.
///
/// Shared through ZNRefPtr; updateState() may run while other threads read.
class ZNTOPO_EXPORT ZNIfcAssocInfo {
 public:
  ZNIfcAssocInfo() = default;
  ZNIfcAssocInfo(const ObjID& assocIfcObjID, const int& ifcAssocType);
  ZNIfcAssocInfo(const ObjID& leftIfcObjId, const ObjID& rightIfcObjId, const int& assocType,
                 const int& leftIfcType, const int& rightIfcType, const int& state,
                 const int& stateTime, const std::string& description,
                 const std::string& extra_info);
  ZNIfcAssocInfo(const std::string& leftIfcName, const std::string& rightIfcName,
                 const int& assocType, const int& leftIfcType, const int& rightIfcType,
                 const int& state, const int& stateTime, const std::string& description,
                 const std::string& extra_info, const int& ipLevel);

  const ObjID& getLeftIfcId() const { return _znLeftIfcObjId; }
  int getLeftIfcType() const { return _znLeftIfcType; }
  const ObjID& getRightIfcId() const { return _znRightIfcObjId; }
  int getRightIfcType() const { return _znRightIfcType; }
  int getIfcRelationType() const { return _znIfcRelationType; }
  int getAssocState() const { return _znAssocState; }
  /// Seconds UTC. updateState() leaves it.
  int getAssocStateTime() const { return _znAssocStateTime; }
  const std::string& getAssocDescription() const { return _znAssocDescription; }
  const std::string& getAssocExtraInfo() const { return _znAssocExtraInfo; }
  const std::string& getLeftIfcName() const { return _znLeftIfcName; }
  const std::string& getRightIfcName() const { return _znRightIfcName; }
  int getIpLevel() const { return _znIpLevel; }

  std::string toString() const;

  /// Changes the state, and with updateDB writes the store and sends an attribute change. The
  /// object stays changed after a failure. The topology's readiness is not asked for.
  ZNTopoAPIStatus updateState(int state, bool updateDB);

 private:
  ZNMutex myMutex;
  ObjID _znRightIfcObjId;
  int _znRightIfcType = 0;
  int _znIfcRelationType = 0;
  AtomicField<int> _znAssocState;
  int _znAssocStateTime = 0;
  std::string _znAssocDescription;
  std::string _znAssocExtraInfo;
  ObjID _znLeftIfcObjId;
  int _znLeftIfcType = 0;
  int _znIpLevel = 0;
  std::string _znLeftIfcName;
  std::string _znRightIfcName;
};

}  // namespace zntopo
