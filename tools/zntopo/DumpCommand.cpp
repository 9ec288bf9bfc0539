#include <algorithm>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"

namespace zntopo::tools {

namespace {

struct DumpOptions {
  std::vector<std::string> nodes;
  bool isXml = false;
};

void addOptions(CLI::App& command, DumpOptions& options) {
  addNodeArguments(command, "NODE", options.nodes);
  command.add_flag("--xml", options.isXml,
                   "The XML form, for programs that know it; others take --json of another "
                   "subcommand");
}

void dump(const Context& context, const DumpOptions& options, Answer& answer) {
  Session session(context);
  for (const std::string& text : options.nodes) {
    const NamedNode named = findNode(session, text);
    const ZNNode& node = *named.node;
    // The node keeps the containers that it reads, and they are part of the form.
    node.getAllIfcInfo();
    const std::string form = options.isXml ? node.toXML(true) : node.toString();
    answer.json["nodes"].push_back({{"name", node.getName()},
                                    {"id", node.getObjID().toString()},
                                    {"form", options.isXml ? "xml" : "text"},
                                    {"dump", form}});
    answer.text += form;
  }
  // Values of variables stand behind a tab, which is not fit for every terminal.
  std::replace(answer.text.begin(), answer.text.end(), '\t', ' ');
}

}  // namespace

constinit const Command kDumpCommand = {
    .name = "dump",
    .about = "Print nodes with all that the library knows of them and their interfaces.",
    .examples =
        "  zntopo dump core-1\n"
        "  zntopo dump core-1 core-2 --xml",
    .empty = R"({"nodes": []})",
    .prepare = prepare<addOptions, dump>,
};

}  // namespace zntopo::tools
