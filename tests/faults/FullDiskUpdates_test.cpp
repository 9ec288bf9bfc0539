// There is no room left where states are written.

#include "tests/faults/FaultFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/StoreUpdates.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;

constexpr const char* kID = "updated";

/// What a row of a table needs: its columns, and their values by a number. Where the indices would
/// be full before the table is, some rows are made wide by another column.
struct Filling {
  const char* table;
  const char* columns;
  const char* values;
  const char* wideColumn = nullptr;
};

constexpr Filling kFillings[] = {
    {"nwentity", "ObjId", "'f' || n"},
    {"nwnode", "ObjId", "'f' || n"},
    {"nwinterface", "ObjId", "'f' || n"},
    {"nwifc", "ObjId", "'f' || n"},
    {"address", "AddressId", "'f' || n"},
    {"hsrpaddress", "ObjID, AddressID, AddressIfObjID", "'f' || n, 'f' || n, 'f' || n",
     "TrackInterfaceList"},
    {"nwifcasc", "LeftIFContainerObjID, RightIFContainerObjID, RelType", "'f' || n, 'right', 3",
     "Description"},
};

class FullDiskUpdatesTest : public testing::TestWithParam<Engine>, protected FallibleStore {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    make(GetParam(), 0, kBytes);
    addUpdated(*store_, kID);
  }
  void TearDown() override { end(); }

  void takeRoom() {
    if (!store_->isPostgres()) return disk_->fill();
    for (const Filling& filling : kFillings) fill(filling);
  }

  void makeRoom() {
    if (!store_->isPostgres()) return disk_->repair();
    for (const Filling& filling : kFillings) {
      const std::string columns = filling.columns;
      store_->execute(std::string("delete from ") + filling.table + " where " +
                      columns.substr(0, columns.find(',')) + " like 'f%'");
      store_->execute(std::string("vacuum full ") + filling.table);
    }
  }

  std::string writtenBy(const StoreUpdate& update) {
    return update.written(*store_, kID, ActiveDB);
  }

 private:
  void fill(const Filling& filling) {
    int number = 0;
    if (filling.wideColumn != nullptr) {
      const std::string wide = std::string(", ") + filling.wideColumn;
      addRows(filling.table, filling.columns + wide,
              filling.values + std::string(", repeat('x', 250)"), number);
    }
    addRows(filling.table, filling.columns, filling.values, number);
  }

  /// Adds rows from a number on, some at once, until a file may not grow any more.
  void addRows(const std::string& table, const std::string& columns, const std::string& values,
               int& number) {
    constexpr int kAtOnce = 500;
    bool isFitting = true;
    for (; isFitting; number += kAtOnce) {
      isFitting = store_->accepts("insert into " + table + " (" + columns + ") select " + values +
                                  " from generate_series(" + std::to_string(number) + ", " +
                                  std::to_string(number + kAtOnce - 1) + ") n");
    }
  }

  static constexpr long kBytes = 2 << 20;
};

TEST_P(FullDiskUpdatesTest, AnUpdateThatDoesNotFitWritesNothingAndIsToldByItsStatusOrByTheLog) {
  takeRoom();
  OpenImpl impl;
  for (const StoreUpdate& update : storeUpdates()) {
    const CapturedLog log(MC_INFO);
    const std::string before = writtenBy(update);
    const ZNTopoAPIStatus answer = update.run(impl, ObjID(kID));
    EXPECT_EQ(writtenBy(update), before) << update.name();
    if (store_->isPostgres()) {
      EXPECT_EQ(answer.getStatus(), ZN_API_SQL_EXEC_ERROR) << update.name();
      EXPECT_THAT(answer.getAuxMsg(), HasSubstr("could not extend file")) << update.name();
    } else {
      // This engine needs the room when the transaction is committed, and not before.
      EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS) << update.name() << answer.getAuxMsg();
      EXPECT_THAT(log.text(), HasSubstr("Failure in committing transaction")) << update.name();
    }
    EXPECT_EQ(ZNDBTestAccess::connectionCount(), static_cast<int>(ZNDBTestAccess::idleCount()));
  }
}

TEST_P(FullDiskUpdatesTest, WithRoomAgainEveryUpdateIsWritten) {
  takeRoom();
  OpenImpl impl;
  for (const StoreUpdate& update : storeUpdates()) update.run(impl, ObjID(kID));
  makeRoom();
  for (const StoreUpdate& update : storeUpdates()) {
    const ZNTopoAPIStatus answer = update.run(impl, ObjID(kID));
    EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS) << update.name() << answer.getAuxMsg();
    EXPECT_EQ(writtenBy(update), std::to_string(update.value)) << update.name();
  }
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), static_cast<int>(ZNDBTestAccess::idleCount()));
}

ZNTOPO_ON_ENGINES(FullDiskUpdatesTest, kEngines);

/// What fills a server's tables would be answers.
using FullDiskQuestionsTest = FullDiskUpdatesTest;

TEST_P(FullDiskQuestionsTest, QuestionsAreAnsweredAllTheSame) {
  Healthy healthy;
  healthy.learn();
  takeRoom();
  healthy.expectAll("without room");
}

ZNTOPO_ON_ENGINES(FullDiskQuestionsTest, kSqliteDrivers);

}  // namespace
}  // namespace zntopo::test
