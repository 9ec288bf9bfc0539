#include "zntopo/model/RelatedToAss.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<RelatedToAss>;

constexpr Line kText[] = {
    {"\n------RelatedTo-----------"},
    {"\nLeft:", Line::textOf<&RelatedToAss::getLeftEnd>},
    {"\nRight:", Line::textOf<&RelatedToAss::getRightEnd>},
    {"\nSpeed:",
     [](const RelatedToAss& relation) { return detail::shownAs32Bits(relation.getSpeed()); }},
    {"\nDuplex:", Line::of<&RelatedToAss::isDuplex>},
    {"\nProtocol:", Line::of<&RelatedToAss::getProtocol>},
    {"\nRelType:", Line::of<&RelatedToAss::getRelType>},
    {"\n-------------------------"},
};

}  // namespace

std::string RelatedToAss::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
