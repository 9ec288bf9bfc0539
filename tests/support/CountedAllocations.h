#pragma once

#include <cstdlib>
#include <new>

/// @file
/// Counts what the thread allocates. It replaces the allocation functions of the program, so one
/// source of a program that is made for this includes it.

namespace zntopo::test {

/// The allocations of this thread so far.
inline thread_local long allocations = 0;

}  // namespace zntopo::test

void* operator new(std::size_t size) {
  ++zntopo::test::allocations;
  if (void* const block = std::malloc(size ? size : 1)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
