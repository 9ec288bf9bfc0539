#pragma once

#include <functional>
#include <ostream>
#include <string>

namespace zntopo::tools {

/// Throws a ToolError for a file that is there, unless it may be replaced, and for a folder: what
/// can be said of a name before there is anything to write.
void requireWritable(const std::string& path, bool mayReplace);

/// Writes a file that is there as a whole or not at all: what the writer makes goes into a new file
/// beside it, which takes its name at the end.
///
/// Throws a ToolError if that can't be done.
/// What is no file (a pipe, a device) is written to directly.
void writeFile(const std::string& path, bool mayReplace,
               const std::function<void(std::ostream&)>& writer);

}  // namespace zntopo::tools
