#include <memory>
#include <vector>

#include "tools/import/Rfc8345Reader.h"
#include "tools/network/StoreWriter.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Progress.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

struct ImportOptions {
  std::vector<std::string> files;
  std::string zone;
};

NetworkModel readFile(const std::string& file, NetworkReport& report) {
  Progress progress("Reading " + printable(file));
  return readRfc8345(file, report, [&](double part) { progress.show(part); });
}

/// How many objects the files hold, summed up.
Json contents(const std::vector<NetworkModel>& networks) {
  std::size_t nodes = 0, interfaces = 0, addresses = 0, subnets = 0, vlans = 0, links = 0;
  for (const NetworkModel& network : networks) {
    nodes += network.nodes.size();
    subnets += network.subnets.size();
    vlans += network.vlans.size();
    links += network.links.size();
    for (const NodeModel& node : network.nodes) {
      interfaces += node.interfaces.size();
      for (const InterfaceModel& one : node.interfaces) addresses += one.addresses.size();
    }
  }
  return {{"nodes", nodes},     {"interfaces", interfaces}, {"addresses", addresses},
          {"subnets", subnets}, {"vlans", vlans},           {"links", links}};
}

Json notes(const NetworkReport& report) {
  Json result = Json::array();
  for (const NetworkReport::Note& note : report.notes()) {
    result.push_back({{"what", note.what}, {"count", note.count}, {"first", note.firstWhere}});
  }
  return result;
}

std::string text(const Json& found, const WriteCounts& counts, const NetworkReport& report) {
  std::string result = "Found";
  for (const auto& [kind, number] : found.items()) {
    result +=
        (result.size() > 5 ? ", " : " ") + std::to_string(number.get<std::size_t>()) + " " + kind;
  }
  result += "\nRows: " + std::to_string(counts.added) + " added, " +
            std::to_string(counts.changed) + " changed, " + std::to_string(counts.unchanged) +
            " unchanged\n";
  if (report.notes().empty()) return result;
  TextTable table({"COUNT", "NOT CARRIED OVER AS IT STANDS", "FIRST AT"});
  for (const NetworkReport::Note& note : report.notes()) {
    table.add({std::to_string(note.count), note.what, note.firstWhere});
  }
  return result + table.text();
}

void import(const Context& context, const ImportOptions& options, Answer& answer) {
  chooseStore(context);
  TvDbil::DbConnection_t connection = openTopology();
  NetworkReport report;
  std::vector<NetworkModel> networks;
  for (const std::string& file : options.files) networks.push_back(readFile(file, report));
  WriteCounts counts;
  {
    Progress progress("Writing");
    counts = writeNetworks(connection, networks, options.zone, report,
                           [&](double part) { progress.show(part); });
  }
  const Json found = contents(networks);
  answer.json["found"] = found;
  answer.json["rows"] = {
      {"added", counts.added}, {"changed", counts.changed}, {"unchanged", counts.unchanged}};
  answer.json["notes"] = notes(report);
  answer.text = text(found, counts, report);
}

std::string checkZone(const std::string& zone) {
  return zone.size() > 64 ? "the zone is longer than 64 bytes" : "";
}

}  // namespace

void addImportCommand(CLI::App& app, Context& context) {
  CLI::App* const command = addCommand(
      app, context, "import",
      "Read networks in RFC 8345 JSON (with the attributes of layers 2 and 3) into the store.\n"
      "All files go in together, or none does. Nothing that is in the store is removed.",
      "  zntopo import campus.json\n"
      "  zntopo import --store lab.db --zone lab-b l1.json l2.json\n"
      "docs/import-rfc8345.md tells what becomes of a file.");
  const auto options = std::make_shared<ImportOptions>();
  command->add_option("FILE", options->files, "The files")->required();
  command
      ->add_option("--zone", options->zone,
                   "A name that keeps these networks apart from others with the same identifiers")
      ->check(CLI::Validator(checkZone, "TEXT"));
  command->callback([&context, options] {
    answer(context, {}, [&](Answer& result) { import(context, *options, result); });
  });
}

}  // namespace zntopo::tools
