#include "zntopo/model/ZNVlanInfo.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<ZNVlanInfo>;

constexpr Line kText[] = {
    {"\n+++++++++++++ZNVlanInfo +++++++++++++"},
    {"\nVlanObjID:", Line::of<&ZNVlanInfo::getVlanObjID>},
    {"\nNodeObjID:", Line::of<&ZNVlanInfo::getNodeObjID>},
    {"\nNodeName:", Line::of<&ZNVlanInfo::getNodeName>},
    {"\nInterface Vlan Information:\n", Line::textLines<&ZNVlanInfo::getVlanIFInfoList>},
    {"\n-------------ZNVlanInfo ---------------"},
};

constexpr Line kXml[] = {
    {"<VlanInfo>\n"},
    {"VlanObjID", Line::of<&ZNVlanInfo::getVlanObjID>, "objID"},
    {"NodeObjID", Line::of<&ZNVlanInfo::getNodeObjID>, "objID"},
    {"NodeName", Line::of<&ZNVlanInfo::getNodeName>, "str"},
    {"",
     [](const ZNVlanInfo& info) {
       return ZNTopoXMLTag::formVlanIfInfoList(info.getVlanIFInfoList());
     }},
    {"</VlanInfo>\n"},
};

}  // namespace

std::string ZNVlanInfo::toString() const { return detail::rendered(*this, kText); }
std::string ZNVlanInfo::toXML() const { return detail::rendered(*this, kXml); }

}  // namespace zntopo
