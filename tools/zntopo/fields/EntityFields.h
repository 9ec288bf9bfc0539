#pragma once

#include <string>
#include <tuple>

#include "tools/zntopo/NaturalOrder.h"
#include "tools/zntopo/fields/Field.h"
#include "zntopo/model/ZNEntity.h"

/// @file
/// What objects of all kinds have. An object of a table of fields here is a record with the
/// library's object as its member "object".

namespace zntopo::tools {

/// Sorts by name, and objects of one name by their zones.
inline auto naturalKey(const ZNEntity& entity) {
  return std::tuple(Natural{entity.getName()}, Natural{entity.getZoneNumber()},
                    entity.getObjID().toString());
}

/// Field::value of a member of the library's object.
template <auto pointer, typename Details>
Json ofObject(const Details& details) {
  return member<pointer>(*details.object);
}
template <auto pointer, typename Details>
Json knownOfObject(const Details& details) {
  return knownMember<pointer>(*details.object);
}

template <typename Details>
inline constexpr std::array<Field<Details>, 2> kNameFields = {{
    {.key = "name", .head = "NAME", .value = ofObject<&ZNEntity::getName, Details>},
    {.key = "id", .value = ofObject<&ZNEntity::getObjID, Details>},
}};

template <typename Details>
inline constexpr std::array<Field<Details>, 2> kDescriptionFields = {{
    {.key = "description",
     .head = "DESCRIPTION",
     .value = knownOfObject<&ZNEntity::getDescription, Details>},
    {.key = "zone",
     .head = "ZONE",
     .value = knownOfObject<&ZNEntity::getZoneNumber, Details>,
     .isRare = true},
}};

}  // namespace zntopo::tools
