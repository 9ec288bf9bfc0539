#pragma once

#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mman.h>

#include <algorithm>
#include <functional>

namespace zntopo::test {

/// Runs a body on a thread with a painted stack, and gives how much of it was used, in bytes.
inline std::size_t stackUsed(std::size_t size, const std::function<void()>& body) {
  void* const stack =
      mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  constexpr unsigned char kPaint = 0xA5;
  auto* const bytes = static_cast<unsigned char*>(stack);
  std::fill_n(bytes, size, kPaint);
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstack(&attributes, stack, size);
  pthread_t thread{};
  const auto run = [](void* function) -> void* {
    (*static_cast<const std::function<void()>*>(function))();
    return nullptr;
  };
  EXPECT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&body)),
            0);
  EXPECT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
  const auto* const deepest =
      std::find_if(bytes, bytes + size, [](unsigned char b) { return b != kPaint; });
  const auto used = static_cast<std::size_t>(bytes + size - deepest);
  munmap(stack, size);
  return used;
}

}  // namespace zntopo::test
