#include "zntopo/model/detail/LeafLock.h"

#include <array>
#include <cstdint>

namespace zntopo::detail {

namespace {

std::mutex& mutexOf(const void* object) {
  constexpr std::size_t kMutexes = 64;
  // Never destroyed: objects may be read until the process ends.
  static auto* const mutexes = new std::array<std::mutex, kMutexes>();
  const auto address = reinterpret_cast<std::uintptr_t>(object);
  return (*mutexes)[(address >> 6 ^ address >> 12) % kMutexes];
}

}  // namespace

LeafLock::LeafLock(const void* object) : lock_(mutexOf(object)) {}

}  // namespace zntopo::detail
