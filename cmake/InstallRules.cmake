# SPDX-License-Identifier: MIT
# What is installed, in four components: runtime (the library), common (its catalogues, and what
# users read), dev and programs.
include(CMakePackageConfigHelpers)

set(framenote_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/framenote)

install(TARGETS framenote EXPORT framenoteTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
  # On Windows the library lies with the programs, and what is linked to stands for it.
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
if(FRAMENOTE_BUILD_CATALOGUES)
  install(DIRECTORY ${FRAMENOTE_CATALOGUE_DIR}/
    DESTINATION ${CMAKE_INSTALL_LOCALEDIR} COMPONENT common FILES_MATCHING PATTERN "*.mo")
endif()

# The headers keep their relative paths, so includes read the same in the tree and installed.
install(DIRECTORY include/framenote ${PROJECT_BINARY_DIR}/include/framenote
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev FILES_MATCHING PATTERN "*.h")
install(DIRECTORY src/ platform/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/framenote COMPONENT dev FILES_MATCHING PATTERN "*.h")

# For CMake: the library, and the programs where they are installed.
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
if(FRAMENOTE_BUILD_PROGRAMS)
  set_target_properties(framenote-burn PROPERTIES EXPORT_NAME burn)
  set_target_properties(framenote_program PROPERTIES EXPORT_NAME desktop)
  set(program_folder $<IF:$<PLATFORM_ID:Darwin>,@loader_path,$ORIGIN>)
  foreach(program framenote-burn framenote_program)
    set_target_properties(${program} PROPERTIES
      INSTALL_RPATH "${program_folder}/../${CMAKE_INSTALL_LIBDIR}")
    install(TARGETS ${program} EXPORT framenotePrograms
      RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT programs)
  endforeach()
  install(EXPORT framenotePrograms NAMESPACE framenote::
    DESTINATION ${framenote_package_dir} COMPONENT programs)
  if(UNIX AND NOT APPLE)
    include(DesktopFiles)
  endif()
endif()

# For pkg-config, from whose file the prefix is found: the tree may be moved. wxWidgets comes
# without such a file on many systems, so its flags are those that the library was built with.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE framenote_prefix_from_pc)
list(TRANSFORM wxWidgets_INCLUDE_DIRS PREPEND -I OUTPUT_VARIABLE wx_includes)
list(TRANSFORM wxWidgets_DEFINITIONS PREPEND -D OUTPUT_VARIABLE wx_definitions)
list(JOIN wx_includes " " wx_includes)
list(JOIN wx_definitions " " wx_definitions)
set(framenote_wx_cflags "${wx_includes} ${wx_definitions} ${wxWidgets_CXX_FLAGS}")
list(JOIN wxWidgets_LIBRARIES " " framenote_wx_libs)
configure_file(cmake/framenote.pc.in framenote.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/framenote.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

# As in the tree, so that links work; what users read goes with the texts.
set(for_users "/(user-guide|redaction|scaling)\\.md$|/images$")
install(FILES CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT common)
install(FILES README.md CONTRIBUTING.md SECURITY.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT dev
  FILES_MATCHING PATTERN "*.md" PATTERN "*.json" REGEX "${for_users}" EXCLUDE)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT common
  FILES_MATCHING REGEX "${for_users}" PATTERN "*.png")
