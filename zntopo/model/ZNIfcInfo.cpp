#include "zntopo/model/ZNIfcInfo.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<ZNIfcInfo>;

constexpr Line kText[] = {
    {"\n\n          +++++++++++++ZNIfcInfo +++++++++++++"},
    {"\n              ObjID:", Line::of<&ZNIfcInfo::getIfcInfoObjID>},
    {"\n\n               +++++++++++++++ZNIfcIFInfoListBegins+++++++++++++++++:\n",
     Line::textLines<&ZNIfcInfo::getAllIfcIFInfos>},
    {"\n               ---------------ZNIfcIFInfoListEnds-----------------:\n"},
    {"\n\n          -------------ZNIfcInfo ---------------"},
};

}  // namespace

std::string ZNIfcInfo::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
