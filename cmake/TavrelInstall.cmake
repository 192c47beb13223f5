# What an installation holds: the library with its two headers and its package
# files, and, where it is built, the command with the charts.
include(CMakePackageConfigHelpers)

install(TARGETS tavrel EXPORT TavrelTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES
  ${PROJECT_SOURCE_DIR}/facade/Tavrel.h
  ${PROJECT_BINARY_DIR}/include/Tavrel/TavrelExport.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Tavrel)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Tavrel)
install(EXPORT TavrelTargets NAMESPACE Tavrel:: DESTINATION ${package_dir})
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/TavrelConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TavrelConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/TavrelConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/TavrelConfig.cmake
  ${PROJECT_BINARY_DIR}/TavrelConfigVersion.cmake
  DESTINATION ${package_dir})

if(TAVREL_BUILD_TOOLS)
  # Relative to the program, so that the installation may be moved.
  file(RELATIVE_PATH library_from_program
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(tavrel_command PROPERTIES
    INSTALL_RPATH "$ORIGIN/${library_from_program}")
  install(TARGETS tavrel_command RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  get_target_property(charts tavrel_charts TAVREL_CHART_FILES)
  install(FILES ${charts} DESTINATION ${CMAKE_INSTALL_DATADIR}/tavrel/charts)
  get_target_property(conditions tavrel_charts TAVREL_CONDITION_FILES)
  install(FILES ${conditions} DESTINATION ${CMAKE_INSTALL_DATADIR}/tavrel/charts OPTIONAL)
  set_target_properties(tavrel_pictures PROPERTIES INSTALL_RPATH "$ORIGIN/..")
  install(TARGETS tavrel_pictures LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/tavrel)
endif()
