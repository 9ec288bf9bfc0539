#pragma once

#include "zntopo/platform/Export.h"

namespace TvXplSync {
class ThreadSync_t;
}

namespace zntopo {

/// The base of everything that touches event sessions.
class ZNTOPO_EXPORT TvSnmpObject {
 public:
  /// Takes the guard of all event sessions of the process. It is not re-entered: who holds it calls
  /// nothing that sends, receives or closes.
  virtual void Lock();
  virtual void Unlock();

 protected:
  TvSnmpObject() = default;
  TvSnmpObject(const TvSnmpObject&) = default;
  TvSnmpObject& operator=(const TvSnmpObject&) = default;
  ~TvSnmpObject() = default;

  /// Held around each send, each receipt and the decoding of each event.
  static TvXplSync::ThreadSync_t s_TVsnmpGuard;
};

}  // namespace zntopo
