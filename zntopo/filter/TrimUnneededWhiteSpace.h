#pragma once

#include <string>

namespace zntopo {

/// Brings a condition into short form: outside quotes, runs of blanks become one blank, and tabs
/// and line feeds vanish, so that words that only these part are joined.
///
/// Double and single quotes are switched independently of each other; inside either, all stays.
/// There is no limit on the length. Several threads may call it.
std::string TrimUnneededWhiteSpace(const std::string& text);

}  // namespace zntopo
