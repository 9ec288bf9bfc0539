#include "tools/zntopo/Commands.h"

#include <algorithm>

#include "tools/network/PlainText.h"
#include "zntopo/platform/tvxpl/Utf8.h"

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
  if (zone.size() > 64) return "the zone is longer than 64 bytes";
  if (std::any_of(zone.begin(), zone.end(), isControl)) {
    return "the zone has a control character in it";
  }
  return TvXplStr::isUtf8(zone) ? "" : "the zone is no UTF-8";
}

}  // namespace

void addCommands(CLI::App& app, Context& context) {
  for (const Command* command : kCommands) addCommand(app, context, *command);
}

void addZoneOption(CLI::App& command, const std::string& help, std::string& value) {
  command.add_option("--zone", value, help)->check(CLI::Validator(checkZone, ""));
}

void addNodeArgument(CLI::App& command, const std::string& name, std::string& value) {
  command.add_option(name, value, "A name, the beginning of one, an address or an identifier")
      ->required();
}

}  // namespace zntopo::tools
