#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

namespace zntopo::test {

/// Runs a body in a process of its own, in which nothing has happened before: for what is decided
/// once in a process, as the file of the trace is. A failed expectation of the body fails the test.
///
/// The other process runs the test up to this call, and ends in it: what the test made before is
/// left behind there. So call it first, and not in a fixture that makes something.
inline void inFreshProcess(const std::function<void()>& body) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto run = [&body] {
    body();
    std::exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

}  // namespace zntopo::test
