#pragma once

namespace zntopo::test {

/// How often this thread has allocated memory. A program that compiles Allocations.cpp counts, for
/// that replaces its allocation functions.
unsigned long allocations();

}  // namespace zntopo::test
