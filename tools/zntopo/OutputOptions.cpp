#include "tools/zntopo/OutputOptions.h"

#include <sstream>

#include "tools/export/OutputFile.h"
#include "tools/zntopo/AnswerBuffer.h"

namespace zntopo::tools {

CLI::Option* addOutputOptions(CLI::App& command, OutputOptions& options,
                              const std::vector<std::string>& formats,
                              const std::string& aboutFormat) {
  auto* const format = command.add_option("--format", options.format, aboutFormat)
                           ->type_name("FORMAT")
                           ->check(CLI::IsMember(formats));
  auto* const output =
      command.add_option("--output", options.file, "A new file (otherwise standard output)")
          ->type_name("FILE");
  command.add_flag("--force", options.mayReplace, "Replace the file if it is there")->needs(output);
  return format;
}

void requireWritable(const OutputOptions& options) {
  if (!options.file.empty()) requireWritable(options.file, options.mayReplace);
}

void writeDocument(const Context& context, const OutputOptions& options,
                   const std::function<void(std::ostream&)>& writer, Answer& answer) {
  if (!options.file.empty()) {
    writeFile(options.file, options.mayReplace, writer);
    answer.json["output"] = options.file;
    return;
  }
  if (context.isJson) {
    std::ostringstream document;
    writer(document);
    answer.json["document"] = document.str();
    return;
  }
  AnswerBuffer buffer(context.answers);
  std::ostream stream(&buffer);
  writer(stream);
  if (!stream.flush()) throw Failure(ZN_API_INTERNAL_ERROR, "Not all of it could be written.");
}

}  // namespace zntopo::tools
