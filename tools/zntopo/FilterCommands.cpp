#include "tools/zntopo/Commands.h"
#include "tools/zntopo/FilterDocument.h"
#include "tools/zntopo/FilterKind.h"
#include "tools/zntopo/FilterOptions.h"
#include "tools/zntopo/ObjectLists.h"

namespace zntopo::tools {

namespace {

struct ListOptions {
  std::string file;
};

void addListOptions(CLI::App& command, ListOptions& options) {
  addFilterFileOption(command, options.file);
}

/// A filter as a list tells of it.
struct ListedFilter {
  std::string name;
  std::string type;
  std::string description;
};

constexpr Field<ListedFilter> kFilterFields[] = {
    {.key = "name", .head = "NAME", .value = member<&ListedFilter::name>},
    {.key = "type", .head = "SELECTS", .value = knownMember<&ListedFilter::type>},
    {.key = "description",
     .head = "DESCRIPTION",
     .value = knownMember<&ListedFilter::description>,
     .isRare = true},
};

void list(const Context& /*context*/, const ListOptions& options, Answer& answer) {
  const FilterDocument document(options.file);
  answer.json["file"] = document.file();
  document.require();
  std::vector<ListedFilter> filters;
  for (const auto& [name, filter] : document.filters()) {
    filters.push_back({name, typeWord(filter.getObjType()), document.description(name)});
  }
  sortBy(filters, [](const ListedFilter& one) { return Natural{one.name}; });
  Listing<ListedFilter> listing(kFilterFields);
  for (const ListedFilter& one : filters) listing.add(one);
  listing.fill(answer, "filters", "filter");
}

void run(const Context& context, const FilterOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  FilterDocument document(options.file);
  document.require();
  const TopoFilt& filter = document.find(options.name);
  answer.json["filter"] = filter.getName();
  answer.json["type"] = typeWord(filter.getObjType());
  const Identifiers ids = document.run(session, filter);
  if (filter.getObjType() == E_Node) fillNodes(session, ids, answer);
  if (filter.getObjType() == E_Interface) fillInterfaces(session, ids, answer);
  if (filter.getObjType() == E_Address) fillAddresses(session, ids, answer);
}

}  // namespace

constinit const Command kFilterListCommand = {
    .name = "filter list",
    .about = "List the filters of a document, with what they select.",
    .examples =
        "  zntopo filter list\n"
        "  zntopo filter list --file site-filters.xml --json",
    .empty = R"({"file": null, "filters": []})",
    .prepare = prepare<addListOptions, list>,
};

constinit const Command kFilterRunCommand = {
    .name = "filter run",
    .about = "List the nodes, interfaces or addresses that a filter selects.",
    .examples =
        "  zntopo filter run Routers\n"
        "  zntopo filter run cameras --file site-filters.xml --json",
    .empty = R"({"filter": null, "type": null, "nodes": [], "interfaces": [], "addresses": []})",
    .prepare = prepare<addFilterArgument, run>,
};

}  // namespace zntopo::tools
