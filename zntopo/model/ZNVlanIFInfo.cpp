#include "zntopo/model/ZNVlanIFInfo.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<ZNVlanIFInfo>;

constexpr Line kText[] = {
    {"(IFID:", Line::of<&ZNVlanIFInfo::getIFObjID>},
    {", PortNo:", Line::of<&ZNVlanIFInfo::getPortNumber>},
    {", BoardNo:", Line::of<&ZNVlanIFInfo::getBoardNumber>},
    {")"},
};

}  // namespace

std::string ZNVlanIFInfo::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
