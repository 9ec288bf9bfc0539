#include <algorithm>
#include <cctype>
#include <limits>

#include "tools/generate/GenerateCampus.h"
#include "tools/network/StoreError.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Progress.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

struct GenerateOptions {
  CampusPlan plan;
  int interfacesPerNode = 0;
  int ring = 0;
  std::string ringOf = "switches";
  bool isMerging = false;
  bool isDryRun = false;
};

CampusPlan planOf(const GenerateOptions& options) {
  CampusPlan plan = options.plan;
  if (options.ring > 0) {
    plan.nodes = options.ring;
    plan.shape = options.ringOf == "routers" ? NetworkShape::RouterRing : NetworkShape::SwitchRing;
  }
  if (options.interfacesPerNode > 0) {
    const long long all = static_cast<long long>(plan.nodes) * options.interfacesPerNode;
    if (all > std::numeric_limits<int>::max()) throw PlanError("That is too large a network.");
    plan.interfaces = static_cast<int>(all);
  }
  return plan;
}

CampusCounts write(const Context& context, const CampusPlan& plan, bool isMerging) {
  chooseStore(context);
  TvDbil::DbConnection_t connection = openTopology(Purpose::Writing);
  Progress progress("Writing");
  try {
    return generateCampus(
        connection, plan, [&](double part) { progress.show(part); }, isMerging);
  } catch (const StoreNotEmpty&) {
    TvXplMsg::MessageList_t ignored;
    throw Failure(ZN_API_DB_INIT_FAILURE,
                  "There is topology in \"" + storeLabel(TvDbil::DbSource_t(ignored)) +
                      "\" already: --merge brings this network in beside it, and \"zntopo init\" "
                      "makes a new store.");
  }
}

CampusCounts count(const CampusPlan& plan) {
  Progress progress("Counting");
  return countCampus(plan, [&](double part) { progress.show(part); });
}

std::string memberName(std::string text) {
  std::replace(text.begin(), text.end(), ' ', '_');
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char one) { return static_cast<char>(std::tolower(one)); });
  return text;
}

void tell(const CampusCounts& counts, bool isDryRun, Answer& answer) {
  Json found = Json::object(), tables = Json::object();
  answer.text = isDryRun ? "Would write" : "Generated";
  for (const auto& [kind, number] : counts.objects) {
    answer.text += (found.empty() ? " " : ", ") + std::to_string(number) + " " + kind;
    found[memberName(kind)] = number;
  }
  TextTable table({"TABLE", "ROWS"});
  for (const auto& [name, number] : counts.rows) {
    table.add({name, std::to_string(number)});
    tables[name] = number;
  }
  answer.text += "\n" + (isDryRun ? "" : rowsText(counts)) + table.text();
  answer.json["dry_run"] = isDryRun;
  answer.json["generated"] = found;
  answer.json["rows"] = isDryRun ? rowsJson({}) : rowsJson(counts);
  answer.json["tables"] = tables;
}

void generate(const Context& context, const GenerateOptions& options, Answer& answer) {
  const CampusPlan plan = planOf(options);
  tell(options.isDryRun ? count(plan) : write(context, plan, options.isMerging), options.isDryRun,
       answer);
}

void addSizes(CLI::App& command, GenerateOptions& options) {
  auto* const nodes = command.add_option("--nodes", options.plan.nodes, "Nodes in all")
                          ->check(CLI::PositiveNumber)
                          ->capture_default_str();
  auto* const all = command
                        .add_option("--interfaces", options.plan.interfaces,
                                    "Interfaces in all; 20 a node in a campus, 4 in a ring, "
                                    "unless told")
                        ->check(CLI::PositiveNumber);
  command.add_option("--interfaces-per-node", options.interfacesPerNode, "The same, for one node")
      ->check(CLI::PositiveNumber)
      ->excludes(all);
  auto* const sites =
      command
          .add_option("--sites", options.plan.sites, "Sites; about one for 250 nodes unless told")
          ->check(CLI::PositiveNumber);
  auto* const ring =
      command.add_option("--ring", options.ring, "One ring of so many nodes instead of a campus")
          ->check(CLI::PositiveNumber)
          ->excludes(nodes)
          ->excludes(sites);
  command.add_option("--ring-of", options.ringOf, "What the ring is made of")
      ->check(CLI::IsMember({"switches", "routers"}))
      ->capture_default_str()
      ->needs(ring);
}

void addContents(CLI::App& command, GenerateOptions& options) {
  command.add_option("--seed", options.plan.seed, "The same seed gives the same network")
      ->capture_default_str();
  command
      .add_option("--user-variables", options.plan.userVariableShare,
                  "The part of nodes and interfaces that have user variables, from 0 to 1")
      ->check(CLI::Range(0.0, 1.0))
      ->capture_default_str();
  command
      .add_option("--broken-hsrp", options.plan.brokenGroupShare,
                  "The part of HSRP groups with two active members or none, from 0 to 1")
      ->check(CLI::Range(0.0, 1.0))
      ->capture_default_str();
  addZoneOption(command, "A name that keeps this network apart from others in the store",
                options.plan.zone);
  command.add_flag("--merge", options.isMerging,
                   "Into a store that has topology: rows that differ are written, none is removed");
  command.add_flag("--dry-run", options.isDryRun, "Only show what would be written");
}

void addOptions(CLI::App& command, GenerateOptions& options) {
  addSizes(command, options);
  addContents(command, options);
}

}  // namespace

constinit const Command kGenerateCommand = {
    .name = "generate",
    .about =
        "Write a network that exists nowhere into an empty store: a campus of any size, or a\n"
        "ring. The same options always give the same network.",
    .examples =
        "  zntopo generate --nodes 10000 --interfaces 200000\n"
        "  zntopo generate --nodes 500 --sites 3 --seed 7 --broken-hsrp 0.1 --store lab.db\n"
        "  zntopo generate --ring 5000 --ring-of routers\n"
        "  zntopo generate --nodes 40000 --user-variables 0 --dry-run",
    .empty = R"({"dry_run": null, "generated": null, "rows": null, "tables": null})",
    .prepare = prepare<addOptions, generate>,
};

}  // namespace zntopo::tools
