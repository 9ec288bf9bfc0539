# The floors of the house, ground floor first: their folders and their names.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/floors.txt ZNTOPO_FLOOR_FOLDERS REGEX "^[a-z]")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${CMAKE_CURRENT_LIST_DIR}/floors.txt)
list(TRANSFORM ZNTOPO_FLOOR_FOLDERS REPLACE "^.*/" "" OUTPUT_VARIABLE ZNTOPO_FLOORS)
list(GET ZNTOPO_FLOORS -1 ZNTOPO_TOP_FLOOR)

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
    target_link_libraries(${target} PRIVATE zntopo_${floor})
    if(floor STREQUAL top)
      return()
    endif()
  endforeach()
  message(FATAL_ERROR "zntopo_link_floors: there is no floor named ${top}")
endfunction()
