#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "tools/zntopo/Lookup.h"
#include "zntopo/model/EntityType.h"

namespace zntopo::tools {

/// A filter of a document, or none.
struct FilterOptions {
  std::string name;
  /// The document; the default file of the configuration if it is empty.
  std::string file;

  bool isGiven() const { return !name.empty(); }
};

/// Adds --file, for a document.
CLI::Option* addFilterFileOption(CLI::App& command, std::string& file);
/// Adds --filter and --file, for a list of some objects.
CLI::Option* addFilterOptions(CLI::App& command, FilterOptions& options,
                              const std::string& objects);
/// Adds the argument NAME, and --file.
void addFilterArgument(CLI::App& command, FilterOptions& options);

/// The objects that a filter selects and that a list of a kind can show. Throws a Failure: among
/// them is ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR for a filter of another kind.
Identifiers runFilter(Session& session, const FilterOptions& options, EntityType type);

}  // namespace zntopo::tools
