#include "tests/support/Places.h"

namespace zntopo::test {

std::string inSourceTree(const std::string& path) { return ZNTOPO_SOURCE_DIR "/" + path; }

std::string inBuildTree(const std::string& path) { return ZNTOPO_BUILD_DIR "/" + path; }

}  // namespace zntopo::test
