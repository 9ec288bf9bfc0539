#pragma once

#include <atomic>

namespace zntopo::detail {

/// Waits for so many seconds.
void sleepFor(int seconds);

/// What the preload of the cache pauses with; tests, which do not wait, put another in its place.
inline std::atomic<void (*)(int seconds)> preloadPause{sleepFor};

}  // namespace zntopo::detail
