#pragma once

#include <string>

/// @file
/// Where the data files lie that come with the library.

namespace tv {

/// The data directory without a "/" at its end: what TV_DATA_PATH names, else the directory that
/// belongs to the installation of this library.
std::string dataDirectory();

/// The data directory of an installation whose library or program is the file `object`, if there
/// is such a directory, else the one that the build was configured for.
std::string installedDataDirectory(const std::string& object);

}  // namespace tv
