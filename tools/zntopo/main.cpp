#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <optional>
#include <sstream>
#include <vector>

#include "tools/network/PlainText.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Spelling.h"

#ifndef ZNTOPO_VERSION
#define ZNTOPO_VERSION "unknown"
#endif

namespace zntopo::tools {

namespace {

constexpr const char* kFooter =
    "Exit status: 0 for an answer, 1 for a failure, 2 for a wrong call, 3 for a failure of the\n"
    "events alone: \"set\" has written the store, \"watch\" has lost its broker.\n\n"
    "Examples:\n"
    "  zntopo init --store campus.db\n"
    "  zntopo import --store campus.db campus.json\n"
    "  zntopo path --store campus.db 10.20.3.44 10.20.8.17\n"
    "\"zntopo SUBCOMMAND --help\" shows the options and more examples.";

/// "help" and "help NAME" mean "--help" and "NAME --help".
std::vector<std::string> withHelpWord(std::vector<std::string> words) {
  if (words.empty() || words.front() != "help") return words;
  words.erase(words.begin());
  words.emplace_back("--help");
  return words;
}

/// The app or the group of subcommands at which the call ended without naming one; nullptr if it
/// named one.
const CLI::App* unfinished(const CLI::App& app) {
  const CLI::App* at = &app;
  while (!at->get_subcommands().empty()) at = at->get_subcommands().front();
  return at->get_require_subcommand_min() > 0 ? at : nullptr;
}

/// What stands where the name of a subcommand should.
std::optional<std::string> unknownWord(const CLI::App& app) {
  for (const std::string& word : app.remaining()) {
    if (word.empty() || word.front() != '-') return word;
  }
  return std::nullopt;
}

std::vector<std::string> subcommandsOf(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(command->get_name());
  }
  return names;
}

/// What is wrong with a call without a subcommand, and what there is.
std::string subcommandComplaint(const CLI::App& app, const std::optional<std::string>& word) {
  const bool isGroup = app.get_parent() != nullptr;
  const std::string group = isGroup ? app.get_name() + " " : "";
  const std::vector<std::string> names = subcommandsOf(app);
  std::string text = "A subcommand is missing.\n";
  if (word) {
    text = "There is no subcommand \"" + group + *word + "\".";
    const std::string near = nearest(*word, names);
    text += near.empty() ? "\n" : " Did you mean \"" + group + near + "\"?\n";
  }
  text += isGroup ? "Subcommands of " + app.get_name() + ":" : "Subcommands:";
  for (const std::string& name : names) text += " " + name;
  return text + "\nRun with --help for more information.\n";
}

/// Prints help, version or what is wrong with the call.
int finish(const CLI::App& app, const CLI::ParseError& error, AnswerStream& answers) {
  std::ostringstream out;
  std::ostringstream complaint;
  const CLI::App* const open = unfinished(app);
  const std::optional<std::string> word = open ? unknownWord(*open) : std::nullopt;
  const bool isBare = open && error.get_name() == "RequiredError";
  int code = ExitWrongCall;
  if (word || isBare) {
    complaint << subcommandComplaint(*open, word);
  } else {
    code = app.exit(error, out, complaint) == 0 ? ExitAnswer : ExitWrongCall;
  }
  std::cerr << printableLines(complaint.str());
  return answers.write(out.str()) ? code : ExitFailure;
}

int run(std::vector<std::string> words) {
  AnswerStream answers;
  Context context{answers, "", false, ExitAnswer};
  CLI::App app("Asks a store of discovered network topology: nodes, neighbours, layer-2 paths.");
  app.name("zntopo");
  app.require_subcommand(1);
  app.set_version_flag("--version", std::string("zntopo ") + ZNTOPO_VERSION);
  app.footer(kFooter);
  addStoreOption(app, context);
  addJsonOption(app, context);
  addCommands(app, context);
  words = withHelpWord(std::move(words));
  // The parser takes words from the end.
  std::reverse(words.begin(), words.end());
  try {
    app.parse(std::move(words));
  } catch (const CLI::ParseError& error) {
    return finish(app, error, answers);
  }
  return context.exitStatus;
}

}  // namespace
}  // namespace zntopo::tools

int main(int argc, char** argv) {
  return zntopo::tools::run({argv + std::min(argc, 1), argv + argc});
}
