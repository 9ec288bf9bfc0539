#pragma once

#include <string>

#include "tools/generate/CampusLayout.h"
#include "tools/generate/PartBuilder.h"

namespace zntopo::tools {

// Names and numbers that two parts of a campus must agree on.

inline std::string siteName(const CampusLayout& layout, int site) {
  std::string name = numbered("", site + 1, layout.siteCount());
  if (name.size() < 2) name.insert(0, "0");
  return "site" + name;
}
inline std::string backboneName(const CampusLayout& layout, int router) {
  return numbered("backbone-", router + 1, layout.backbones());
}
inline std::string edgeName(const CampusLayout& layout, int site, int edge) {
  return siteName(layout, site) + "-edge-" + std::to_string(edge + 1);
}
inline const char* wanPortOfEdge() { return "Te0/1/0"; }
/// The backbone router's port for an edge router.
inline std::string wanPortOfBackbone(int site, int edge) {
  return "Hu1/" + std::to_string(site) + "/" + std::to_string(edge);
}

/// The numbers of the wires between routers: first those of the backbone, then each site's.
inline int wanWire(const CampusLayout& layout, int site, int edge) {
  return static_cast<int>(layout.backboneLinks().size()) + site * SiteLayout::kEdges + edge;
}
/// The wires inside a site: each core to each edge, and the edges to each other.
inline int siteWire(const CampusLayout& layout, int site, int number) {
  constexpr int kWires = SiteLayout::kEdges * SiteLayout::kCores + 1;
  return wanWire(layout, layout.siteCount(), 0) + site * kWires + number;
}
/// The loopback address of a router: those of the backbone first, then each site's.
inline IpAddress loopback(const CampusLayout& layout, int site, int number) {
  constexpr std::uint32_t kFirst = 0xc0a80001;  // 192.168.0.1
  constexpr int kOfSite = SiteLayout::kEdges + SiteLayout::kCores;
  const int index = site < 0 ? number : layout.backbones() + site * kOfSite + number;
  return IpAddress::v4(kFirst + static_cast<std::uint32_t>(index));
}

}  // namespace zntopo::tools
