#include "tools/zntopo/Session.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <regex>

#include "tools/network/StoreWriter.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

/// What this user must be allowed for an embedded store; empty if nothing is missing.
std::string missingAccess(const TvDbil::DbSource_t& source) {
  if (source.IsOdbc()) return "";
  const std::filesystem::path file = source.GetStore();
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  if (access(file.c_str(), R_OK | W_OK) != 0) return "You must be allowed to write to this file.";
  if (access(folder.c_str(), W_OK | X_OK) == 0) return "";
  return "You must be allowed to write to the folder of this file, for questions too: the store "
         "keeps files of its own beside it.";
}

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
  const std::string missing = missingAccess(source);
  throw Failure(ZN_API_DB_CONNECTION_FAILURE, "The store " + label + " can't be opened." +
                                                  (missing.empty() ? "" : " " + missing) + "\n" +
                                                  messages.Format(TvXplMsg::fRecurse_k));
}

std::string storeLabel(const TvDbil::DbSource_t& source) {
  if (!source.IsOdbc()) return source.GetStore();
  static const std::regex password(R"(((?:password|pwd)\s*=\s*)(\{(?:[^}]|\}\})*\}?|[^;]*))",
                                   std::regex::icase);
  return std::regex_replace(source.GetStore(), password, "$1***");
}

TvDbil::DbConnection_t openTopology(Purpose purpose) {
  TvDbil::DbConnection_t connection = openStore();
  const bool isTopology = hasSchema(connection);
  if (isTopology && purpose == Purpose::Reading) return connection;
  MessageList_t ignored;
  const TvDbil::DbSource_t source(ignored);
  const std::string label = "\"" + storeLabel(source) + "\"";
  const std::string missing = missingAccess(source);
  if (!missing.empty()) {
    throw Failure(
        ZN_API_DB_CONNECTION_FAILURE,
        "The store " + label + " can't be " + (isTopology ? "written to. " : "used. ") + missing);
  }
  if (isTopology) return connection;
  throw Failure(ZN_API_DB_INIT_FAILURE,
                label + (source.IsOdbc()
                             ? " has no tables of a topology: run \"zntopo init\" for a new store."
                             : " is a file without a topology: remove it or name another."));
}

Session::Session(const Context& context, Load load)
    : connection_(openChosen(context)), api_(makeApi(load)) {}

}  // namespace zntopo::tools
