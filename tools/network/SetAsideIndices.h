#pragma once

#include <string>
#include <vector>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// Drops the indices of an embedded store's active tables, to make them again when the tables are
/// full: an index that is made from sorted rows costs a fraction of one that grows in the order
/// in which rows come, and its file is smaller. On a server nothing happens: who may write rows
/// there need not own the tables.
///
/// To be used within a transaction, whose rollback brings the indices back. Each operation throws
/// StoreError.
class SetAsideIndices {
 public:
  /// The connection must outlive this object.
  explicit SetAsideIndices(TvDbil::DbConnection_t& connection);
  void makeAgain();

 private:
  TvDbil::DbConnection_t& connection_;
  /// The statements that make them.
  std::vector<std::string> statements_;
};

}  // namespace zntopo::tools
