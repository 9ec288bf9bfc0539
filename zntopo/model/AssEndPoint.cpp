#include "zntopo/model/AssEndPoint.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<AssEndPoint>;

constexpr Line kText[] = {
    {"\n------AssEndPoint-----------"},
    {"\nObjID:", Line::of<&AssEndPoint::getObjID>},
    {"\nType:", [](const AssEndPoint& end) { return getEntityTypeAsString(end.getType()); }},
    {"\nName:", Line::of<&AssEndPoint::getName>},
    {"\n-------------------------"},
};

}  // namespace

std::string AssEndPoint::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
