#include "tools/network/StoreWriter.h"

#include <algorithm>
#include <ctime>
#include <limits>
#include <memory>
#include <optional>

#include "tools/network/SetAsideIndices.h"
#include "tools/network/StateRow.h"
#include "tools/network/StoreRows.h"
#include "tools/network/StoreStatement.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

int timeNow() {
  return static_cast<int>(
      std::min<std::time_t>(std::time(nullptr), std::numeric_limits<int>::max()));
}

constexpr const char* kNothingWritten = "Nothing was written: the store is as it was.";
constexpr const char* kPerhapsWritten =
    "The store was lost while all of it was being made to count, so it is there as a whole or not "
    "at all. Write it again: what is there already stays as it is.";

StoreError withNote(const StoreError& error, const char* note) {
  std::string text = error.what();
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return StoreError(text + "\n" + note);
}

/// A transaction that is rolled back unless it was committed.
class Transaction {
 public:
  explicit Transaction(TvDbil::DbConnection_t& connection) : connection_(connection) {
    MessageList_t messages;
    if (connection_.StartTransaction(messages) != TvDbil::DBIL_SUCCESS) {
      throw StoreError("can't start a transaction", messages);
    }
  }
  ~Transaction() {
    if (!connection_.InTransaction()) return;
    MessageList_t ignored;
    connection_.RollbackTransaction(ignored);
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit() {
    MessageList_t messages;
    if (connection_.CommitTransaction(messages) == TvDbil::DBIL_SUCCESS) return;
    const StoreError error("can't commit", messages);
    if (connection_.IsValid()) throw withNote(error, kNothingWritten);
    throw withNote(error, kPerhapsWritten);
  }

 private:
  TvDbil::DbConnection_t& connection_;
};

/// Takes the place of the one writer before anything is read: a reader that turns into a writer
/// would be refused at once by the embedded store while another one writes, instead of waiting.
void waitForTurn(TvDbil::DbConnection_t& connection) {
  executeText(connection, "update state set TopologyReady = TopologyReady where 1 = 0",
              "the store can't be written to now");
}

bool isEmpty(TvDbil::DbConnection_t& connection, const TableDef& table) {
  const std::string sql =
      std::string("select ") + table.columns.front().name + " from " + table.name + " limit 1";
  CellStatement statement(connection, table, sql);
  statement.bindResults({0});
  statement.execute();
  return !statement.fetch();
}

bool isEmpty(TvDbil::DbConnection_t& connection) {
  return std::all_of(kTables.begin(), kTables.end(),
                     [&](const TableDef& table) { return isEmpty(connection, table); });
}

/// The engine that shares our process has little memory for pages by default, and would write
/// many of them several times. Others have no such statement.
void makeRoom(TvDbil::DbConnection_t& connection) {
  if (connection.GetEngineName() != "SQLite") return;
  executeText(connection, "pragma cache_size = -131072", "can't make room for the store's pages");
}

/// Hears of rows as they pass, and tells the part done by the nodes among them.
class PassingRows : public RowSink {
 public:
  /// The share is what the passing of the rows is of the whole work.
  PassingRows(std::size_t nodes, const std::function<void(double)>& progress, double share = 1)
      : nodes_(nodes), progress_(progress), share_(share) {}

  void put(Row row) override {
    if (row.table == NwNode && progress_) {
      progress_(share_ * static_cast<double>(seen_++) / static_cast<double>(nodes_));
    }
    pass(std::move(row));
  }

 protected:
  virtual void pass(Row row) = 0;

 private:
  std::size_t nodes_;
  std::size_t seen_ = 0;
  const std::function<void(double)>& progress_;
  double share_;
};

/// Counts rows, and nothing else.
class CountedRows : public PassingRows {
 public:
  using PassingRows::PassingRows;
  const WriteReport& report() const { return report_; }

 protected:
  void pass(Row row) override {
    ++report_.added;
    ++report_.tables[row.table].added;
  }

