#include "zntopo/notify/TvSnmpObject.h"

#include "zntopo/platform/tvxpl/TvXplSync.h"

namespace zntopo {

constinit TvXplSync::ThreadSync_t TvSnmpObject::s_TVsnmpGuard;

void TvSnmpObject::Lock() { s_TVsnmpGuard.Lock(); }

void TvSnmpObject::Unlock() { s_TVsnmpGuard.Unlock(); }

}  // namespace zntopo
