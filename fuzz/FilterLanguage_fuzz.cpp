// Outside bytes as a document in the language of filters that is installed. Whatever such a
// document says, each filter that comes of it is one statement that SQLite takes, within what it
// can take.
#include <algorithm>

#include "fuzz/EmptyStore.h"
#include "fuzz/FilterFolder.h"
#include "fuzz/FilterParse.h"
#include "zntopo/filter/TopoFiltSql.h"

namespace {

using namespace zntopo;

/// SQLite takes a thousand tests in a row, and parentheses within parentheses to some depth.
constexpr std::size_t kLongestCondition = 10000;
constexpr int kDeepestCondition = 20;

bool isWithinLimits(const std::string& condition) {
  int depth = 0;
  int deepest = 0;
  for (const char c : condition) {
    if (c == '(') deepest = std::max(deepest, ++depth);
    if (c == ')') --depth;
  }
  return condition.size() <= kLongestCondition && deepest <= kDeepestCondition;
}

/// The installed files, and a list of hosts that documents may name.
struct Configuration : fuzz::FilterFolder {
  Configuration() : FilterFolder(ZNTOPO_SOURCE_DIR "/data/filter") {
    writeHosts("night-watch.xml", "<name>core-*</name><address>192.168.0.1</address>");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Configuration configuration;
  static fuzz::EmptyStore store;
  for (const TopoFilt& filter : fuzz::parse(fuzz::textOf(data, size))) {
    if (isWithinLimits(filter.getFinalWhereClause())) store.take(objectsOfTopoFiltSql(filter));
  }
  return 0;
}
