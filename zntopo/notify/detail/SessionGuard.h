#pragma once

#include "zntopo/notify/TvSnmpObject.h"
#include "zntopo/platform/tvxpl/TvXplSync.h"

namespace zntopo::detail {

/// Holds the guard of the event sessions for a scope.
class SessionGuard final : private TvSnmpObject {
 public:
  SessionGuard() : hold_(s_TVsnmpGuard) {}

 private:
  const TvXplSync::Lock_t hold_;
};

}  // namespace zntopo::detail
