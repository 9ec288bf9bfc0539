#include "tests/support/Allocations.h"

#include <cstdlib>
#include <new>

namespace {
thread_local unsigned long count = 0;
}

void* operator new(std::size_t size) {
  ++count;
  if (void* const memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace zntopo::test {

unsigned long allocations() { return count; }

}  // namespace zntopo::test
