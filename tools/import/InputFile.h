#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "tools/network/NetworkReport.h"
#include "tools/network/PlainText.h"

/// @file
/// Files of other people, before anybody knows what is in them.

namespace zntopo::tools {

/// Hears the part of some work that is done, from 0 to 1.
using ProgressFunction = std::function<void(double)>;

/// A file that was read, so that it is read once whatever looks at it.
struct InputFile {
  /// The name for messages, without control characters.
  std::string label;
  /// The name without folder and ending.
  std::string stem;
  /// The content.
  std::string text;
};

/// The most bytes that a file may have.
constexpr std::size_t kInputFileLimit = std::size_t{256} * 1024 * 1024;

/// Reads a file. Throws ImportError for one that can't be read, is a folder, or is too large.
InputFile loadInputFile(const std::string& path, std::size_t limit = kInputFileLimit);

/// Throws ImportError if nameFault finds one.
void checkName(const std::string& where, const std::string& name, std::size_t width = kNameWidth);

/// What a parser complains of, without most of what it quotes.
std::string shortComplaint(const std::string& complaint);

}  // namespace zntopo::tools
