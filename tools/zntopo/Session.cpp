#include "tools/zntopo/Session.h"

#include <unistd.h>

#include <cstdlib>
#include <regex>

#include "tools/network/StoreWriter.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

TvDbil::DbConnection_t openChosen(const Context& context) {
  chooseStore(context);
  return openTopology();
}

ZNRefPtr<ZNTopoAPI> makeApi(Session::Load load) {
  ZNTopoConfig config;
  // A walk must not meet a half-warm cache: see docs/node-cache.md.
  config.setNodeCacheSize(0);
  const bool loadsAll = load == Session::Load::Everything;
  config.setLoadNodeIfcInfo(false);
  config.setLoadNodeVlanInfo(loadsAll);
  config.setLoadNodeL2ConnectionInfo(loadsAll);
  ZNTopoAPIDefaultFactory factory;
  check(factory.initZNTopoAPI(config));
  ZNTopoAPIStatus status;
  ZNRefPtr<ZNTopoAPI> api = factory.getRDInstance(status, ActiveDB);
  check(status);
  return api;
}

}  // namespace

void chooseStore(const Context& context) {
  if (!context.store.empty()) setenv("TV_TOPO_STORE", context.store.c_str(), 1);
}

TvDbil::DbConnection_t openStore() {
  MessageList_t messages;
  const TvDbil::DbSource_t source(messages);
  TvDbil::DbConnection_t connection(messages, &source);
  if (connection.IsValid()) return connection;
  const std::string label = "\"" + storeLabel(source) + "\"";
  if (!source.IsOdbc() && access(source.GetStore().c_str(), F_OK) != 0) {
    throw Failure(ZN_API_DB_CONNECTION_FAILURE,
                  "There is no store " + label + ": \"zntopo init\" creates one.");
  }
  throw Failure(ZN_API_DB_CONNECTION_FAILURE, "The store " + label + " can't be opened.\n" +
                                                  messages.Format(TvXplMsg::fRecurse_k));
}

std::string storeLabel(const TvDbil::DbSource_t& source) {
  if (!source.IsOdbc()) return source.GetStore();
  static const std::regex password(R"(((?:password|pwd)\s*=\s*)(\{(?:[^}]|\}\})*\}?|[^;]*))",
                                   std::regex::icase);
  return std::regex_replace(source.GetStore(), password, "$1***");
}

TvDbil::DbConnection_t openTopology() {
  TvDbil::DbConnection_t connection = openStore();
  if (!hasSchema(connection)) {
    MessageList_t ignored;
    throw Failure(ZN_API_DB_INIT_FAILURE,
                  "\"" + storeLabel(TvDbil::DbSource_t(ignored)) +
                      "\" has no tables of a topology: run \"zntopo init\" for a new store.");
  }
  return connection;
}

Session::Session(const Context& context, Load load)
    : connection_(openChosen(context)), api_(makeApi(load)) {}

}  // namespace zntopo::tools
