#pragma once

#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// What the new value of an attribute is.
enum AttrValType : int { E_Integer = 0, E_String = 1 };

/// The number of an attribute in events: 999 for one that is no enumerator.
ZNTOPO_EXPORT int getTopoAttrTypeAsInt(TopologyAttributeType type);
/// The attribute of a number in events. Numbers that are no enumerator, 999 among them, give the
/// number behind the last enumerator, 7.
ZNTOPO_EXPORT TopologyAttributeType getTopoAttrTypeFromInt(int value);
ZNTOPO_EXPORT int getAttrValTypeAsInt(AttrValType type);
/// Other numbers than the enumerators' are passed through.
ZNTOPO_EXPORT AttrValType getAttrValTypeFromInt(int value);

}  // namespace zntopo
