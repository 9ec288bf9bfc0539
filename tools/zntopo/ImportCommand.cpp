#include <filesystem>
#include <set>
#include <vector>

#include "tools/import/NetworkFormat.h"
#include "tools/network/NetworkCounts.h"
#include "tools/network/PlainText.h"
#include "tools/network/StoreWriter.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Progress.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

struct ImportOptions {
  std::vector<std::string> files;
  /// Empty for what the file's content tells.
  std::string format;
  std::string zone;
};

NetworkModel readNetwork(const std::string& path, const std::string& format,
                         NetworkReport& report) {
  Progress progress("Reading " + path);
  const InputFile file = loadInputFile(path);
  return networkFormat(format, file).read(file, report, [&](double part) { progress.show(part); });
}

/// Reads each file once, however often a call names it.
std::vector<NetworkModel> readNetworks(const ImportOptions& options, NetworkReport& report) {
  std::vector<NetworkModel> networks;
  std::set<std::filesystem::path> known;
  for (const std::string& path : options.files) {
    std::error_code isMissing;
    const auto place = std::filesystem::canonical(path, isMissing);
    if (!isMissing && !known.insert(place).second) continue;
    networks.push_back(readNetwork(path, options.format, report));
  }
  return networks;
}

struct CountedKind {
  const char* member;
  const char* one;
  const char* many;
  std::size_t NetworkCounts::*count;
  /// Said to people only where there is one.
  bool isRare;
};
constexpr CountedKind kCountedKinds[] = {
    {"nodes", "node", "nodes", &NetworkCounts::nodes, false},
    {"interfaces", "interface", "interfaces", &NetworkCounts::interfaces, false},
    {"addresses", "address", "addresses", &NetworkCounts::addresses, false},
    {"subnets", "subnet", "subnets", &NetworkCounts::subnets, false},
    {"vlans", "VLAN", "VLANs", &NetworkCounts::vlans, false},
    {"links", "link", "links", &NetworkCounts::links, false},
    {"meshes", "mesh", "meshes", &NetworkCounts::meshes, true},
    {"hsrp_groups", "HSRP group", "HSRP groups", &NetworkCounts::hsrpGroups, true},
    {"containers", "container", "containers", &NetworkCounts::containers, true},
    {"associations", "association", "associations", &NetworkCounts::associations, true},
};

Json countsJson(const NetworkCounts& counts) {
  Json result = Json::object();
  for (const CountedKind& kind : kCountedKinds) result[kind.member] = counts.*kind.count;
  return result;
}

std::string countsText(const NetworkCounts& counts) {
  std::string result = "Found";
  for (const CountedKind& kind : kCountedKinds) {
    const std::size_t number = counts.*kind.count;
    if (kind.isRare && number == 0) continue;
    result += (result.size() > 5 ? ", " : " ") + std::to_string(number) + " " +
              (number == 1 ? kind.one : kind.many);
  }
  return result + "\n";
}

Json notes(const NetworkReport& report) {
  Json result = Json::array();
  for (const NetworkReport::Note& note : report.notes()) {
    result.push_back({{"what", note.what}, {"count", note.count}, {"first", note.firstWhere}});
  }
  return result;
}

std::string text(const NetworkCounts& found, const WriteCounts& counts,
                 const NetworkReport& report) {
  std::string result = countsText(found) + rowsText(counts);
  if (report.notes().empty()) return result;
  TextTable table({"COUNT", "NOT CARRIED OVER AS IT STANDS", "FIRST AT"});
  for (const NetworkReport::Note& note : report.notes()) {
    table.add({std::to_string(note.count), note.what, note.firstWhere});
  }
  return result + table.text();
}

void import(const Context& context, const ImportOptions& options, Answer& answer) {
  chooseStore(context);
  TvDbil::DbConnection_t connection = openTopology(Purpose::Writing);
  NetworkReport report;
  const std::vector<NetworkModel> networks = readNetworks(options, report);
  const NetworkCounts counts = countNetworks(networks);
  // A store without a node must not say that it is ready.
  if (counts.nodes == 0) throw Failure(ZN_API_ILLEGAL_INPUT, "There is no node in these files.");
  WriteReport written;
  {
    Progress progress("Writing");
    written = writeNetworks(connection, networks, options.zone, report,
                            [&](double part) { progress.show(part); });
  }
  answer.json["found"] = countsJson(counts);
  answer.json["rows"] = rowsJson(written);
  answer.json["notes"] = notes(report);
  answer.text = text(counts, written, report);
}

std::vector<std::string> formatNames() {
  std::vector<std::string> names;
  for (const NetworkFormat& format : networkFormats()) names.emplace_back(format.name);
  return names;
}

void addOptions(CLI::App& command, ImportOptions& options) {
  command.add_option("FILE", options.files, "The files")->required();
  command
      .add_option("--format", options.format,
                  "What the files are (otherwise the first character of each tells)")
      ->type_name("FORMAT")
      ->check(CLI::IsMember(formatNames()));
  addZoneOption(command,
                "A name that keeps these networks apart from others with the same identifiers",
                options.zone);
}

}  // namespace

constinit const Command kImportCommand = {
    .name = "import",
    .about =
        "Read networks into the store: RFC 8345 JSON (with the attributes of layers 2 and 3) or\n"
        "GraphML. All files go in together, or none does. Nothing that is in the store is removed.",
    .examples =
        "  zntopo import campus.json\n"
        "  zntopo import backbone.graphml\n"
        "  zntopo import --store lab.db --zone lab-b l1.json l2.json\n"
        "docs/import-rfc8345.md and docs/import-graphml.md tell what becomes of a file.",
    .empty = R"({"found": null, "rows": null, "notes": []})",
    .prepare = prepare<addOptions, import>,
};

}  // namespace zntopo::tools
