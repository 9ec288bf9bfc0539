#pragma once

#include <string>
#include <vector>

namespace zntopo::detail {

/// Where the catalogue of a language may lie in a data directory, the closest match first: for
/// "de_AT.UTF-8" the folders "de_AT.UTF-8", "de_AT" and "de". None for a text that is no name of
/// a folder.
std::vector<std::string> catalogueFiles(const std::string& dataDirectory,
                                        const std::string& language);

}  // namespace zntopo::detail
