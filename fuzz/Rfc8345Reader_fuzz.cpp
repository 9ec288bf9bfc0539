// Outside bytes as a network file: what it says can be written into a store, or it is told where
// the file is wrong.
#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/NetworkCheck.h"
#include "tools/import/Rfc8345Reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const int file = memfd_create("network", 0);
  if (file < 0) return -1;
  if (write(file, data, size) == static_cast<ssize_t>(size)) {
    try {
      zntopo::tools::NetworkReport report;
      zntopo::fuzz::checkNetwork(
          zntopo::tools::readRfc8345("/proc/self/fd/" + std::to_string(file), report));
    } catch (const zntopo::tools::ImportError& error) {
      ZNTOPO_REQUIRE(*error.what() != '\0');
    }
  }
  close(file);
  return 0;
}
