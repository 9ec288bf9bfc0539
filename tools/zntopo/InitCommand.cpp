#include <unistd.h>

#include "tools/network/PlainText.h"
#include "tools/network/StoreWriter.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Session.h"
#include "zntopo/store/GoodCode.h"
#include "zntopo/store/SchemaScript.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

void require(TvDbil::DbilReturnCode_t code, const MessageList_t& messages,
             const std::string& what) {
  if (!isGood(code)) {
    throw Failure(ZN_API_DB_INIT_FAILURE, what + "\n" + messages.Format(TvXplMsg::fRecurse_k));
  }
}

[[noreturn]] void refuseTopology(const std::string& label) {
  throw Failure(ZN_API_DB_INIT_FAILURE, "There is a topology in \"" + label + "\" already.");
}

void makeFile(const TvDbil::DbSource_t& source, const std::string& label) {
  if (access(source.GetStore().c_str(), F_OK) == 0) {
    openTopology();
    refuseTopology(label);
  }
  MessageList_t messages;
  require(TvDbil::CreateStore(messages, source), messages,
          "The store \"" + label + "\" can't be created.");
}

void makeTables(const std::string& label) {
  TvDbil::DbConnection_t connection = openStore();
  if (hasSchema(connection)) refuseTopology(label);
  MessageList_t messages;
  require(createSchema(messages, connection), messages, "The tables can't be made.");
}

void init(const Context& context, Answer& answer) {
  chooseStore(context);
  MessageList_t messages;
  const TvDbil::DbSource_t source(messages);
  const std::string label = storeLabel(source);
  if (!source.IsOdbc()) makeFile(source, label);
  try {
    makeTables(label);
  } catch (...) {
    // The file was made here, a moment ago.
    if (!source.IsOdbc()) unlink(source.GetStore().c_str());
    throw;
  }
  answer.json["store"] = label;
  answer.text = "Created the store " + printable(label) + "\n";
}

}  // namespace

constinit const Command kInitCommand = {
    .name = "init",
    .about = "Create an empty store; never over an existing one.",
    .examples =
        "  zntopo init --store campus.db\n"
        "  zntopo init --store \"Driver=PostgreSQL Unicode;Servername=db;Database=topo\"",
    .empty = R"({"store": null})",
    .prepare = prepare<init>,
};

}  // namespace zntopo::tools
