#pragma once

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// A number as decimal text, as the format "%ld" gives it.
ZNTOPO_EXPORT std::string ltos(long value);

}  // namespace zntopo
