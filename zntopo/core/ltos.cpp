#include "zntopo/core/ltos.h"

namespace zntopo {

std::string ltos(long value) { return std::to_string(value); }

}  // namespace zntopo
