#pragma once

#include <cstddef>
#include <string>

#include "zntopo/model/EntityType.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/detail/Rendering.h"

/// @file
/// The text form that the two classes of entities share. They differ in what tells where an object
/// is from, and in whether they tell its route distinguisher.

namespace zntopo::detail {

inline constexpr auto isAtIPv6 = [](const auto& entity) {
  return entity.getIPLevel() == ZNEntity::IPv6;
};

inline constexpr auto hasParent = [](const auto& entity) {
  return !entity.getContainmentParent().getObjID().isNull();
};

template <typename Entity>
inline constexpr Line<Entity> kEntityNames[] = {
    {"\nObjID:", Line<Entity>::template of<&Entity::getObjID>},
    {"\nQRMObjID:", Line<Entity>::template of<&Entity::getQRMObjID>},
    {"\nEntityName:", Line<Entity>::template of<&Entity::getName>},
    {"\nDescription:", Line<Entity>::template of<&Entity::getDescription>},
};

template <typename Entity>
inline constexpr Line<Entity> kEntityKind[] = {
    {"\nEntityType:",
     [](const Entity& entity) { return getEntityTypeAsString(entity.getEntityType()); }},
    {"\nIPLevel:", Line<Entity>::template of<&Entity::getIPLevel>},
    {"\nOverallStatus:", Line<Entity>::template of<&Entity::getOverallStatus>},
};

template <typename Entity>
std::string containmentParentOf(const Entity& entity) {
  const AssEndPoint& parent = entity.getContainmentParent();
  return parent.getName() + "(" + shown(parent.getObjID()) + ")";
}

template <typename Entity>
inline constexpr Line<Entity> kEntityRest[] = {
    {"\nV6CompoundStatus:", Line<Entity>::template of<&Entity::getV6OverallStatus>, nullptr,
     isAtIPv6},
    {"\nV6GlobalStatus:", Line<Entity>::template of<&Entity::getV6GlobalStatus>, nullptr, isAtIPv6},
    {"\nV6SiteStatus:", Line<Entity>::template of<&Entity::getV6SiteStatus>, nullptr, isAtIPv6},
    {"\nStatusChangeTime:", Line<Entity>::template of<&Entity::getStatusChangeTime>},
    {"\nCreateTime:", Line<Entity>::template of<&Entity::getCreateTime>},
    {"\nChangeTime:", Line<Entity>::template of<&Entity::getChangeTime>},
    {"\nContainment Parent:", containmentParentOf<Entity>, nullptr, hasParent},
    {"",
     [](const Entity& entity) {
       return section("\n=========AddressList=========", entity.getAddresses(), asText);
     }},
    {"",
     [](const Entity& entity) {
       return section("\n=========DynamicPropertyList========", entity.getUserVars(), asText);
     }},
};

/// @param origin the line of where the object is from
/// @param behindStatus what only one of the two tells
template <typename Entity, std::size_t... sizes>
std::string entityText(const Entity& entity, const Line<Entity> (&origin)[1],
                       const Line<Entity> (&... behindStatus)[sizes]) {
  return rendered(entity, kEntityNames<Entity>) + rendered(entity, origin) +
         rendered(entity, kEntityKind<Entity>) +
         (std::string() + ... + rendered(entity, behindStatus)) +
         rendered(entity, kEntityRest<Entity>);
}

}  // namespace zntopo::detail
