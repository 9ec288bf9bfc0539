#include "tools/zntopo/Session.h"

#include <cstdlib>

#include "tools/import/StoreWriter.h"
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
  const ZNRefPtr<ZNTopoAPI> api = factory.getRDInstance(status, ActiveDB);
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
  if (!connection.IsValid()) {
    throw Failure(ZN_API_DB_CONNECTION_FAILURE, "The store \"" + source.GetStore() +
                                                    "\" can't be opened.\n" +
                                                    messages.Format(TvXplMsg::fRecurse_k) +
                                                    "(\"zntopo init\" creates a new one.)");
  }
  return connection;
}

TvDbil::DbConnection_t openTopology() {
  TvDbil::DbConnection_t connection = openStore();
  if (!hasSchema(connection)) {
    throw Failure(ZN_API_DB_INIT_FAILURE,
                  "The store has no tables of a topology: run \"zntopo init\" first.");
  }
  return connection;
}

Session::Session(const Context& context, Load load)
    : connection_(openChosen(context)), api_(makeApi(load)) {}

}  // namespace zntopo::tools
