#pragma once

#include <string>

namespace zntopo::detail {

/// The name of one of several log files: "<base>_<number>.log".
std::string numberedLogName(const std::string& base, int number);

/// The number of the log file, from 1 to the number of files, that was written to last; 1 if
/// there is none. Asks the shell for the list, and leaves it in "<base>_mcast.file" meanwhile.
int newestLogNumber(const std::string& base, int numFiles);

/// A text as one word of the shell.
std::string quotedForShell(const std::string& text);

/// A message with its "%s" replaced. The text may come from a translated catalogue, so it never
/// serves as a format.
std::string withName(const char* message, const std::string& name);

}  // namespace zntopo::detail
