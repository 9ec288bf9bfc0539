#include "tools/network/StoreRows.h"

#include <gtest/gtest.h>

namespace zntopo::tools {
namespace {

std::string placeText(const std::string& name) {
  const PortPlace place = portPlace(name);
  return place.card + " " + place.port;
}

TEST(PortPlaceTest, CardAndPortComeFromTheName) {
  EXPECT_EQ(placeText("Gi1/0/23"), "1/0 23");
  EXPECT_EQ(placeText("xe-0/0/0.0"), "0/0 0");
  EXPECT_EQ(placeText("ethernet1/8"), "1 8");
  EXPECT_EQ(placeText("eth0"), "- 0");
  EXPECT_EQ(placeText("eth1.20"), "- 1");
  EXPECT_EQ(placeText("R1-bridge/p2"), "- 2");
}

TEST(PortPlaceTest, WhatDoesNotFitIsCutOrADash) {
  EXPECT_EQ(placeText("Gi10/0/23"), "10 23");
  EXPECT_EQ(placeText("Vlan1006"), "- -");
  EXPECT_EQ(placeText("lo"), "- -");
  EXPECT_EQ(placeText(""), "- -");
  EXPECT_EQ(placeText("12345/1"), "- 1");
  EXPECT_EQ(placeText("x//1"), "- 1");
}

TEST(CutTextTest, CutsBetweenCharacters) {
  EXPECT_EQ(cutText("abc", 3), "abc");
  EXPECT_EQ(cutText("abc", 2), "ab");
  EXPECT_EQ(cutText("a\xc3\xa4", 2), "a");
  EXPECT_EQ(cutText("a\xe2\x82\xac"
                    "b",
                    4),
            "a\xe2\x82\xac");
  EXPECT_EQ(cutText("a\xe2\x82\xac"
                    "b",
                    3),
            "a");
}

RowOf<NwEntity> entityRow(const std::string& name, int hasAddress) {
  RowOf<NwEntity> row;
  row["ObjId"] = "x";
  row["EntityName"] = name;
  row["hasAddress"] = hasAddress;
  return row;
}

TEST(RowSetTest, ARowThatComesAgainReplacesTheOneBeforeButForStickyFlags) {
  RowSet rows;
  rows.put(entityRow("one", 1));
  rows.put(entityRow("two", 0));
  RowOf<NwVlan> vlan;
  vlan["ObjId"] = "x";
  rows.put(vlan);
  ASSERT_EQ(rows.rows().size(), 2u);
  EXPECT_EQ(rows.rows()[0].cells, entityRow("two", 1).cells);
}

TEST(RowSetTest, WhatIsToldOnceStaysTold) {
  RowSet rows;
  RowOf<NwEntity> told = entityRow("one", 0);
  told["Status"] = 6;
  rows.put(told);
  rows.put(entityRow("one", 0));
  EXPECT_EQ(rows.rows().front().cells, told.cells);
}

TEST(StoreRowsTest, TooLongADescriptionIsCutAndCounted) {
  NetworkModel model;
  NodeModel node;
  node.key = "k";
  node.name = "n";
  node.description = std::string(1999, 'x') + "\xc3\xa4";
  model.nodes.push_back(node);
  RowSet rows;
  NetworkReport report;
  addRows(model, "", rows, report);
  ASSERT_EQ(report.notes().size(), 1u);
  EXPECT_EQ(rows.rows()[0].cells[ColumnOf<NwEntity>("Description").index],
            Cell(std::string(1999, 'x')));
}

TEST(StoreRowsTest, AnIdentifierThatIsToldCountsAndBesideAZoneMakesAnother) {
  NetworkModel model;
  NodeModel node;
  node.key = "k";
  node.id = "told";
  node.zone = "old";
  model.nodes.push_back(node);
  const auto rowOf = [&](const std::string& zone) {
    RowSet rows;
    NetworkReport report;
    addRows(model, zone, rows, report);
    RowOf<NwEntity> row;
    row.cells = rows.rows().front().cells;
    return row;
  };
  EXPECT_EQ(rowOf("")["ObjId"], Cell("told"));
  EXPECT_EQ(rowOf("")["ZoneNumber"], Cell("old"));
  EXPECT_NE(rowOf("new")["ObjId"], Cell("told"));
  EXPECT_EQ(rowOf("new")["ObjId"], rowOf("new")["ObjId"]);
  EXPECT_EQ(rowOf("new")["ZoneNumber"], Cell("new"));
}

TEST(StoreRowsTest, AZoneMakesOtherIdentifiers) {
  NetworkModel model;
  NodeModel node;
  node.key = "k";
  node.name = "n";
  model.nodes.push_back(node);
  RowSet rows;
  NetworkReport report;
  addRows(model, "", rows, report);
  addRows(model, "lab", rows, report);
  EXPECT_EQ(rows.rows().size(), 4u);
}

}  // namespace
}  // namespace zntopo::tools
