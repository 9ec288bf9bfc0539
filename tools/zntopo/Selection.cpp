#include "tools/zntopo/Selection.h"

namespace zntopo::tools {

void Selection::keep(const Identifiers& ids) {
  if (ids_) {
    ids_->keep(ids);
  } else {
    ids_ = ids;
  }
}

Identifiers idsByAttributes(Session& session, AttributeQuery query, const ZNTopoFilter& filter) {
  ZNTopoAPIStatus status;
  const auto ids = (session.api().*query)(filter, status, nullptr);
  check(status);
  return Identifiers(*ids);
}

}  // namespace zntopo::tools
