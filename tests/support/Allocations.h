#pragma once

namespace zntopo::test {

/// How often this thread has allocated memory, by new and strdup(). A program that compiles
/// Allocations.cpp counts, for that replaces these functions.
unsigned long allocations();

/// While it lives, the allocation fails that this thread makes after so many others: that one
/// alone, or all from then on.
class FailingAllocation {
 public:
  enum class Fails { One, AllFromThen };
  explicit FailingAllocation(unsigned long others, Fails fails = Fails::One);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();
  bool hasFailed() const;

 private:
  const unsigned long number_;
};

}  // namespace zntopo::test
