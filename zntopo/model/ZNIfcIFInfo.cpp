#include "zntopo/model/ZNIfcIFInfo.h"

#include <tuple>

namespace zntopo {

ZNIfcIFInfo::ZNIfcIFInfo(const ObjID& ifcObjId, const ObjID& interfaceObjId, int ifcType,
                         int containmentType, int seqNum)
    : _znIfcObjId(ifcObjId),
      _znIfcType(ifcType),
      _znContainmentType(containmentType),
      _znInterfaceObjId(interfaceObjId),
      _znSeqNum(seqNum) {}

ZNIfcIFInfo::ZNIfcIFInfo(const std::string& ifcName, const std::string& interfaceName,
                         const std::string& nodeName, const int& ifcType,
                         const int& containmentType, const int& seqNum, const int& ipLevel)
    : _znIfcType(ifcType),
      _znContainmentType(containmentType),
      _znSeqNum(seqNum),
      _znIfName(interfaceName),
      _znIfcName(ifcName),
      _znNodeName(nodeName),
      _znIpLevel(ipLevel) {}

bool ZNIfcIFInfo::operator==(const ZNIfcIFInfo& other) const {
  const auto fields = [](const ZNIfcIFInfo& info) {
    return std::tie(info._znIfcObjId, info._znIfcType, info._znContainmentType,
                    info._znInterfaceObjId, info._znSeqNum, info._znIfName, info._znIfcName,
                    info._znNodeName, info._znIpLevel);
  };
  return fields(*this) == fields(other);
}

}  // namespace zntopo
