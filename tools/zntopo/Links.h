#pragma once

#include <list>

#include "tools/zntopo/Session.h"
#include "tools/zntopo/fields/LinkFields.h"
#include "zntopo/model/ZNConnection.h"

namespace zntopo::tools {

/// The links that a walk found, in its order and with their names, each seen from the side from
/// which the walk came.
Listing<NamedLink> linkListing(Session& session, const std::list<ZNConnection>& connections);

}  // namespace zntopo::tools
