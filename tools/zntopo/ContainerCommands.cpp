#include <optional>

#include "tools/zntopo/ContainerGroups.h"

namespace zntopo::tools {

namespace {

std::vector<ContainerDetails> readContainersOf(Session& session, int type) {
  ZNTopoAPIStatus status;
  const auto found = session.api().getIfcsByType(type, status, -1);
  check(status);
  auto containers = detailsOf<ContainerDetails>(*found);
  sortByName(containers);
  return containers;
}

struct ContainersOptions {
  std::optional<int> type;
};

void addOptions(CLI::App& command, ContainersOptions& options) {
  command.add_option("--type", options.type, "Only containers of this type")->type_name("NUMBER");
}

void containers(const Context& context, const ContainersOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  const auto found =
      options.type ? readContainersOf(session, *options.type) : kContainers.read(session, {});
  listingOf(kContainers, found).fill(answer, kContainers.listKey, kContainers.name.word);
}

}  // namespace

constinit const Command kContainersCommand = {
    .name = "containers",
    .about = "List all interface containers, by name.",
    .examples =
        "  zntopo containers\n"
        "  zntopo containers --type 2 --json",
    .empty = R"({"containers": []})",
    .prepare = prepare<addOptions, containers>,
};

constinit const Command kContainerCommand = {
    .name = "container",
    .about = "Show one interface container with its members and its associations.",
    .examples =
        "  zntopo container site1-wan-a\n"
        "  zntopo container site1-core-trunk --json",
    .empty = R"({"container": null})",
    .prepare = prepare<addGroupOptions<kContainers>, showGroup<kContainers>>,
};

}  // namespace zntopo::tools
