#include "tools/zntopo/Commands.h"

namespace zntopo::tools {

namespace {

void addCommand(CLI::App& app, Context& context, const Command& command) {
  CLI::App* const added = app.add_subcommand(command.name, command.about);
  added->footer(std::string("Examples:\n") + command.examples);
  const Work work = command.prepare(*added);
  addStoreOption(*added, context);
  addJsonOption(*added, context);
  added->callback([&context, &command, work] {
    Answer empty;
    empty.json = Json::parse(command.empty);
    answer(context, std::move(empty), [&](Answer& result) { work(context, result); });
  });
}

}  // namespace

void addCommands(CLI::App& app, Context& context) {
  for (const Command* command : kCommands) addCommand(app, context, *command);
}

void addNodeArgument(CLI::App& command, const std::string& name, std::string& value) {
  command.add_option(name, value, "A name, the beginning of one, an address or an identifier")
      ->required();
}

}  // namespace zntopo::tools
