#include "zntopo/core/ZNTopoAPIStatus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/core/LogTest.h"
#include "tests/support/Places.h"

using namespace zntopo;
using testing::ElementsAre;
using zntopo::test::setEnv;

namespace {

using ZNTopoAPIStatusTest = zntopo::test::LogTest;

}  // namespace

TEST_F(ZNTopoAPIStatusTest, StartsAsSuccessWithoutAText) {
  const ZNTopoAPIStatus status;
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getStatus(), ZN_API_SUCCESS);
  EXPECT_EQ(status.getConstStatus(), ZN_API_SUCCESS);
  EXPECT_EQ(status.getAuxMsg(), "");
  EXPECT_EQ(status.getStatusMsg(), "Successful API Call");
}

TEST_F(ZNTopoAPIStatusTest, TakesACodeAndAText) {
  const ZNTopoAPIStatus status(ZN_API_NO_PATH, "between a and b");
  EXPECT_FALSE(status.isOK());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "between a and b");
  const ZNTopoAPIStatus copy(status);
  EXPECT_EQ(copy.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(copy.getAuxMsg(), "between a and b");
}

TEST_F(ZNTopoAPIStatusTest, SetStatusLogsTheCodeAtCriticalForSuccessToo) {
  init("app", {"-d", "6"});
  ZNTopoAPIStatus status;
  status.setStatus(ZN_API_SUCCESS);
  status.setStatus(ZN_API_NO_PATH);
  EXPECT_THAT(logged("app.log"), ElementsAre("BEGIN LOGGING - app", "TopoAPI Error Code : 0",
                                             "TopoAPI Error Code : 19"));
}

TEST_F(ZNTopoAPIStatusTest, SetStatusKeepsTheText) {
  ZNTopoAPIStatus status(ZN_API_NO_PATH, "text");
  status.setStatus(ZN_API_SUCCESS);
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "text");
}

TEST_F(ZNTopoAPIStatusTest, AuxiliaryTextsAddUpALineEachAndAllOfThemAreLogged) {
  init("app", {"-d", "6"});
  ZNTopoAPIStatus status;
  status.addAuxMsg("first 100%");
  status.addAuxMsg("");
  status.addAuxMsg("%s");
  EXPECT_EQ(status.getAuxMsg(), "first 100%\n\n%s\n");
  const std::string log = scratch_.read("app.log");
  EXPECT_THAT(log, testing::HasSubstr(" first 100%\n\n"));
  EXPECT_THAT(log, testing::EndsWith(" first 100%\n\n%s\n\n"));
}

TEST_F(ZNTopoAPIStatusTest, ResetForgetsBothAndLogsNothing) {
  init("app", {"-d", "6"});
  ZNTopoAPIStatus status(ZN_API_NO_PATH, "text");
  status.reset();
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  EXPECT_THAT(logged("app.log"), ElementsAre("BEGIN LOGGING - app"));
}

TEST_F(ZNTopoAPIStatusTest, CodesWithoutATextOfTheirOwnAreUnknown) {
  for (const int code : {30, 31, 32, 33, 34, 42, 48, 50, 51, 55, 59, 1000, -1}) {
    EXPECT_EQ(ZNTopoAPIStatus(static_cast<ZNTopoStatus>(code), "").getStatusMsg(),
              "Unknown Error code ")
        << code;
  }
}

TEST_F(ZNTopoAPIStatusTest, TheMessageIsInTheLanguageOfTheEnvironment) {
  setEnv("NLSPATH", test::inBuildTree("data/messages/%l/%N.cat"));
  setEnv("LANG", "de_DE.UTF-8");
  EXPECT_EQ(ZNTopoAPIStatus(ZN_API_NO_PATH, "").getStatusMsg(),
            "Es wurde kein Layer-2-Pfad gefunden");
  EXPECT_EQ(ZNTopoAPIStatus(ZN_API_SQL_FETCH_ERROR, "").getStatusMsg(), "Unbekannter Fehlercode ");
  // These two have no number in the catalogue.
  EXPECT_EQ(ZNTopoAPIStatus(ZN_API_SQL_CONSTRAINT_VIOLATION, "").getStatusMsg(),
            " Uniqueness violation, like inserting a key value that already exists.");
  EXPECT_EQ(ZNTopoAPIStatus(ZN_API_NONUNIQUE_NAME, "").getStatusMsg(),
            " The given name is not unique.");
}

TEST_F(ZNTopoAPIStatusTest, TheMessageIsTheDefaultWithoutALanguage) {
  setEnv("NLSPATH", test::inBuildTree("data/messages/de/%N.cat"));
  EXPECT_EQ(ZNTopoAPIStatus(ZN_API_NO_PATH, "").getStatusMsg(), "No layer 2 path is found");
}
