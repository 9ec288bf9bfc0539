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

CLI::Validator isNameOf(const std::string& object) {
  return {[object](const std::string& name) {
            const std::string fault = nameFault(name);
            return fault.empty() ? "" : "the name of the " + object + " " + fault;
          },
          ""};
}

constexpr const char* kNodeNames = "A name, the beginning of one, an address or an identifier";

}  // namespace

void addCommands(CLI::App& app, Context& context) {
  for (const Command* command : kCommands) addCommand(app, context, *command);
}

void addZoneOption(CLI::App& command, const std::string& help, std::string& value) {
  command.add_option("--zone", value, help)->check(CLI::Validator(checkZone, ""));
}

CLI::Option* addLimit(CLI::App& command, const std::string& name, int& value,
                      const std::string& about) {
  return command.add_option(name, value, about)
      ->capture_default_str()
      ->type_name("NUMBER")
      ->check(CLI::Range(1, 1'000'000));
}

void addIpLevelOption(CLI::App& command, int& value, const std::string& objects) {
  command.add_option("--ip-level", value, "Only " + objects + " of this level")
      ->check(CLI::IsMember({4, 6}));
}

CLI::Option* addNameArgument(CLI::App& command, const std::string& name, std::string& value,
                             const std::string& object, const std::string& about) {
  return command.add_option(name, value, about)->check(isNameOf(object));
}

void addNodeArgument(CLI::App& command, const std::string& name, std::string& value) {
  addNameArgument(command, name, value, "node", kNodeNames)->required();
}

void addNodeArguments(CLI::App& command, const std::string& name,
                      std::vector<std::string>& values) {
  command.add_option(name, values, kNodeNames)->required()->check(isNameOf("node"));
}

}  // namespace zntopo::tools
