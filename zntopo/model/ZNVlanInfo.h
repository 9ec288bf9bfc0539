#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/ZNVlanIFInfo.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One node's share of a VLAN. A plain value.
class ZNTOPO_EXPORT ZNVlanInfo {
 public:
  ZNVlanInfo() = default;
  ZNVlanInfo(const ObjID& aVlanObjID, const ObjID& aNodeObjID, const std::string& aNodeName,
             const std::list<ZNVlanIFInfo>& aVlanIFList)
      : _VlanObjID(aVlanObjID),
        _nodeObjID(aNodeObjID),
        _nodeName(aNodeName),
        _IFInfoList(aVlanIFList) {}

  const ObjID& getVlanObjID() const { return _VlanObjID; }
  const ObjID& getNodeObjID() const { return _nodeObjID; }
  const std::string& getNodeName() const { return _nodeName; }
  const std::list<ZNVlanIFInfo>& getVlanIFInfoList() const { return _IFInfoList; }
  std::string toString() const;
  std::string toXML() const;
  void addIFInfo(const ZNVlanIFInfo& info) { _IFInfoList.push_back(info); }

 private:
  ObjID _VlanObjID;
  ObjID _nodeObjID;
  std::string _nodeName;
  std::list<ZNVlanIFInfo> _IFInfoList;
};

}  // namespace zntopo
