#include <gtest/gtest.h>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/model/TopologyGateway.h"

namespace zntopo {
namespace {

/// Operations that are declared and not carried out: each says so and names itself.
class NotYetTest : public testing::Test {
 protected:
  void expectNotYet(const ZNTopoAPIStatus& answer, const std::string& operation) {
    EXPECT_EQ(answer.getStatus(), ZN_API_NOT_SUPPORTED_OPERATION) << operation;
    EXPECT_EQ(answer.getAuxMsg(), operation + " is not supported yet\n");
  }

  ZNTopoAPI api;
  ZNTopoAPI_Impl impl;
  ZNTopoAPIStatus status{ZN_API_NO_PATH, "of before\n"};
};

TEST_F(NotYetTest, QueriesAnswerWithEmptyContainersThatExist) {
#define ZNTOPO_EXPECT_EMPTY(operation, ...)          \
  do {                                               \
    status = ZNTopoAPIStatus(ZN_API_NO_PATH, "old"); \
    const auto result = api.operation(__VA_ARGS__);  \
    ASSERT_TRUE(result) << #operation;               \
    EXPECT_TRUE(result->empty()) << #operation;      \
    expectNotYet(status, #operation);                \
  } while (false)
  ZNTOPO_EXPECT_EMPTY(getAuditTrail, 0, 0, ZNAuditAction::TypeDontCare,
                      ZNAuditTrail::ObjectTypeDontCare, status);
#undef ZNTOPO_EXPECT_EMPTY
}

TEST_F(NotYetTest, StatisticsSayTheSame) {
  EXPECT_EQ(api.getTopologyInfo(status).getNumberOfNode(), 0);
  expectNotYet(status, "getTopologyInfo");
  EXPECT_EQ(impl.getStatistic("select 1", status), 0);
  expectNotYet(status, "getStatistic");
}

}  // namespace
}  // namespace zntopo
