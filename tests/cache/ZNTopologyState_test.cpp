#include "zntopo/cache/ZNTopologyState.h"

#include <gtest/gtest.h>

namespace zntopo::test {
namespace {

std::string nameOf(int state) {
  return ZNTopologyState(static_cast<ZNTopologyState::TopoState>(state), 0, {}).getStateAsString();
}

TEST(ZNTopologyStateTest, EachStateHasItsName) {
  EXPECT_EQ("READY", nameOf(0));
  EXPECT_EQ("TOPOLOGY_INTERNAL_PROCESSING", nameOf(1));
  EXPECT_EQ("UNKNOWN", nameOf(2));
  EXPECT_EQ("UNKNOWN", nameOf(3));
  EXPECT_EQ("UNKNOWN", nameOf(-1));
}

TEST(ZNTopologyStateTest, TheTextTellsTheState) {
  EXPECT_EQ(" Topology State = READY\n", ZNTopologyState(ZNTopologyState::READY, 5, {}).toString());
}

TEST(ZNTopologyStateTest, ItHoldsWhatItWasMadeOf) {
  ZNTopologyState::CompleteTopologyState row;
  row.MeshState = 4;
  const ZNTopologyState state(ZNTopologyState::READY, 1234, row);
  EXPECT_EQ(ZNTopologyState::READY, state.getTopoState());
  EXPECT_EQ(1234, state.getLastTopoReadyChangeTime());
  EXPECT_EQ(4, state.getCompleteTopologyState().MeshState);
}

TEST(ZNTopologyStateTest, WithoutArgumentsNothingIsKnown) {
  const ZNTopologyState state;
  EXPECT_EQ(ZNTopologyState::UNKNOWN, state.getTopoState());
  EXPECT_EQ(0, state.getLastTopoReadyChangeTime());
  EXPECT_EQ(0, state.getCompleteTopologyState().TopologyReady);
}

}  // namespace
}  // namespace zntopo::test
