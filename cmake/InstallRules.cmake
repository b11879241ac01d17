# SPDX-License-Identifier: MIT
include(CMakePackageConfigHelpers)

set(framenote_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/framenote)

install(TARGETS framenote EXPORT framenoteTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev)
foreach(program framenote-burn framenote_program)
  if(TARGET ${program})
    set_target_properties(${program} PROPERTIES
      INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
  endif()
endforeach()

# The headers keep their relative paths, so includes read the same in the tree and installed.
install(DIRECTORY include/framenote ${PROJECT_BINARY_DIR}/include/framenote
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev FILES_MATCHING PATTERN "*.h")
install(DIRECTORY src/ platform/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/framenote COMPONENT dev FILES_MATCHING PATTERN "*.h")

install(EXPORT framenoteTargets NAMESPACE framenote::
  DESTINATION ${framenote_package_dir} COMPONENT dev)
configure_package_config_file(cmake/framenoteConfig.cmake.in framenoteConfig.cmake
  INSTALL_DESTINATION ${framenote_package_dir})
write_basic_package_version_file(framenoteConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/framenoteConfig.cmake
  ${PROJECT_BINARY_DIR}/framenoteConfigVersion.cmake
  cmake/WxTarget.cmake
  DESTINATION ${framenote_package_dir} COMPONENT dev)
install(FILES LICENSE README.md CHANGELOG.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev
  FILES_MATCHING PATTERN "*.md" PATTERN "*.json" PATTERN "*.png")
