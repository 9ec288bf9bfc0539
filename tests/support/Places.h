#pragma once

#include <string>

/// Where the tests find what is not theirs. Only Places.cpp knows the paths, so that the other
/// objects are the same in every checkout and a compiler cache shares them.
namespace zntopo::test {

/// A file or folder of the source tree, such as "docs/filters.md".
std::string inSourceTree(const std::string& path);

/// A file or folder of the tree in which the tests are built, such as "data/messages".
std::string inBuildTree(const std::string& path);

}  // namespace zntopo::test
