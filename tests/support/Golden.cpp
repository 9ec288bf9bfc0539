#include "tests/support/Golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "tests/support/Places.h"
#include "tests/support/Scratch.h"

namespace zntopo::test {

namespace {

void approve(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << text << std::flush;
  EXPECT_TRUE(file.good()) << path << " can't be written";
}

/// What differs first, with its place.
std::string differenceOf(const std::string& kept, const std::string& text) {
  const auto [left, right] = std::mismatch(kept.begin(), kept.end(), text.begin(), text.end());
  const auto line = 1 + std::count(kept.begin(), left, '\n');
  const auto lineAt = [](const std::string& all, std::string::const_iterator at) {
    const auto from = all.rfind('\n', static_cast<std::size_t>(at - all.begin()));
    const std::size_t begin = from == std::string::npos ? 0 : from + 1;
    return all.substr(begin, all.find('\n', begin) - begin);
  };
  return "line " + std::to_string(line) + "\n  kept: " + lineAt(kept, left) +
         "\n  now:  " + lineAt(text, right);
}

std::filesystem::path pathOf(const std::string& file) {
  return inSourceTree("tests/golden/" + file);
}

/// The lines of a text in an order of their own, without numbers in front: "0)".
std::vector<std::string> orderedLines(const std::string& text) {
  std::vector<std::string> lines = linesOf(text);
  for (std::string& line : lines) {
    const std::size_t number = line.find_first_not_of("0123456789");
    if (number != std::string::npos && number > 0 && line[number] == ')') line.erase(0, number);
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace

void expectGoldenLines(const std::string& file, const std::string& text) {
  const std::vector<std::string> kept = orderedLines(contentOf(pathOf(file)));
  const std::vector<std::string> lines = orderedLines(text);
  std::vector<std::string> missing;
  std::vector<std::string> added;
  std::set_difference(kept.begin(), kept.end(), lines.begin(), lines.end(),
                      std::back_inserter(missing));
  std::set_difference(lines.begin(), lines.end(), kept.begin(), kept.end(),
                      std::back_inserter(added));
  EXPECT_EQ(missing, std::vector<std::string>()) << "missing of " << file;
  EXPECT_EQ(added, std::vector<std::string>()) << "not in " << file;
}

void expectGolden(const std::string& file, const std::string& text) {
  const std::filesystem::path path = pathOf(file);
  if (std::getenv("ZNTOPO_APPROVE")) return approve(path, text);
  ASSERT_TRUE(std::filesystem::exists(path)) << path << " is missing: run scripts/approve";
  const std::string kept = contentOf(path);
  EXPECT_TRUE(kept == text) << path << " differs in " << differenceOf(kept, text)
                            << "\nIf that is meant, run scripts/approve and look at what it shows.";
}

}  // namespace zntopo::test
