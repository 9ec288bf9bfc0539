#pragma once

#include <string>

#include "zntopo/core/ZNTopoAPIStatus.h"

namespace zntopo::detail {

/// Sets a status with an auxiliary text.
inline void setFailure(ZNTopoAPIStatus& status, ZNTopoStatus code, const std::string& text) {
  status.setStatus(code);
  status.addAuxMsg(text);
}

}  // namespace zntopo::detail
