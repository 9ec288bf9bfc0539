#include "tests/support/TestStore.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zntopo::test {
namespace {

class TestStoreTest : public StoreTest {};

ZNTOPO_ON_ENGINES(TestStoreTest, kEngines);

TEST_P(TestStoreTest, ValuesOfEachKindComeBack) {
  store_->insert("userdefvar", {{"ObjID", "it's"},
                                {"VarName", "v"},
                                {"IntVal", -3},
                                {"FloatVal", 0.5},
                                {"StrVal", nullptr}});
  EXPECT_EQ(store_->value("select ObjID from userdefvar"), "it's");
  EXPECT_EQ(store_->value("select IntVal from userdefvar"), "-3");
  EXPECT_EQ(store_->value("select FloatVal from userdefvar"), "0.5");
  EXPECT_EQ(store_->value("select StrVal from userdefvar"), std::nullopt);
  EXPECT_EQ(store_->value("select StrVal from userdefvar where 1 = 0"), std::nullopt);
  EXPECT_EQ(store_->count("userdefvar"), 1);
}

TEST_P(TestStoreTest, WhatTheStoreRefusesIsThrown) {
  EXPECT_THROW(store_->execute("select from nowhere"), std::runtime_error);
  EXPECT_FALSE(store_->accepts("insert into nwnode (nothing) values (1)"));
  EXPECT_TRUE(store_->accepts("insert into nwnode (ObjId) values ('n')"));
}

TEST_P(TestStoreTest, RowsOfEachKindCanBeAddedInBothSets) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    store_->addNode("n", "name", {{"iplevel", 6}}, set);
    store_->addInterface("i", "n", "eth0", {}, set);
    store_->addEntity("v", "vlan", 4, {}, set);
    store_->addAddress("a", "i", "n", "10.0.0.1", {}, set);
    store_->addLink("i", "j", "n", "m", {}, set);
  }
  EXPECT_EQ(store_->value("select IPLevel from nwnode_update"), "6");
  for (const char* table : {"nwnode", "nwinterface", "address", "NWInterfaceAsc"}) {
    EXPECT_EQ(store_->count(table), 1) << table;
    EXPECT_EQ(store_->count(std::string(table) + "_update"), 1) << table;
  }
  EXPECT_EQ(store_->count("nwentity"), 3);
}

TEST_P(TestStoreTest, TheStateRowStaysOne) {
  store_->setReady();
  store_->setReady(2000);
  EXPECT_EQ(store_->value("select TOPOLOGYREADYCHANGETIME from state"), "2000");
  EXPECT_EQ(store_->count("state"), 1);
}

}  // namespace
}  // namespace zntopo::test
