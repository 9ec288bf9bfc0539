#include <cstdlib>

#include "tools/network/PlainText.h"
#include "tools/network/StoreError.h"
#include "tools/network/StoreStatement.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/EnginePlan.h"
#include "tools/zntopo/FilterDocument.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

struct CheckOptions {
  std::string file;
};

void addOptions(CLI::App& command, CheckOptions& options) {
  command.add_option("FILE", options.file, "The document of filters")
      ->required()
      ->check(isNotEmpty("name of the file"));
}

bool isStoreNamed(const Context& context) {
  const char* const store = std::getenv("TV_TOPO_STORE");
  return !context.store.empty() || (store && *store);
}

Json faultJson(const FilterFault& fault) {
  Json json = {{"file", fault.file}, {"line", nullptr}, {"column", nullptr}};
  if (fault.line) json["line"] = *fault.line;
  if (fault.column) json["column"] = *fault.column;
  json["message"] = fault.message;
  return json;
}

/// The filters whose statements the engine of the store does not take.
std::vector<FilterFault> refusedFilters(const Context& context, const FilterDocument& document) {
  Session session(context, Session::Load::NodesAlone);
  std::vector<FilterFault> faults;
  for (const auto& [name, filter] : document.filters()) {
    try {
      enginePlan(session.connection(), statementOf(filter));
    } catch (const StoreError& error) {
      // Of a store that takes nothing any more no filter is at fault: that ends the check.
      selectTexts(session.connection(), "select 1", 1, {});
      FilterFault fault = document.faultOf(name);
      fault.message = "Filter " + name + ": " + onOneLine(error.what());
      faults.push_back(std::move(fault));
    }
  }
  return faults;
}

void checkFilters(const Context& context, const CheckOptions& options, Answer& answer) {
  const FilterDocument document(options.file);
  std::vector<FilterFault> faults = document.faults();
  ZNTopoStatus status = document.status();
  answer.json["file"] = document.file();
  if (status == ZN_API_SUCCESS) {
    answer.json["filters"] = document.filters().size();
    if (isStoreNamed(context)) faults = refusedFilters(context, document);
    if (!faults.empty()) status = ZN_API_SQL_BIND_STATEMENT_ERROR;
  }
  for (const FilterFault& fault : faults) {
    answer.json["errors"].push_back(faultJson(fault));
    answer.text += fault.text() + "\n";
  }
  answer.text += printable(document.file()) + ": " +
                 (faults.empty() ? counted(document.filters().size(), "filter") + ", no error"
                                 : counted(faults.size(), "error")) +
                 "\n";
  answer.status = ZNTopoAPIStatus(status, "");
}

}  // namespace

constinit const Command kFilterCheckCommand = {
    .name = "filter check",
    .about =
        "Tell what is wrong with a document of filters, a line each with file, line and column.\n"
        "That is all that is not valid, or else the first fault that keeps it from being read.\n"
        "If the call or TV_TOPO_STORE names a store, its engine has to take each filter, too.",
    .examples =
        "  zntopo filter check site-filters.xml\n"
        "  zntopo filter check site-filters.xml --store campus.db --json",
    .empty = R"({"file": null, "filters": 0, "errors": []})",
    .prepare = prepare<addOptions, checkFilters>,
};

}  // namespace zntopo::tools
