#pragma once

#include <string>

#include "zntopo/notify/NotificationFilter.h"

namespace zntopo::detail {

/// The filter as the event session takes it; empty for NONE and for numbers that are no filter.
std::string filterText(NotificationFilter filter);

}  // namespace zntopo::detail
