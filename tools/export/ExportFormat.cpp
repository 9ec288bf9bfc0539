#include "tools/export/ExportFormat.h"

#include <algorithm>

#include "tools/export/DotWriter.h"
#include "tools/export/GraphmlWriter.h"
#include "tools/export/JsonWriter.h"
#include "tools/export/Rfc8345Writer.h"

namespace zntopo::tools {

namespace {

void rfc8345(const StoredNetwork& network, std::ostream& out, NetworkReport& report) {
  writeRfc8345(network.model, out, report);
}
void graphml(const StoredNetwork& network, std::ostream& out, NetworkReport&) {
  writeGraphml(network, out);
}
void dot(const StoredNetwork& network, std::ostream& out, NetworkReport&) {
  writeDot(network, {.hasInterfaces = true}, out);
}
void json(const StoredNetwork& network, std::ostream& out, NetworkReport&) {
  writeNetworkJson(network, out);
}

}  // namespace

const std::vector<ExportFormat>& exportFormats() {
  static const std::vector<ExportFormat> formats = {
      {.name = "rfc8345", .write = rfc8345},
      {.name = "graphml", .write = graphml},
      {.name = "dot", .write = dot},
      {.name = "json", .write = json},
  };
  return formats;
}

const ExportFormat& exportFormat(const std::string& name) {
  const auto& all = exportFormats();
  return *std::find_if(all.begin(), all.end() - 1,
                       [&](const ExportFormat& one) { return name == one.name; });
}

}  // namespace zntopo::tools
