#pragma once

#include <string>

/// @file
/// Texts that are kept in files: tests/golden/ has them, and scripts/approve renews them.

namespace zntopo::test {

/// Expects that a text is the one in a file of tests/golden, byte by byte; tells the first line in
/// which they differ. With ZNTOPO_APPROVE in the environment the file becomes the text instead.
void expectGolden(const std::string& file, const std::string& text);

/// The same for an engine that gives the items of lists in another order: the lines are those of
/// the file in any order, and the numbers in front of items are not looked at.
void expectGoldenLines(const std::string& file, const std::string& text);

}  // namespace zntopo::test
