#pragma once

#include <CLI/CLI.hpp>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/zntopo/Answer.h"
#include "tools/zntopo/fields/NumberNames.h"

/// @file
/// The subcommands of zntopo. Each is a record in a source file of its own; a list and the view of
/// one of its objects share one.
///
/// To add one, say "hosts":
///
/// 1. HostsCommand.cpp has its options, its work and its record.
///
///        namespace {
///        struct HostsOptions {
///          std::string node;
///          int level = 4;
///        };
///
///        void addOptions(CLI::App& command, HostsOptions& options) {
///          addNodeArgument(command, "NODE", options.node);
///          command.add_option("--level", options.level, "...")->capture_default_str();
///        }
///
///        void hosts(const Context& context, const HostsOptions& options, Answer& answer) {
///          Session session(context);
///          ...
///        }
///        }  // namespace
///
///        constinit const Command kHostsCommand = {
///            .name = "hosts",
///            .about = "List the hosts around a node.",
///            .examples = "  zntopo hosts core-1\n",
///            .empty = R"({"hosts": []})",
///            .prepare = prepare<addOptions, hosts>,
///        };
///
///    The work fills the answer, or throws: a Failure, or any error of the tools. What it lists or
///    shows is a table of fields (fields/Field.h), which makes the JSON, the table and the view.
///    A wrong value of an option is refused by the option (CLI::Validator), not by the work.
/// 2. Here: declare the record, and put it into kCommands at its place in the help.
/// 3. tools/CMakeLists.txt: the source file.
/// 4. docs/tools.md: a line of the table, and a section with an example and a paragraph "JSON:".
///    Tests take the names from `zntopo --help` and hold help, JSON and documentation together.

namespace zntopo::tools {

/// What a subcommand does once its options are read.
using Work = std::function<void(const Context&, Answer&)>;

/// A subcommand.
struct Command {
  /// One word, or two for a member of a group: "filter list". Commands.cpp has the groups.
  const char* name;
  /// One sentence for the list of subcommands; more may follow after a line feed.
  const char* about;
  /// Lines for the end of the help, each beginning with "  zntopo NAME".
  const char* examples;
  /// A JSON object: the members that each answer has, with what a failure shows there.
  const char* empty = "{}";
  /// Adds the options and arguments, and gives the work: see prepare.
  Work (*prepare)(CLI::App& command);
};

/// The two forms of Command::prepare, made of
///
///     void addOptions(CLI::App& command, Options& options);
///     void work(const Context& context, const Options& options, Answer& answer);
///
/// and, for a subcommand without options of its own, void work(const Context&, Answer&).
template <auto addOptions, auto work>
Work prepare(CLI::App& command) {
  const auto add = []<typename Options>(CLI::App& app, void (*function)(CLI::App&, Options&)) {
    auto options = std::make_shared<Options>();
    function(app, *options);
    return options;
  };
  return [options = add(command, addOptions)](const Context& context, Answer& answer) {
    work(context, *options, answer);
  };
}

template <void (*work)(const Context&, Answer&)>
Work prepare(CLI::App&) {
  return work;
}

extern const Command kInitCommand;
extern const Command kImportCommand;
extern const Command kGenerateCommand;
extern const Command kExportCommand;
extern const Command kStateCommand;
extern const Command kInfoCommand;
extern const Command kNodesCommand;
extern const Command kNodeCommand;
extern const Command kInterfacesCommand;
extern const Command kAddressesCommand;
extern const Command kVlansCommand;
extern const Command kVlanCommand;
extern const Command kContainersCommand;
extern const Command kContainerCommand;
extern const Command kHsrpCommand;
extern const Command kSubnetsCommand;
extern const Command kSubnetCommand;
extern const Command kNeighborsCommand;
extern const Command kConnectivityCommand;
extern const Command kPathCommand;
extern const Command kMapCommand;
extern const Command kAuditCommand;
extern const Command kDumpCommand;
extern const Command kFilterListCommand;
extern const Command kFilterRunCommand;
extern const Command kFilterCheckCommand;
extern const Command kFilterExplainCommand;
extern const Command kSetNodeCommand;
extern const Command kSetInterfaceCommand;
extern const Command kSetAddressCommand;
extern const Command kSetHsrpCommand;
extern const Command kSetAssociationCommand;
extern const Command kWatchCommand;

/// In the order of the help.
inline constexpr std::array kCommands = {
    &kInitCommand,         &kImportCommand,      &kGenerateCommand,      &kExportCommand,
    &kStateCommand,        &kInfoCommand,        &kNodesCommand,         &kNodeCommand,
    &kInterfacesCommand,   &kAddressesCommand,   &kVlansCommand,         &kVlanCommand,
    &kContainersCommand,   &kContainerCommand,   &kHsrpCommand,          &kSubnetsCommand,
    &kSubnetCommand,       &kNeighborsCommand,   &kConnectivityCommand,  &kPathCommand,
    &kMapCommand,          &kAuditCommand,       &kDumpCommand,          &kFilterListCommand,
    &kFilterRunCommand,    &kFilterCheckCommand, &kFilterExplainCommand, &kSetNodeCommand,
    &kSetInterfaceCommand, &kSetAddressCommand,  &kSetHsrpCommand,       &kSetAssociationCommand,
    &kWatchCommand,
};

/// Adds all of kCommands, with their options for the store and for JSON.
void addCommands(CLI::App& app, Context& context);

/// Adds the option --zone, which refuses what the store can't hold.
void addZoneOption(CLI::App& command, const std::string& help, std::string& value);
/// Adds an option for a number from 1 on.
CLI::Option* addLimit(CLI::App& command, const std::string& name, int& value,
                      const std::string& about);
/// Adds the option --ip-level, for a list of some objects; 0 for none.
void addIpLevelOption(CLI::App& command, int& value, const std::string& objects);
/// Adds an option for a pattern of names or addresses.
CLI::Option* addPatternOption(CLI::App& command, const std::string& name, std::string& value,
                              const std::string& about);
/// Refuses what is none of some names. Upper and lower case are one, "-" and "_" do not count, and
/// the name itself is what an option gets.
CLI::Validator isOneOf(std::vector<std::string> names);
/// Adds an option whose values have names, with all of them in its help.
template <typename Number, std::size_t size>
CLI::Option* addNamedOption(CLI::App& command, const std::string& name,
                            std::optional<Number>& value, const NumberName<Number> (&names)[size],
                            const std::string& type, const std::string& about) {
  std::vector<std::string> list;
  for (const NumberName<Number>& one : names) list.emplace_back(one.name);
  const auto take = [&value, &names](const std::string& text) {
    for (const NumberName<Number>& one : names) {
      if (text == one.name) value = one.number;
    }
  };
  return command
      .add_option_function<std::string>(name, take,
                                        about + ". One of " + CLI::detail::join(list, ", "))
      ->type_name(type)
      ->transform(isOneOf(list));
}
/// Refuses a call that has none of some options.
void requireOneOf(CLI::App& command, const std::vector<CLI::Option*>& options);
/// Add an argument or an option that names something, and what it may be. What can be no name of
/// an object is a wrong call.
CLI::Option* addNameArgument(CLI::App& command, const std::string& name, std::string& value,
                             const std::string& object, const std::string& about);
/// The same for a node, for one that the call must name, and for nodes, one at least.
CLI::Option* addOptionalNodeArgument(CLI::App& command, const std::string& name,
                                     std::string& value);
void addNodeArgument(CLI::App& command, const std::string& name, std::string& value);
void addNodeArguments(CLI::App& command, const std::string& name, std::vector<std::string>& values);

}  // namespace zntopo::tools
