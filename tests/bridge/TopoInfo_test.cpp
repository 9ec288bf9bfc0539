#include "zntopo/bridge/detail/TopoInfo.h"

#include <array>
#include <vector>

#include "tests/support/Jvm.h"

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;

class TopoInfoTest : public JvmTest {};

TEST_F(TopoInfoTest, TheFirstFieldThatCantBeSetIsNamedAndNumbersAndTheStateRaiseAnException) {
  const std::string exception = "java.lang.IllegalStateException: Could not set the field ";
  const std::vector<std::array<std::string, 3>> parts{
      {"Nothing", "doSetTopoInfoLong() fail", exception + "cacheTimeStamp of ZorbTopoInfo"},
      {"OneNumber", "doSetTopoInfoLong() fail for myNumNode",
       exception + "myNumNode of ZorbTopoInfo"},
      {"AllButTheLastNumber", "doSetTopoInfoLong() fail for myTopoReadyTime",
       exception + "myTopoReadyTime of ZorbTopoInfo"},
      {"Numbers", "doSetTopoInfoString() fail for topologyState",
       exception + "topologyState of ZorbTopoInfo"},
      {"NumbersAndState", "doSetTopoInfoStringArray() fail for myRDCountName", "null"},
      {"AllButTheCounts", "doSetTopoInfoIntArray() fail for myRDCount", "null"},
  };
  for (const auto& [name, failure, exceptionText] : parts) {
    LocalRef<> object(jni, make("TopoInfoParts$" + name));
    ASSERT_TRUE(object) << name;
    EXPECT_EQ(fillTopoInfo(jni, object, ZNTopologyInfo()), failure);
    EXPECT_EQ(raised(), exceptionText) << name;
  }
}

TEST_F(TopoInfoTest, AWholeOneIsFilled) {
  LocalRef<> object(jni, make("ZorbTopoInfo"));
  EXPECT_EQ(fillTopoInfo(jni, object, ZNTopologyInfo()), "");
  EXPECT_TRUE(object);
  EXPECT_EQ(raised(), "null");
}

}  // namespace
}  // namespace zntopo::test
