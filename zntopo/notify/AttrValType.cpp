#include "zntopo/notify/AttrValType.h"

#include "zntopo/notify/detail/AttributeNumbers.h"

namespace zntopo {

int getTopoAttrTypeAsInt(TopologyAttributeType type) {
  return detail::isAttribute(type) ? type : detail::kNoAttribute;
}

TopologyAttributeType getTopoAttrTypeFromInt(int value) {
  return static_cast<TopologyAttributeType>(detail::isAttribute(value) ? value
                                                                       : detail::kBehindAttributes);
}

int getAttrValTypeAsInt(AttrValType type) { return type; }

AttrValType getAttrValTypeFromInt(int value) { return static_cast<AttrValType>(value); }

}  // namespace zntopo
