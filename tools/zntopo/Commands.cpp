#include "tools/zntopo/Commands.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "tools/network/PlainText.h"

namespace zntopo::tools {

namespace {

/// Subcommands whose names begin with one word.
struct Group {
  std::string_view name;
  const char* about;
};

constexpr Group kGroups[] = {
    {"filter", "List, run, check and explain topology filters."},
    {"set", "Change the state of an object in the store, and tell everybody who listens."},
};

/// The group of a name, made when it is asked for first.
CLI::App& groupOf(CLI::App& app, Context& context, const std::string& name) {
  const auto known = app.get_subcommands([&](CLI::App* one) { return one->get_name() == name; });
  if (!known.empty()) return *known.front();
  const auto* const group = std::find_if(std::begin(kGroups), std::end(kGroups),
                                         [&](const Group& one) { return one.name == name; });
  CLI::App* const added = app.add_subcommand(name, group->about);
  added->require_subcommand(1);
  added->footer("\"zntopo " + name + " SUBCOMMAND --help\" shows the options and examples.");
  addStoreOption(*added, context);
  addJsonOption(*added, context);
  return *added;
}

CLI::App* addNamed(CLI::App& app, Context& context, const Command& command) {
  const std::string name = command.name;
  const std::size_t blank = name.find(' ');
  if (blank == std::string::npos) return app.add_subcommand(name, command.about);
  return groupOf(app, context, name.substr(0, blank))
      .add_subcommand(name.substr(blank + 1), command.about);
}

void addCommand(CLI::App& app, Context& context, const Command& command) {
  CLI::App* const added = addNamed(app, context, command);
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

/// A name as it is compared: "NotPresent", "not-present" and "not_present" are one.
std::string folded(std::string text) {
  std::erase_if(text, [](char c) { return c == '-' || c == '_'; });
  return CLI::detail::to_lower(text);
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

CLI::Validator isOneOf(std::vector<std::string> names) {
  return {[names = std::move(names)](std::string& text) -> std::string {
            for (const std::string& name : names) {
              if (folded(name) != folded(text)) continue;
              text = name;
              return "";
            }
            return "\"" + text + "\" is none of " + CLI::detail::join(names, ", ");
          },
          ""};
}

void addIpLevelOption(CLI::App& command, int& value, const std::string& objects) {
  command.add_option("--ip-level", value, "Only " + objects + " of this level")
      ->check(CLI::IsMember({4, 6}));
}

CLI::Option* addPatternOption(CLI::App& command, const std::string& name, std::string& value,
                              const std::string& about) {
  return command.add_option(name, value, about)
      ->type_name("PATTERN")
      ->check(CLI::Validator(
          [](const std::string& pattern) {
            const std::string fault = nameFault(pattern);
            return fault.empty() ? "" : "the pattern " + fault;
          },
          ""));
}

CLI::Option* addNameArgument(CLI::App& command, const std::string& name, std::string& value,
                             const std::string& object, const std::string& about) {
  return command.add_option(name, value, about)->check(isNameOf(object));
}

CLI::Option* addOptionalNodeArgument(CLI::App& command, const std::string& name,
                                     std::string& value) {
  return addNameArgument(command, name, value, "node", kNodeNames);
}

void addNodeArgument(CLI::App& command, const std::string& name, std::string& value) {
  addOptionalNodeArgument(command, name, value)->required();
}

void requireOneOf(CLI::App& command, const std::vector<CLI::Option*>& options) {
  command.parse_complete_callback([options] {
    std::vector<std::string> names;
    for (const CLI::Option* option : options) {
      if (option->count() > 0) return;
      names.push_back(option->get_name());
    }
    throw CLI::RequiredError(CLI::detail::join(names, " or "));
  });
}

void addNodeArguments(CLI::App& command, const std::string& name,
                      std::vector<std::string>& values) {
  command.add_option(name, values, kNodeNames)->required()->check(isNameOf("node"));
}

}  // namespace zntopo::tools
