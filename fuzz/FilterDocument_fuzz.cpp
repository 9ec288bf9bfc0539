// Outside bytes as a filter document, from validation to expansion, with the little language of the
// tests: its element "raw" hands a text on as the intermediate form.
#include "fuzz/FilterFolder.h"
#include "fuzz/FilterParse.h"

namespace {

using namespace zntopo;

/// The files of the tests, and one that "HostIDFile" elements may name.
struct Configuration : fuzz::FilterFolder {
  Configuration() : FilterFolder(ZNTOPO_SOURCE_DIR "/tests/filter/config") {
    writeHosts("hosts.xml", "<host>core-1</host><host>core-2</host>");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Configuration configuration;
  fuzz::parse(fuzz::textOf(data, size));
  return 0;
}
