#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/ZNIfcIFInfo.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One node's part of an interface container; on a node, one container's part. A plain value.
class ZNTOPO_EXPORT ZNIfcInfo {
 public:
  ZNIfcInfo() = default;
  ZNIfcInfo(const ObjID& aNodeObjID, const std::list<ZNIfcIFInfo>& aIfcIFInfoList)
      : _znObjID(aNodeObjID), _znIfcIFInfoList(aIfcIFInfoList) {}

  void addIfcIFInfo(const ZNIfcIFInfo& info) { _znIfcIFInfoList.push_back(info); }
  const ObjID& getIfcInfoObjID() const { return _znObjID; }
  const std::list<ZNIfcIFInfo>& getAllIfcIFInfos() const { return _znIfcIFInfoList; }
  std::string toString() const;

  bool operator==(const ZNIfcInfo& other) const {
    return _znObjID == other._znObjID && _znIfcIFInfoList == other._znIfcIFInfoList;
  }

 private:
  ObjID _znObjID;
  std::list<ZNIfcIFInfo> _znIfcIFInfoList;
};

}  // namespace zntopo
