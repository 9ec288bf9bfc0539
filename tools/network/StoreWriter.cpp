#include "tools/network/StoreWriter.h"

#include <algorithm>
#include <ctime>
#include <limits>
#include <memory>
#include <optional>

#include "tools/network/StateRow.h"
#include "tools/network/StoreRows.h"
#include "tools/network/StoreTable.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

int timeNow() {
  return static_cast<int>(
      std::min<std::time_t>(std::time(nullptr), std::numeric_limits<int>::max()));
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
    if (connection_.CommitTransaction(messages) != TvDbil::DBIL_SUCCESS) {
      throw StoreError("can't commit", messages);
    }
  }

 private:
  TvDbil::DbConnection_t& connection_;
};

/// Takes the place of the one writer before anything is read: a reader that turns into a writer
/// would be refused at once by the embedded store while another one writes, instead of waiting.
void waitForTurn(TvDbil::DbConnection_t& connection) {
  MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  if (statement.BindSql(messages, "update state set TopologyReady = TopologyReady where 1 = 0") !=
          TvDbil::DBIL_SUCCESS ||
      statement.Exec(messages) != TvDbil::DBIL_SUCCESS) {
    throw StoreError("the store can't be written to now", messages);
  }
}

void writeRows(TvDbil::DbConnection_t& connection, const RowSet& rows, int now, WriteCounts& counts,
               const std::function<void(double)>& progress) {
  std::vector<std::unique_ptr<TableWriter>> writers(TableCount);
  std::size_t done = 0;
  for (const RowSet::Row& row : rows.rows()) {
    auto& writer = writers[row.table];
    if (!writer) writer = std::make_unique<TableWriter>(connection, tableDef(row.table));
    switch (writer->put(row.cells, now)) {
      case TableWriter::Outcome::Added:
        ++counts.added;
        break;
      case TableWriter::Outcome::Changed:
        ++counts.changed;
        break;
      case TableWriter::Outcome::Unchanged:
        ++counts.unchanged;
        break;
    }
    if (progress && ++done % 256 == 0) {
      progress(static_cast<double>(done) / static_cast<double>(rows.rows().size()));
    }
  }
}

}  // namespace

WriteCounts writeNetworks(TvDbil::DbConnection_t& connection,
                          const std::vector<NetworkModel>& networks, const std::string& zone,
                          NetworkReport& report, const std::function<void(double)>& progress) {
  RowSet rows;
  for (const NetworkModel& network : networks) addRows(network, zone, rows, report);
  const int now = timeNow();
  WriteCounts counts;
  Transaction transaction(connection);
  waitForTurn(connection);
  writeRows(connection, rows, now, counts, progress);
  markReady(connection, counts.isAnyChange(), now);
  transaction.commit();
  return counts;
}

bool hasSchema(TvDbil::DbConnection_t& connection) {
  MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  return statement.BindSql(messages, "select ObjId from nwentity where 1 = 0") ==
             TvDbil::DBIL_SUCCESS &&
         statement.Exec(messages) == TvDbil::DBIL_SUCCESS;
}

}  // namespace zntopo::tools
