#pragma once

#include "zntopo/model/EntityType.h"

namespace zntopo::tools {

/// What filters of a type select, and who lists it.
struct FilterKind {
  EntityType type;
  /// "node".
  const char* word;
  /// The command that lists these objects, which is also their member in JSON.
  const char* list;
};

inline constexpr FilterKind kFilterKinds[] = {
    {E_Node, "node", "nodes"},
    {E_Interface, "interface", "interfaces"},
    {E_Address, "address", "addresses"},
};

/// The kind of a type; nullptr for a type that no filter has.
constexpr const FilterKind* filterKindOf(EntityType type) {
  for (const FilterKind& kind : kFilterKinds) {
    if (kind.type == type) return &kind;
  }
  return nullptr;
}

/// The word of a type's kind; empty for a type that no filter has.
constexpr const char* typeWord(EntityType type) {
  const FilterKind* const kind = filterKindOf(type);
  return kind ? kind->word : "";
}

}  // namespace zntopo::tools
