#include "tools/network/TableWriter.h"

#include <gtest/gtest.h>

#include "tests/support/ConnectedStore.h"
#include "tools/network/StoreError.h"

namespace zntopo::tools {
namespace {

RowOf<UserDefVar> variable(const std::string& name) {
  RowOf<UserDefVar> row;
  row["ObjID"] = "an-object";
  row["VarName"] = name;
  row["VarValType"] = 3;
  return row;
}

RowOf<NwNode> node(const std::string& id) {
  RowOf<NwNode> row;
  row["ObjId"] = id;
  row["EntityName"] = id;
  return row;
}

using TableWriterTest = test::ConnectedStoreTest;

TEST_P(TableWriterTest, RowsGoInHoweverManyThereAre) {
  TableInserter writer(*connection_, tableDef(UserDefVar), 7);
  constexpr int kRows = 1003;
  for (int i = 0; i < kRows; ++i) writer.put(variable("v" + std::to_string(i)).cells);
  writer.flush();
  writer.flush();
  EXPECT_EQ(writer.counts().added, kRows);
  EXPECT_EQ(store_->count("userdefvar"), kRows);
}

TEST_P(TableWriterTest, CellsOfEachTypeAreReadBackAsTheyWere) {
  RowOf<UserDefVar> row = variable("v");
  row["StrVal"] = "O'Brien; \xc3\xa4 ?";
  row["IntVal"] = -2'147'483'647 - 1;
  row["FloatVal"] = 0.1f;
  TableMerger first(*connection_, tableDef(UserDefVar), 7);
  first.put(row.cells);
  EXPECT_EQ(first.counts().added, 1);
  EXPECT_EQ(value("select StrVal from userdefvar"), "O'Brien; \xc3\xa4 ?");
  EXPECT_EQ(value("select IntVal from userdefvar"), "-2147483648");
  EXPECT_EQ(value("select count(*) from userdefvar where FloatVal between 0.0999 and 0.1001"), "1");
  first.put(row.cells);
  EXPECT_EQ(first.counts().unchanged, 1);
  row["FloatVal"] = 1e-30f;
  first.put(row.cells);
  row["FloatVal"] = Cell();
  first.put(row.cells);
  EXPECT_EQ(first.counts().changed, 2);
  EXPECT_EQ(value("select FloatVal from userdefvar"), "NULL");
}

TEST_P(TableWriterTest, WhatARowDoesNotTellStays) {
  RowOf<NwNode> row = node("n");
  row["SNMPState"] = 2;
  row["Description"] = "here";
  TableMerger writer(*connection_, tableDef(NwNode), 7);
  writer.put(row.cells);
  writer.put(node("n").cells);
  EXPECT_EQ(value("select SNMPState from nwnode"), "2");
  EXPECT_EQ(value("select Description from nwnode"), "NULL");
  writer.put(node("n").cells);
  EXPECT_EQ(writer.counts().unchanged, 1);
}

TEST_P(TableWriterTest, TimesAreThoseOfTheWriter) {
  TableInserter(*connection_, tableDef(NwNode), 7).flush();
  TableInserter first(*connection_, tableDef(NwNode), 7);
  first.put(node("n").cells);
  first.flush();
  TableMerger second(*connection_, tableDef(NwNode), 9);
  RowOf<NwNode> row = node("n");
  row["Description"] = "new";
  second.put(row.cells);
  EXPECT_EQ(value("select CreateTimeUTC from nwnode"), "7");
  EXPECT_EQ(value("select ChangeTimeUTC from nwnode"), "9");
}

TEST_P(TableWriterTest, ARowThatTheTableRefusesIsToldWithItsTable) {
  TableInserter writer(*connection_, tableDef(NwNode), 7);
  writer.put(node("n").cells);
  writer.put(node("n").cells);
  try {
    writer.flush();
    FAIL() << "taken twice";
  } catch (const StoreError& error) {
    EXPECT_NE(std::string(error.what()).find("nwnode"), std::string::npos) << error.what();
  }
}

TEST_P(TableWriterTest, AuditRowsAreComparedAsAWhole) {
  RowOf<NwTopoAuditTrail> row;
  row["ActionTimeUTC"] = 5;
  row["ActionType"] = 2;
  row["ObjID"] = "x";
  row["ActionDetail"] = 0;
  row["ObjectType"] = 1;
  row["ActionInfo"] = "made";
  TableMerger writer(*connection_, tableDef(NwTopoAuditTrail), 7);
  writer.put(row.cells);
  writer.put(row.cells);
  row["ActionInfo"] = "made again";
  writer.put(row.cells);
  EXPECT_EQ(writer.counts().added, 2);
  EXPECT_EQ(writer.counts().unchanged, 1);
}

ZNTOPO_ON_ENGINES(TableWriterTest, test::kEngines);

}  // namespace
}  // namespace zntopo::tools
