#include "tools/export/ExportFormat.h"
#include "tools/zntopo/NetworkPart.h"
#include "tools/zntopo/OutputOptions.h"
#include "tools/zntopo/Progress.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

struct ExportOptions {
  PartOptions part;
  OutputOptions output{.format = exportFormats().front().name};
};

/// More than any neighbourhood that can be asked for.
constexpr int kAllNodes = 1'000'000'000;

StoredNetwork read(Session& session, const ExportOptions& options, Answer& answer) {
  StoreScope scope;
  if (options.part.isNeighbourhood()) {
    ZNTopoAPIStatus status;
    scope = neighbourhood(session, options.part.node, options.part.hops, kAllNodes, status);
  }
  if (options.part.isPath()) {
    scope = nodesOf(requirePath(session, options.part.path, answer));
  }
  Progress progress("Reading");
  return readStore(session.api(), session.connection(), scope,
                   [&](double part) { progress.show(part); });
}

std::size_t interfacesOf(const NetworkModel& model) {
  std::size_t count = 0;
  for (const NodeModel& node : model.nodes) count += node.interfaces.size();
  return count;
}

void tell(const StoredNetwork& network, const NetworkReport& report, const ExportOptions& options,
          Answer& answer) {
  const NetworkModel& model = network.model;
  answer.json["nodes"] = model.nodes.size();
  answer.json["interfaces"] = interfacesOf(model);
  answer.json["links"] = model.links.size();
  for (const NetworkReport::Note& note : report.notes()) {
    answer.note += (answer.note.empty() ? "" : "\n") + std::string("Left out: ") +
                   std::to_string(note.count) + " " + note.what + ", first \"" + note.firstWhere +
                   "\"";
  }
  if (!answer.note.empty()) answer.json["note"] = answer.note;
  if (options.output.file.empty()) return;
  answer.text = "Wrote " + options.output.file + ": " + counted(model.nodes.size(), "node") + ", " +
                counted(interfacesOf(model), "interface") + ", " +
                counted(model.links.size(), "link") + "\n";
}

void exportNetwork(const Context& context, const ExportOptions& options, Answer& answer) {
  const ExportFormat& format = exportFormat(options.output.format);
  requireWritable(options.output);
  Session session(context);
  const StoredNetwork network = read(session, options, answer);
  NetworkReport report;
  writeDocument(
      context, options.output, [&](std::ostream& out) { format.write(network, out, report); },
      answer);
  tell(network, report, options, answer);
}

void addOptions(CLI::App& command, ExportOptions& options) {
  std::vector<std::string> names;
  for (const ExportFormat& format : exportFormats()) names.emplace_back(format.name);
  addPartOptions(command, options.part,
                 "Only the layer-2 path from here, as \"zntopo path\" finds it");
  command.get_option("--node")->excludes(command.get_option("--from"));
  addOutputOptions(command, options.output, names, "What to write")->capture_default_str();
}

}  // namespace

constinit const Command kExportCommand = {
    .name = "export",
    .about =
        "Write the network into a file for other programs: RFC 8345 JSON, which \"zntopo import\"\n"
        "makes the same network of, GraphML, a graph for Graphviz, or plain JSON.",
    .examples =
        "  zntopo export --output campus.json\n"
        "  zntopo export --format graphml --node core-1 --hops 2\n"
        "  zntopo export --format dot --from access-1 --to srv-nms | dot -Tsvg > path.svg\n"
        "docs/export.md tells what each format holds.",
    .empty = R"({"output": null, "nodes": 0, "interfaces": 0, "links": 0, "document": null,
                 "note": null})",
    .prepare = prepare<addOptions, exportNetwork>,
};

}  // namespace zntopo::tools
