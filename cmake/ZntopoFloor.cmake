# The floors of the house, ground floor first. A floor may include its own
# headers and those of the floors before it.
set(ZNTOPO_FLOORS tvxpl tv tvdbil core model store cache api connectivity)

# zntopo_floor(<name> SOURCES ... [LIBRARIES ...])
#
# Compiles one floor as the object library zntopo_<name>. The shared library
# and the test programs are linked from the same objects.
function(zntopo_floor name)
  cmake_parse_arguments(FLOOR "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_library(zntopo_${name} OBJECT ${FLOOR_SOURCES})
  target_include_directories(zntopo_${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(zntopo_${name} PUBLIC Threads::Threads ${FLOOR_LIBRARIES})
endfunction()

# zntopo_link_floors(<target> <top floor>)
#
# Links the objects of every floor up to and with the top floor into a target.
function(zntopo_link_floors target top)
  foreach(floor IN LISTS ZNTOPO_FLOORS)
    if(TARGET zntopo_${floor})
      target_link_libraries(${target} PRIVATE zntopo_${floor})
    endif()
    if(floor STREQUAL top)
      return()
    endif()
  endforeach()
  message(FATAL_ERROR "zntopo_link_floors: there is no floor named ${top}")
endfunction()
