#include "tools/zntopo/FilterOptions.h"

#include "tools/zntopo/FilterDocument.h"
#include "tools/zntopo/FilterKind.h"
#include "tools/zntopo/Spelling.h"

namespace zntopo::tools {

CLI::Option* addFilterFileOption(CLI::App& command, std::string& file) {
  return command
      .add_option("--file", file, "The document of filters (otherwise the default filters)")
      ->type_name("FILE")
      ->check(isNotEmpty("name of the file"));
}

CLI::Option* addFilterOptions(CLI::App& command, FilterOptions& options,
                              const std::string& objects) {
  auto* const name =
      command
          .add_option("--filter", options.name,
                      "Only " + objects + " that this filter selects: \"zntopo filter list\"")
          ->type_name("NAME")
          ->check(isNotEmpty("name of the filter"));
  addFilterFileOption(command, options.file)->needs(name);
  return name;
}

void addFilterArgument(CLI::App& command, FilterOptions& options) {
  command.add_option("NAME", options.name, "The filter: \"zntopo filter list\"")
      ->required()
      ->check(isNotEmpty("name of the filter"));
  addFilterFileOption(command, options.file);
}

Identifiers runFilter(Session& session, const FilterOptions& options, EntityType type) {
  FilterDocument document(options.file);
  document.require();
  const TopoFilt& filter = document.find(options.name);
  const FilterKind* const kind = filterKindOf(filter.getObjType());
  if (kind && kind->type != type) {
    const std::string file = options.file.empty() ? "" : " --file " + shellWord(options.file);
    throw Failure(ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR,
                  "The filter \"" + options.name + "\" selects " + kind->list + ": \"zntopo " +
                      kind->list + " --filter " + shellWord(options.name) + file +
                      "\" lists them.");
  }
  return document.run(session, filter);
}

}  // namespace zntopo::tools