 private:
  WriteReport report_;
};

/// The indices of an empty store are made when all rows are there.
constexpr double kShareBeforeIndices = 0.85;

/// Writes rows into their tables, as they come.
class WrittenRows : public PassingRows {
 public:
  WrittenRows(TvDbil::DbConnection_t& connection, int time, bool isInserting, std::size_t nodes,
              const std::function<void(double)>& progress)
      : PassingRows(nodes, progress, isInserting ? kShareBeforeIndices : 1),
        connection_(connection),
        time_(time),
        isInserting_(isInserting) {
    if (isInserting) indices_.emplace(connection);
  }

  /// Writes the rest, and tells what became of all.
  WriteReport finish() {
    WriteReport report;
    for (int table = 0; table < TableCount; ++table) {
      if (!writers_[table]) continue;
      writers_[table]->flush();
      report.tables[table] = writers_[table]->counts();
      report += report.tables[table];
    }
    if (indices_) indices_->makeAgain();
    return report;
  }

 protected:
  void pass(Row row) override {
    auto& writer = writers_[row.table];
    if (!writer) writer = makeWriter(tableDef(row.table));
    writer->put(std::move(row.cells));
  }

 private:
  std::unique_ptr<TableWriter> makeWriter(const TableDef& table) {
    if (isInserting_) return std::make_unique<TableInserter>(connection_, table, time_);
    return std::make_unique<TableMerger>(connection_, table, time_);
  }

  TvDbil::DbConnection_t& connection_;
  int time_;
  bool isInserting_;
  std::optional<SetAsideIndices> indices_;
  std::array<std::unique_ptr<TableWriter>, TableCount> writers_;
};

template <typename Write>
WriteReport writeUncommitted(TvDbil::DbConnection_t& connection, const Write& write) try {
  waitForTurn(connection);
  const WriteReport report = write(isEmpty(connection));
  markReady(connection, report.isAnyChange(), timeNow());
  return report;
} catch (const StoreNotEmpty&) {
  throw;
} catch (const StoreError& error) {
  throw withNote(error, kNothingWritten);
}

/// Runs the writing of rows within a transaction.
template <typename Write>
WriteReport inTransaction(TvDbil::DbConnection_t& connection, const Write& write) {
  makeRoom(connection);
  Transaction transaction(connection);
  const WriteReport report = writeUncommitted(connection, write);
  transaction.commit();
  return report;
}

void passParts(const NetworkParts& parts, const std::string& zone, RowSink& rows) {
  NetworkReport ignored;
  for (std::size_t i = 0; i < parts.count; ++i) addRows(parts.part(i), zone, rows, ignored);
}

}  // namespace

WriteReport writeNetworks(TvDbil::DbConnection_t& connection,
                          const std::vector<NetworkModel>& networks, const std::string& zone,
                          NetworkReport& report, const std::function<void(double)>& progress) {
  RowSet rows;
  std::size_t nodes = 0;
  for (const NetworkModel& network : networks) {
    addRows(network, zone, rows, report);
    nodes += network.nodes.size();
  }
  return inTransaction(connection, [&](bool isEmptyStore) {
    WrittenRows written(connection, timeNow(), isEmptyStore, nodes, progress);
    for (Row& row : rows.take()) written.put(std::move(row));
    return written.finish();
  });
}

WriteReport writeParts(TvDbil::DbConnection_t& connection, const NetworkParts& parts,
                       const std::string& zone, int time, bool isMerging,
                       const std::function<void(double)>& progress) {
  return inTransaction(connection, [&](bool isEmptyStore) {
    if (!isEmptyStore && !isMerging) throw StoreNotEmpty();
    WrittenRows written(connection, time, isEmptyStore, parts.nodes, progress);
    passParts(parts, zone, written);
    return written.finish();
  });
}

WriteReport countParts(const NetworkParts& parts, const std::string& zone,
                       const std::function<void(double)>& progress) {
  CountedRows rows(parts.nodes, progress);
  passParts(parts, zone, rows);
  return rows.report();
}

bool hasSchema(TvDbil::DbConnection_t& connection) {
  MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  return statement.BindSql(messages, "select ObjId from nwentity where 1 = 0") ==
             TvDbil::DBIL_SUCCESS &&
         statement.Exec(messages) == TvDbil::DBIL_SUCCESS;
}

}  // namespace zntopo::tools
