#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// The columns of a row as texts; an empty text for NULL.
using TextRow = std::vector<std::string>;

/// The rows of a statement with "?" for each parameter. Texts are cut to 255 bytes.
/// Throws StoreError.
std::vector<TextRow> selectTexts(TvDbil::DbConnection_t& connection, const std::string& sql,
                                 std::size_t columns, const std::vector<std::string>& parameters);

/// "?, ?, ?" for a number of parameters.
std::string parameterMarks(std::size_t number);

}  // namespace zntopo::tools
