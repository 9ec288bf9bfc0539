#pragma once

#include <string>

/// @file
/// Names of the platform's files.

/// Puts a name into a directory: an absolute path without "." and "..", with forward slashes, and
/// with a slash at the end exactly if the name has one.
///
/// Both may be written with backslashes. "%NAME%" in the directory stands for what the variable
/// NAME of the environment holds, which is taken as it is, and "%TV_ETC_PATH%", where it is not
/// set, for "etc" in the data directory of DataPath.h. An unknown name stays as it is written.
/// @param flags 0: nothing else is known.
std::string _TVBuildPath(  // NOLINT(bugprone-reserved-identifier)
    const std::string& directory, const std::string& name, int flags = 0);
