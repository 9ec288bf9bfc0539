#pragma once

#include "tools/zntopo/GroupKind.h"
#include "tools/zntopo/fields/HsrpFields.h"

namespace zntopo::tools {

/// HSRP groups; users may type their number, too.
extern const GroupKind<HsrpDetails> kHsrpGroups;

/// Reads groups with their members, by identifier; all of them if there is none.
std::vector<HsrpDetails> readHsrpGroups(Session& session, const std::set<ObjID>& ids);

}  // namespace zntopo::tools
