# Installs Tessaro as a CMake package, so that a game does
#   find_package(Tessaro)
#   target_link_libraries(game PRIVATE Tessaro::runtime)
# The libraries, their headers and the package files go to the usual GNU
# folders under the install prefix, in the component "Tessaro".
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(TESSARO_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Tessaro)

# tessaro_install_library(TARGET PART): installs the library of one part
# (model, kit, runtime) and its headers; the package calls it Tessaro::PART.
function(tessaro_install_library target part)
  # In the build tree the headers are found from the source root; once
  # installed, from the include folder.
  get_target_property(build_includes ${target} INTERFACE_INCLUDE_DIRECTORIES)
  set_property(TARGET ${target} PROPERTY INTERFACE_INCLUDE_DIRECTORIES
    "$<BUILD_INTERFACE:${build_includes}>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${part})
  if(STAGEWRIGHT_SANITIZE)
    # A static library built with the sanitizers needs their runtime in
    # whatever links it, the game included.
    target_link_options(${target} INTERFACE -fsanitize=address,undefined)
  endif()
  install(TARGETS ${target} EXPORT TessaroTargets COMPONENT Tessaro
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/ COMPONENT Tessaro
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessaro/${part}
    FILES_MATCHING PATTERN "*.h")
endfunction()

# tessaro_install_package(): the targets file, the config and its version.
function(tessaro_install_package)
  install(EXPORT TessaroTargets COMPONENT Tessaro NAMESPACE Tessaro::
    DESTINATION ${TESSARO_INSTALL_CMAKEDIR})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TessaroConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/TessaroConfig.cmake
    INSTALL_DESTINATION ${TESSARO_INSTALL_CMAKEDIR})
  write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/TessaroConfigVersion.cmake
    VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/TessaroConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/TessaroConfigVersion.cmake
    COMPONENT Tessaro DESTINATION ${TESSARO_INSTALL_CMAKEDIR})
  # A game that links Tessaro ships this notice with it.
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE COMPONENT Tessaro DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tessaro)
endfunction()
