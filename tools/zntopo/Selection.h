#pragma once

#include <optional>

#include "tools/zntopo/Lookup.h"
#include "zntopo/api/ZNTopoFilter.h"

namespace zntopo::tools {

/// Identifiers of what meets several conditions, each asked for by itself.
class Selection {
 public:
  /// Another condition, and what meets it.
  void keep(const Identifiers& ids);
  /// What meets all conditions so far; there must be one.
  const Identifiers& ids() const { return ids_.value(); }
  bool hasCondition() const { return ids_.has_value(); }

 private:
  std::optional<Identifiers> ids_;
};

/// An operation of the library that finds identifiers by attributes.
using AttributeQuery = ZNTopoAPI::OwnedIDList (ZNTopoAPI::*)(const ZNTopoFilter&, ZNTopoAPIStatus&,
                                                             BatchInfo*);

/// What such an operation finds. Throws a Failure.
Identifiers idsByAttributes(Session& session, AttributeQuery query, const ZNTopoFilter& filter);

}  // namespace zntopo::tools
