#include "zntopo/model/ZNIfcIFInfo.h"

#include <tuple>

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<ZNIfcIFInfo>;

constexpr Line kText[] = {
    {"\n\n               +++++++++++++++++ ZNIfcIFInfo ++++++++++++++++\n"},
    {"\n               InterfaceObjId:", Line::of<&ZNIfcIFInfo::getInterfaceObjId>},
    {"\n               ContainerObjId:", Line::of<&ZNIfcIFInfo::getIfcObjId>},
    {"\n               IfcType:", Line::of<&ZNIfcIFInfo::getIfcType>},
    {"\n               ContainmentType:", Line::of<&ZNIfcIFInfo::getContainmentType>},
    {"\n               SequenceNumber:", Line::of<&ZNIfcIFInfo::getSeqNum>},
    {"\n               ----------------- ZNIfcIFInfo ----------------\n"},
};

}  // namespace

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

std::string ZNIfcIFInfo::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
