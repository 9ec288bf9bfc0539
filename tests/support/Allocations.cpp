#include "tests/support/Allocations.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

thread_local unsigned long count = 0;
thread_local unsigned long failing = 0;      // the first allocation that fails,
thread_local unsigned long lastFailing = 0;  // and the last one

void* allocate(std::size_t size) {
  ++count;
  return failing <= count && count <= lastFailing ? nullptr : std::malloc(size != 0 ? size : 1);
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* const memory = allocate(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

extern "C" char* strdup(const char* text) noexcept {
  const std::size_t size = std::strlen(text) + 1;
  void* const memory = allocate(size);
  return memory != nullptr ? static_cast<char*>(std::memcpy(memory, text, size)) : nullptr;
}

namespace zntopo::test {

unsigned long allocations() { return count; }

FailingAllocation::FailingAllocation(unsigned long others, Fails fails)
    : number_(count + others + 1) {
  failing = number_;
  lastFailing = fails == Fails::One ? number_ : ~0UL;
}
FailingAllocation::~FailingAllocation() { lastFailing = 0; }
bool FailingAllocation::hasFailed() const { return count >= number_; }

}  // namespace zntopo::test
