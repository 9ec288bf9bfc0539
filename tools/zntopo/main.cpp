#include <CLI/CLI.hpp>
#include <iostream>
#include <sstream>

#include "tools/network/PlainText.h"
#include "tools/zntopo/Commands.h"

#ifndef ZNTOPO_VERSION
#define ZNTOPO_VERSION "unknown"
#endif

namespace zntopo::tools {

namespace {

constexpr const char* kFooter =
    "Exit status: 0 for an answer, 1 for a failure, 2 for a wrong call.\n\n"
    "Examples:\n"
    "  zntopo init --store campus.db\n"
    "  zntopo import --store campus.db campus.json\n"
    "  zntopo path --store campus.db 10.20.3.44 10.20.8.17\n"
    "\"zntopo SUBCOMMAND --help\" shows the options and more examples.";

/// Prints help, version or what is wrong with the call.
int finish(const CLI::App& app, const CLI::ParseError& error, AnswerStream& answers) {
  std::ostringstream out;
  std::ostringstream complaint;
  const int code = app.exit(error, out, complaint);
  std::cerr << printableLines(complaint.str());
  if (!answers.write(out.str())) return ExitFailure;
  return code == 0 ? ExitAnswer : ExitWrongCall;
}

int run(int argc, char** argv) {
  AnswerStream answers;
  Context context{answers, "", false, ExitAnswer};
  CLI::App app("Asks a store of discovered network topology: nodes, neighbours, layer-2 paths.");
  app.name("zntopo");
  app.require_subcommand(1);
  app.set_version_flag("--version", std::string("zntopo ") + ZNTOPO_VERSION);
  app.footer(kFooter);
  addCommands(app, context);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return finish(app, error, answers);
  }
  return context.exitStatus;
}

}  // namespace
}  // namespace zntopo::tools

int main(int argc, char** argv) { return zntopo::tools::run(argc, argv); }
