#pragma once

#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One interface in an interface container, named by identifiers or by names. The meaning of the
/// types is the applications'. A plain value.
///
/// What is read from the store, a row of nwifcctm, is named by identifiers, and has its two types
/// the other way round: getIfcType() is ContainmentType and getContainmentType() is IFCType.
class ZNTOPO_EXPORT ZNIfcIFInfo {
 public:
  /// By identifiers; the names stay empty.
  ZNIfcIFInfo(const ObjID& ifcObjId, const ObjID& interfaceObjId, int ifcType, int containmentType,
              int seqNum);
  /// By names; the identifiers stay null.
  ZNIfcIFInfo(const std::string& ifcName, const std::string& interfaceName,
              const std::string& nodeName, const int& ifcType, const int& containmentType,
              const int& seqNum, const int& ipLevel);

  const ObjID& getIfcObjId() const { return _znIfcObjId; }
  int getIfcType() const { return _znIfcType; }
  int getContainmentType() const { return _znContainmentType; }
  const ObjID& getInterfaceObjId() const { return _znInterfaceObjId; }
  /// Column SequenceNumber: the place in an ordered container.
  int getSeqNum() const { return _znSeqNum; }
  const std::string& getIFName() const { return _znIfName; }
  const std::string& getIfcName() const { return _znIfcName; }
  const std::string& getNodeName() const { return _znNodeName; }
  int getIpLevel() const { return _znIpLevel; }

  std::string toString() const;

  /// By sequence number.
  bool operator<(const ZNIfcIFInfo& other) const { return _znSeqNum < other._znSeqNum; }
  /// In all fields.
  bool operator==(const ZNIfcIFInfo& other) const;

 private:
  ObjID _znIfcObjId;
  int _znIfcType = 0;
  int _znContainmentType = 0;
  ObjID _znInterfaceObjId;
  int _znSeqNum = 0;
  std::string _znIfName;
  std::string _znIfcName;
  std::string _znNodeName;
  int _znIpLevel = 0;
};

}  // namespace zntopo
