#include "tools/zntopo/Commands.h"

#include "tools/network/PlainText.h"

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

std::string checkZone(const std::string& zone) {
  const std::string fault = zone.empty() ? "" : nameFault(zone, 64);
  return fault.empty() ? "" : "the zone " + fault;
}

std::string checkNodeName(const std::string& name) {
  const std::string fault = nameFault(name);
  return fault.empty() ? "" : "the name of the node " + fault;
}

}  // namespace

void addCommands(CLI::App& app, Context& context) {
  for (const Command* command : kCommands) addCommand(app, context, *command);
}

void addZoneOption(CLI::App& command, const std::string& help, std::string& value) {
  command.add_option("--zone", value, help)->check(CLI::Validator(checkZone, ""));
}

void addLimit(CLI::App& command, const std::string& name, int& value, const std::string& about) {
  command.add_option(name, value, about)
      ->capture_default_str()
      ->type_name("NUMBER")
      ->check(CLI::Range(1, 1'000'000));
}

void addNodeArgument(CLI::App& command, const std::string& name, std::string& value) {
  command.add_option(name, value, "A name, the beginning of one, an address or an identifier")
      ->required()
      ->check(CLI::Validator(checkNodeName, ""));
}

}  // namespace zntopo::tools
