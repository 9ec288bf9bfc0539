#include "zntopo/filter/TopoFilt.h"

#include <gtest/gtest.h>

namespace zntopo {
namespace {

TEST(TopoFiltTest, TheDefaultIsEmptyAndOfNoKind) {
  const TopoFilt filter;
  EXPECT_EQ(filter.getName(), "");
  EXPECT_EQ(filter.getObjType(), E_Unknown);
  EXPECT_EQ(filter.getWhereQueryString(), "");
  EXPECT_EQ(filter.getFinalWhereClause(), "");
}

TEST(TopoFiltTest, ThreeTextsMakeAFilterWithoutAFinalCondition) {
  const TopoFilt filter("up", "Interface", " IF.x = 1 ");
  EXPECT_EQ(filter.getName(), "up");
  EXPECT_EQ(filter.getObjType(), E_Interface);
  EXPECT_EQ(filter.getWhereQueryString(), " IF.x = 1 ");
  EXPECT_EQ(filter.getFinalWhereClause(), "");
}

TEST(TopoFiltTest, TheKindIsComparedToTheLetter) {
  EXPECT_EQ(TopoFilt("", "Node", "").getObjType(), 1);
  EXPECT_EQ(TopoFilt("", "Interface", "").getObjType(), 2);
  EXPECT_EQ(TopoFilt("", "Address", "").getObjType(), 25);
  for (const char* other : {"node", "NODE", "Node ", "Vlan", ""}) {
    EXPECT_EQ(TopoFilt("", other, "").getObjType(), 0) << other;
  }
}

TEST(TopoFiltTest, SettersReturnTheStoredText) {
  TopoFilt filter;
  const std::string& where = filter.setWhereQueryString("w");
  const std::string& final = filter.setFinalWhereClause("f");
  EXPECT_EQ(&where, &filter.getWhereQueryString());
  EXPECT_EQ(&final, &filter.getFinalWhereClause());
  EXPECT_EQ(where + final, "wf");
}

TEST(TopoFiltTest, ACopyStandsForItself) {
  TopoFilt filter("a", "Address", "w");
  const TopoFilt copy = filter;
  filter = TopoFilt();
  EXPECT_EQ(copy.getName(), "a");
  EXPECT_EQ(copy.getObjType(), E_Address);
  EXPECT_EQ(filter.getName(), "");
}

}  // namespace
}  // namespace zntopo
