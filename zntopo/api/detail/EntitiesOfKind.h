#pragma once

#include <list>
#include <vector>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ZNEntity.h"

namespace zntopo::detail {

/// Objects of one kind, made of the entities of that kind. What a request by identifiers names
/// may be of another kind: such an entity counts as not found.
template <typename T>
std::list<ZNRefPtr<T>> entitiesOfKind(const std::vector<ZNRefPtr<ZNEntity>>& entities,
                                      EntityType kind) {
  std::list<ZNRefPtr<T>> objects;
  for (const ZNRefPtr<ZNEntity>& entity : entities) {
    if (entity->getEntityType() == kind) objects.emplace_back(new T(*entity));
  }
  return objects;
}

}  // namespace zntopo::detail
