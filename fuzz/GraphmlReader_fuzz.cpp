// Outside bytes as a network file.
#include "tools/import/GraphmlReader.h"

#include "fuzz/NetworkCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zntopo::fuzz::checkReader(zntopo::tools::readGraphml, data, size);
  return 0;
}
