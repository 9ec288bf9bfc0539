#pragma once

#include "tools/zntopo/GroupKind.h"
#include "tools/zntopo/fields/ContainerFields.h"

namespace zntopo::tools {

/// Interface containers.
extern const GroupKind<ContainerDetails> kContainers;

void sortByName(std::vector<ContainerDetails>& containers);

}  // namespace zntopo::tools
