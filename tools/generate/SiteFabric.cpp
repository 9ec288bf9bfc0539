#include "tools/generate/SiteFabric.h"

#include "tools/generate/CampusNames.h"

namespace zntopo::tools {

namespace {

constexpr int kFirstDataVlan = 100;

struct CommonVlanText {
  int number;
  const char* name;
};
/// In the order of the enumeration.
constexpr CommonVlanText kCommonVlans[] = {{10, "management"}, {20, "servers"}, {30, "voice"}};

void addVlans(SiteFabric& site) {
  NetworkModel& model = site.part.model();
  for (int i = 0; i < site.layout.vlans(); ++i) {
    const bool isCommon = i < SiteLayout::kCommonVlans;
    const int number =
        isCommon ? kCommonVlans[i].number : kFirstDataVlan + i - SiteLayout::kCommonVlans;
    const std::string name = isCommon ? kCommonVlans[i].name : "data-" + std::to_string(number);
    const std::string siteText = siteName(site.campus, site.layout.index);
    site.vlans.push_back(
        model.vlanOf(siteText + "/vlan/" + std::to_string(number), siteText + "-" + name, number));
    VlanModel& vlan = model.vlans.back();
    vlan.legacyId = site.part.nextLegacyId();
    vlan.status = site.part.status();
    vlan.description = "VLAN " + std::to_string(number) + " for " + name;
  }
  site.nextMember.assign(site.vlans.size(), SiteFabric::kFirstMember);
}

std::vector<Index> addNodes(SiteFabric& site, NodeRole role, const std::string& text, int count) {
  std::vector<Index> result;
  for (int i = 0; i < count; ++i) {
    result.push_back(site.part.addNode(role, site.name(text, i, count), site.layout.index));
  }
  return result;
}

}  // namespace

SiteFabric::SiteFabric(const CampusPlan& plan, const CampusLayout& theCampus, int site)
    : part(plan, site, theCampus.sites()[site].firstNode, theCampus.sites()[site].firstInterface),
      campus(theCampus),
      layout(theCampus.sites()[site]) {}

std::string SiteFabric::name(const std::string& role, int number, int count) const {
  return numbered(siteName(campus, layout.index) + "-" + role + "-", number + 1, count);
}

Index SiteFabric::dataVlanOf(int accessSwitch) const {
  return vlans[SiteLayout::kCommonVlans + accessSwitch / SiteLayout::kAccessOfVlan];
}

std::set<Index> SiteFabric::vlansOf(int accessSwitch) const {
  return {vlans[Management], vlans[Servers], vlans[Voice], dataVlanOf(accessSwitch)};
}

int SiteFabric::v4Length() const {
  int length = 32;
  for (int size = layout.vlanSize; size > 1; size /= 2) --length;
  return length;
}

IpAddress SiteFabric::v4(Index vlan, int member) const {
  constexpr std::uint32_t kFirst = 0x0a000000;  // 10.0.0.0
  const long long offset =
      layout.vlanBlock + static_cast<long long>(vlan) * layout.vlanSize + member;
  return IpAddress::v4(kFirst + static_cast<std::uint32_t>(offset));
}

IpAddress SiteFabric::v6(Index vlan, int member) const {
  constexpr std::uint64_t kFirst = 0x20010db800000000;  // 2001:db8::
  return IpAddress::v6(kFirst + (static_cast<std::uint64_t>(layout.index) << 16) + vlan,
                       static_cast<std::uint64_t>(member));
}

void addFabricNodes(SiteFabric& site) {
  addVlans(site);
  site.edges = addNodes(site, NodeRole::Edge, "edge", SiteLayout::kEdges);
  site.cores = addNodes(site, NodeRole::Core, "core", SiteLayout::kCores);
  site.dists = addNodes(site, NodeRole::Distribution, "dist", site.layout.dists);
  site.access = addNodes(site, NodeRole::Access, "access", site.layout.access);
}

}  // namespace zntopo::tools
