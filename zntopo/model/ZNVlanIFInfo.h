#pragma once

#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One interface that is a member of a VLAN, with its labels. A plain value.
class ZNTOPO_EXPORT ZNVlanIFInfo {
 public:
  ZNVlanIFInfo() = default;
  ZNVlanIFInfo(const ObjID& aIFID, std::string aPortNum, std::string aBoardNum)
      : _IFID(aIFID), _portNum(std::move(aPortNum)), _boardNum(std::move(aBoardNum)) {}

  const ObjID& getIFObjID() const { return _IFID; }
  /// Columns VendorPort and VendorCard of nwinterface.
  const std::string& getPortNumber() const { return _portNum; }
  const std::string& getBoardNumber() const { return _boardNum; }
  std::string toString() const;

 private:
  ObjID _IFID;
  std::string _portNum;
  std::string _boardNum;
};

}  // namespace zntopo
