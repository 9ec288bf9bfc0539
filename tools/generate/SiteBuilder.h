#pragma once

#include "tools/generate/CampusLayout.h"
#include "tools/network/NetworkModel.h"

namespace zntopo::tools {

/// One site of a campus. Its edge routers are wired to the backbone, if there is one.
NetworkModel buildSite(const CampusPlan& plan, const CampusLayout& layout, int site);

/// The routers between the sites, with a port for each edge router.
NetworkModel buildBackbone(const CampusPlan& plan, const CampusLayout& layout);

}  // namespace zntopo::tools
