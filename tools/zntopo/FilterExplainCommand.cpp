#include "tools/zntopo/Commands.h"
#include "tools/zntopo/EnginePlan.h"
#include "tools/zntopo/FilterDocument.h"
#include "tools/zntopo/FilterKind.h"
#include "tools/zntopo/FilterOptions.h"
#include "tools/zntopo/fields/Field.h"

namespace zntopo::tools {

namespace {

std::string joinedLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

/// What the filter is before any store is asked stays, whatever the store says.
void addPlan(const Context& context, const std::string& sql, Answer& answer) {
  try {
    Session session(context, Session::Load::NodesAlone);
    const std::vector<std::string> plan = enginePlan(session.connection(), sql);
    answer.json["plan"] = plan;
    answer.text += "\nPlan of " + session.connection().GetEngineName() + ":\n" + joinedLines(plan);
  } catch (const ToolError& error) {
    answer.status = error.status();
  }
}

void explain(const Context& context, const FilterOptions& options, Answer& answer) {
  const FilterDocument document(options.file);
  document.require();
  const TopoFilt& filter = document.find(options.name);
  const std::string sql = statementOf(filter);
  answer.json["filter"] = filter.getName();
  answer.json["type"] = known(typeWord(filter.getObjType()));
  answer.json["description"] = known(document.description(filter.getName()));
  answer.json["intermediate"] = filter.getWhereQueryString();
  answer.json["sql"] = sql;
  answer.text = "Intermediate form:\n" + filter.getWhereQueryString() + "\n\nSQL:\n" + sql + "\n";
  addPlan(context, sql, answer);
}

}  // namespace

constinit const Command kFilterExplainCommand = {
    .name = "filter explain",
    .about =
        "Show what becomes of a filter: the intermediate form with its references, the statement\n"
        "that asks the store, and the engine's plan for it.",
    .examples =
        "  zntopo filter explain Routers\n"
        "  zntopo filter explain cameras --file site-filters.xml --json",
    .empty = R"({"filter": null, "type": null, "description": null, "intermediate": null,
                 "sql": null, "plan": []})",
    .prepare = prepare<addFilterArgument, explain>,
};

}  // namespace zntopo::tools
