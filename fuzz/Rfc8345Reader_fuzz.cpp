// Outside bytes as a network file: read it, or say where it is wrong.
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "tools/import/Rfc8345Reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const int file = memfd_create("network", 0);
  if (file < 0) return 0;
  if (write(file, data, size) == static_cast<ssize_t>(size)) {
    try {
      zntopo::tools::NetworkReport report;
      zntopo::tools::readRfc8345("/proc/self/fd/" + std::to_string(file), report);
    } catch (const zntopo::tools::ImportError&) {
      // what a malformed file is answered with
    }
  }
  close(file);
  return 0;
}
