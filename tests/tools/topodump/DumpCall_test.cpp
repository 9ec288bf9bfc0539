#include "tools/topodump/DumpCall.h"

#include <gtest/gtest.h>

namespace zntopo::tools {
namespace {

struct Case {
  std::vector<std::string> words;
  DumpCall call;
};

TEST(DumpCallTest, EachFormOfTheUsageIsACall) {
  const Case cases[] = {
      {{"-node"}, {.kind = DumpCall::Nodes}},
      {{"-nodeif"}, {.kind = DumpCall::NodesWithInterfaces}},
      {{"-node", "7"}, {.kind = DumpCall::Nodes, .routeDistinguisher = 7}},
      {{"-node", "core-1"}, {.kind = DumpCall::Nodes, .node = "core-1"}},
      {{"-node", "10.0.0.1", "7"},
       {.kind = DumpCall::Nodes, .node = "10.0.0.1", .routeDistinguisher = 7}},
      {{"-nodeif", "7", "8"},
       {.kind = DumpCall::NodesWithInterfaces, .node = "7", .routeDistinguisher = 8}},
      {{"-nodeif", "-filt", "Routers"},
       {.kind = DumpCall::NodesWithInterfaces, .filter = "Routers"}},
      {{"-if", "-filt", "Up"}, {.kind = DumpCall::Interfaces, .filter = "Up"}},
      {{"-info"}, {.kind = DumpCall::Info}},
      {{"-lfilt"}, {.kind = DumpCall::Filters}},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(testing::PrintToString(one.words));
    const std::optional<DumpCall> call = dumpCallOf(one.words);
    ASSERT_TRUE(call);
    EXPECT_EQ(call->kind, one.call.kind);
    EXPECT_EQ(call->node, one.call.node);
    EXPECT_EQ(call->routeDistinguisher, one.call.routeDistinguisher);
    EXPECT_EQ(call->filter, one.call.filter);
  }
}

TEST(DumpCallTest, OtherWordsAreNone) {
  const std::vector<std::string> calls[] = {
      {},
      {"node"},
      {"-nodes"},
      {"-info", "core-1"},
      {"-lfilt", "x"},
      {"-if"},
      {"-if", "core-1"},
      {"-if", "-filt"},
      {"-node", "-filt"},
      {"-node", "-filt", ""},
      {"-node", "-filt", "a", "b"},
      {"-node", ""},
      {"-node", "-x"},
      {"-node", "-x", "7"},
      {"-node", "core-1", "x"},
      {"-node", "core-1", "-1"},
      {"-node", "core-1", "99999999999"},
      {"-node", "core-1", "7", "8"},
  };
  for (const auto& words : calls) {
    EXPECT_FALSE(dumpCallOf(words)) << testing::PrintToString(words);
  }
}

}  // namespace
}  // namespace zntopo::tools
