#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zntopo/platform/tvdbil/detail/OdbcHandles.h"
#include "zntopo/platform/tvdbil/detail/Statement.h"

namespace TvDbil::detail {

class OdbcConnection;

class OdbcStatement : public Statement {
 public:
  OdbcStatement(std::shared_ptr<Connection> self, OdbcConnection& connection)
      : Statement(std::move(self)), odbc_(connection) {}

 protected:
  DbilReturnCode prepare(MessageList_t& messages, std::string_view text) override;
  DbilReturnCode execute(MessageList_t& messages) override;
  int columnCount() override;
  bool knowsColumnsEarly() const override;
  DbilReturnCode next(MessageList_t& messages) override;
  void closeCursor() override;
  void freeHandle() override { cursor_.reset(); }

 private:
  /// What the driver reads of a parameter. Its indicators have 8 bytes, the interface's ints 4.
  struct Input {
    SQLINTEGER number = 0;
    SQLLEN indicator = 0;
  };

  /// What the driver writes of a column: a text straight into the caller's buffer, a number as
  /// text into this one, so that every driver's numbers are read by the same rules.
  struct Output {
    BoundColumn column;
    SQLLEN indicator = 0;
    char digits[64] = {};
  };

  SQLRETURN bindInput(int position, const BoundParm& parm, Input& input);
  SQLRETURN bindOutput(int number, Output& output);
  DbilReturnCode bindOutputs(MessageList_t& messages);
  static DbilReturnCode settle(const Output& output);
  DbilReturnCode fail(MessageList_t& messages);

  OdbcConnection& odbc_;
  OdbcCursor cursor_;
  std::vector<Input> inputs_;
  std::vector<Output> outputs_;
  int outputsVersion_ = -1;
};

}  // namespace TvDbil::detail
