#include "zntopo/model/ContainmentAss.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<ContainmentAss>;

constexpr Line kText[] = {
    {"\n------Containment-----------"},
    {"\nContainer:", Line::textOf<&ContainmentAss::getContainer>},
    {"\nContainedList:"},
    {"\n=========================", Line::texts<&ContainmentAss::getContained>},
    {"\n-------------------------"},
};

}  // namespace

std::string ContainmentAss::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
