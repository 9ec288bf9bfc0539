#pragma once

#include <CLI/CLI.hpp>

#include "tools/zntopo/Answer.h"

namespace zntopo::tools {

// Each adds one subcommand, with its options, help and work.

void addInitCommand(CLI::App& app, Context& context);
void addImportCommand(CLI::App& app, Context& context);
void addStateCommand(CLI::App& app, Context& context);
void addNodesCommand(CLI::App& app, Context& context);
void addNodeCommand(CLI::App& app, Context& context);
void addInterfacesCommand(CLI::App& app, Context& context);
void addNeighborsCommand(CLI::App& app, Context& context);
void addPathCommand(CLI::App& app, Context& context);

/// A subcommand with its options for the store and for JSON.
CLI::App* addCommand(CLI::App& app, Context& context, const std::string& name,
                     const std::string& description, const std::string& examples);

/// Adds an argument that names a node.
void addNodeArgument(CLI::App& command, const std::string& name, std::string& value);

}  // namespace zntopo::tools
