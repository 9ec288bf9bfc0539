# What `cmake --install` puts in place for users of the library: the library, its public headers,
# find_package(zntopo) and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS zntopo EXPORT zntopoTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

# The public headers: what programs that embed the library meet. The store's floor, the platform's
# floors but for the two headers named here, and detail/ folders are the library's own.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/zntopo/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zntopo
  FILES_MATCHING PATTERN "*.h"
  PATTERN "detail" EXCLUDE
  PATTERN "platform" EXCLUDE
  PATTERN "store" EXCLUDE
  PATTERN "connectivity" EXCLUDE
  PATTERN "bridge" EXCLUDE
  PATTERN "TopoFilt*.h" EXCLUDE
  PATTERN "TrimUnneededWhiteSpace.h" EXCLUDE
  PATTERN "XMLParseHandler.h" EXCLUDE
  PATTERN "FilterNamespace.h" EXCLUDE
  PATTERN "TopologyGateway.h" EXCLUDE
  PATTERN "CacheOwner.h" EXCLUDE
  PATTERN "Trace.h" EXCLUDE
  PATTERN "ZNTopoAPI_Impl.h" EXCLUDE
  PATTERN "ZNTopoAPIImplFactory.h" EXCLUDE)
foreach(header Export.h tv/MS_Uuid.h tvxpl/TvXplMsg.h)
  get_filename_component(folder platform/${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/zntopo/platform/${header}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zntopo/${folder})
endforeach()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zntopo)
install(EXPORT zntopoTargets NAMESPACE zntopo:: DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/zntopoConfig.cmake.in
  ${PROJECT_BINARY_DIR}/zntopoConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zntopoConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zntopoConfig.cmake ${PROJECT_BINARY_DIR}/zntopoConfigVersion.cmake
  DESTINATION ${package_dir})

# Counted from where the file lies, so that an installation can be moved.
file(RELATIVE_PATH ZNTOPO_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/cmake/zntopo.pc.in ${PROJECT_BINARY_DIR}/zntopo.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zntopo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
