#include "bench/support/BenchStore.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace zntopo::bench {

void check(TvDbil::DbilReturnCode_t code, const TvXplMsg::MessageList_t& messages) {
  if (code == TvDbil::DBIL_SUCCESS || code == TvDbil::DBIL_SUCCESS_WITH_INFO) return;
  throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
}

TvDbil::DbConnection_t connect() {
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages);
  TvDbil::DbConnection_t connection(messages, &source);
  if (!connection.IsValid()) throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
  return connection;
}

void provideStore(const Setting& setting) {
  setenv("TV_TOPO_STORE", setting.store.c_str(), 1);
  connect();
}

}  // namespace zntopo::bench
