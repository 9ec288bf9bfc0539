#pragma once

#include <list>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/model/ZNIfc.h"

namespace zntopo::detail {

/// Loads what containers hold: two statements each, and one for the members of all. A container
/// that one of them failed for has what the others gave.
/// @param operation named in the log.
/// @param status the first failure.
/// @return the containers for which all went well.
std::list<ZNRefPtr<ZNIfc>> loadIfcDetails(ZNTopoAPI_Impl& api,
                                          const std::list<ZNRefPtr<ZNIfc>>& containers, bool all,
                                          const char* operation, ZNTopoAPIStatus& status);

}  // namespace zntopo::detail
