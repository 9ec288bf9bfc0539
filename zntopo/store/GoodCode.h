#pragma once

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo {

/// True for DBIL_SUCCESS and, unless info counts as a failure, DBIL_SUCCESS_WITH_INFO.
inline bool isGood(TvDbil::DbilReturnCode_t code, bool infoIsGood = true) {
  return code == TvDbil::DBIL_SUCCESS || (infoIsGood && code == TvDbil::DBIL_SUCCESS_WITH_INFO);
}

}  // namespace zntopo
