# zntopo_test(<name> TOP <floor> SOURCES ... [LIBRARIES ...])
#
# Builds the test program <name>_test on the objects of every floor up to TOP.
# Below api/, where the upward seams of the model and of the notifications are
# defined, the recording fakes of tests/support/ stand in for them.
function(zntopo_test name)
  cmake_parse_arguments(TEST "" "TOP" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name}_test ${TEST_SOURCES})
  zntopo_link_floors(${name}_test ${TEST_TOP})
  list(FIND ZNTOPO_FLOORS ${TEST_TOP} top)
  list(FIND ZNTOPO_FLOORS model model)
  list(FIND ZNTOPO_FLOORS api api)
  if(top GREATER_EQUAL model AND top LESS api)
    target_link_libraries(${name}_test PRIVATE zntopo_fake_gateway)
  endif()
  list(FIND ZNTOPO_FLOORS notify notify)
  if(top EQUAL notify)
    target_link_libraries(${name}_test PRIVATE zntopo_fake_cache_owner)
  endif()
  target_link_libraries(${name}_test PRIVATE zntopo_test_support GTest::gmock GTest::gtest_main ${TEST_LIBRARIES})
  # A test is compiled more often than its speed matters; the floors keep their optimisation.
  target_compile_options(${name}_test PRIVATE $<$<CONFIG:Release>:-O0>)
  # The limit ends what hangs: it leaves room for sanitizers on a busy machine.
  gtest_discover_tests(${name}_test DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 1200 LABELS ${name})
endfunction()
