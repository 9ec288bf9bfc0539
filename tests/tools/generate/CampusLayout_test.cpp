#include "tools/generate/CampusLayout.h"

#include <gtest/gtest.h>

namespace zntopo::tools {
namespace {

CampusPlan planOf(int nodes, std::optional<int> sites = {}) {
  CampusPlan plan;
  plan.nodes = nodes;
  plan.sites = sites;
  return plan;
}

TEST(CampusLayoutTest, SitesAndBackboneMakeUpAllNodes) {
  for (const int nodes : {8, 500, 1000, 10'000, 40'000}) {
    const CampusPlan plan = planOf(nodes);
    const CampusLayout layout(plan);
    int sum = layout.backbones();
    for (const SiteLayout& site : layout.sites()) {
      EXPECT_EQ(site.firstNode, sum);
      EXPECT_GE(site.hosts, 1);
      EXPECT_GE(site.access, 1);
      EXPECT_EQ(site.dists % 2, 0);
      sum += site.nodes();
    }
    EXPECT_EQ(sum, nodes);
  }
}

TEST(CampusLayoutTest, OneSiteHasNoBackbone) {
  EXPECT_EQ(CampusLayout(planOf(100, 1)).backbones(), 0);
  EXPECT_TRUE(CampusLayout(planOf(100, 1)).backboneLinks().empty());
  const CampusPlan plan = planOf(100, 2);
  const CampusLayout layout(plan);
  EXPECT_EQ(layout.backbones(), 2);
  EXPECT_EQ(layout.backboneLinks().size(), 1u);
  EXPECT_NE(layout.backboneOf(0, 0), layout.backboneOf(0, 1));
}

TEST(CampusLayoutTest, SubnetsOfVlansDoNotOverlap) {
  const CampusPlan plan = planOf(20'000, 4);
  const CampusLayout layout(plan);
  long long end = 0;
  for (const SiteLayout& site : layout.sites()) {
    EXPECT_GE(site.vlanBlock, end);
    EXPECT_EQ(site.vlanBlock % site.vlanSize, 0);
    EXPECT_GE(site.vlanSize, site.access + site.dists + 16);
    end = site.vlanBlock + static_cast<long long>(site.vlans()) * site.vlanSize;
  }
}

TEST(CampusLayoutTest, MoreInterfacesMakeFewerHosts) {
  CampusPlan few = planOf(1000, 4), many = planOf(1000, 4);
  few.interfaces = 4000;
  many.interfaces = 40'000;
  EXPECT_GT(CampusLayout(few).sites()[0].hosts, CampusLayout(many).sites()[0].hosts);
}

}  // namespace
}  // namespace zntopo::tools
