// The file of an embedded store is moved, removed or replaced while the process has it open.

#include <unistd.h>

#include <filesystem>

#include "tests/faults/Questions.h"

namespace zntopo::test {
namespace {

namespace fs = std::filesystem;

class ReplacedFileTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    store_.emplace(GetParam());
    path_ = store_->engine().folder() / "topology.db";
    store_->setReady();
    store_->addNode(uuid(1), "alpha.net");
    // What is in the journal goes into the file, which then can be copied.
    store_->value("pragma wal_checkpoint(truncate)");
    ASSERT_EQ(nodeName(), "alpha.net");
    connections_ = ZNDBTestAccess::connectionCount();
  }

  /// The name of the one node; the status where there is none.
  std::string nodeName() {
    ZNTopoAPI_Impl::cache()->clear(true);
    ZNTopoAPIStatus status;
    std::set<ObjID> notFound;
    const auto nodes = OpenImpl().getNodesByObjIDList_Int({}, notFound, status, false, false, true,
                                                          ZNEntity::AllProtocol, -1);
    return nodes->empty() ? statusName(status.getStatus()) : nodes->front()->getName();
  }

  /// Puts another store, with a node of another name, in the place of this one.
  void replaceStore() {
    const fs::path other = path_.string() + ".new";
    fs::copy_file(path_, other);
    executeOn(other.string(), "update nwnode set EntityName = 'omega.net'");
    executeOn(other.string(), "pragma wal_checkpoint(truncate)");
    for (const char* journal : {"-wal", "-shm"}) fs::remove(path_.string() + journal);
    fs::rename(other, path_);
  }

  std::optional<TestStore> store_;
  fs::path path_;
  int connections_ = 0;
};

TEST_P(ReplacedFileTest, AStoreThatWasMovedAwayIsMissedAndFoundAgain) {
  const fs::path elsewhere = path_.string() + ".elsewhere";
  fs::rename(path_, elsewhere);
  EXPECT_EQ(nodeName(), "ZN_API_SQL_START_TRANSACTION_ERROR");
  EXPECT_EQ(nodeName(), "ZN_API_SQL_START_TRANSACTION_ERROR");
  EXPECT_FALSE(fs::exists(path_)) << "no empty store is made in its place";
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), connections_);
  fs::rename(elsewhere, path_);
  EXPECT_EQ(nodeName(), "alpha.net");
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), connections_);
}

TEST_P(ReplacedFileTest, TheStoreInItsPlaceIsReadFromTheNextQueryOn) {
  replaceStore();
  EXPECT_EQ(nodeName(), "omega.net");
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), connections_);
}

TEST_P(ReplacedFileTest, AProcessThatChangesItsFolderKeepsItsStore) {
  const fs::path before = fs::current_path();
  const bool isOdbc = GetParam() == Engine::SqliteOdbc;
  fs::current_path(path_.parent_path());
  setenv("TV_TOPO_STORE", isOdbc ? "Driver=SQLite3;Database=topology.db;" : "topology.db", 1);
  ZNDBTestAccess::forget();
  EXPECT_EQ(nodeName(), "alpha.net");
  fs::current_path("/");
  EXPECT_EQ(nodeName(), "alpha.net");
  fs::current_path(before);
}

ZNTOPO_ON_ENGINES(ReplacedFileTest, kSqliteDrivers);

}  // namespace
}  // namespace zntopo::test
