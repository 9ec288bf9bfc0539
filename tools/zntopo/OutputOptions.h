#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tools/zntopo/Answer.h"

/// @file
/// What subcommands share that answer with a document: its format, and where it goes.

namespace zntopo::tools {

struct OutputOptions {
  std::string format = {};
  /// Empty for standard output.
  std::string file = {};
  bool mayReplace = false;
};

/// Adds --format, which this returns, --output and --force.
CLI::Option* addOutputOptions(CLI::App& command, OutputOptions& options,
                              const std::vector<std::string>& formats,
                              const std::string& aboutFormat);

/// Refuses a file that can't be written, before there is anything to write.
void requireWritable(const OutputOptions& options);

/// Writes a document into the file, or to standard output; with --json and without a file it
/// becomes the member "document".
void writeDocument(const Context& context, const OutputOptions& options,
                   const std::function<void(std::ostream&)>& writer, Answer& answer);

}  // namespace zntopo::tools
