#pragma once

#include <string>

#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// Carries the outcome of an operation: one code, and free text that accumulates a line a call.
///
/// Every query resets it on entry and reports through it; no operation throws. It has no lock:
/// one value belongs to one thread at a time.
class ZNTOPO_EXPORT ZNTopoAPIStatus {
 public:
  ZNTopoAPIStatus() = default;
  ZNTopoAPIStatus(ZNTopoStatus status, const std::string& auxMsg)
      : myStatus(status), myAuxStatusMsg(auxMsg) {}

  /// Back to ZN_API_SUCCESS without a text.
  void reset();
  /// Stores the code, keeps the text, and logs the code at MC_CRITICAL, success included.
  void setStatus(ZNTopoStatus status);
  /// Appends a text and an end of line, and logs all of the text at MC_CRITICAL.
  void addAuxMsg(const std::string& text);

  ZNTopoStatus getStatus() const { return myStatus; }
  ZNTopoStatus getConstStatus() const { return myStatus; }
  bool isOK() const { return myStatus == ZN_API_SUCCESS; }
  const std::string& getAuxMsg() const { return myAuxStatusMsg; }
  /// The message of the code from the catalogue, in the language of LANG.
  std::string getStatusMsg() const;

 private:
  ZNTopoStatus myStatus = ZN_API_SUCCESS;
  std::string myAuxStatusMsg;
};

}  // namespace zntopo
