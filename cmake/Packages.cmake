# SPDX-License-Identifier: MIT

# Debian packages, one for each component; scripts/package makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME framenote)
set(CPACK_PACKAGE_VENDOR "The Framenote contributors")
set(CPACK_PACKAGE_CONTACT "The Framenote contributors <maintainers@framenote.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# Empty, or it would stand before each package's own description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/compress.cmake)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)

set(library libframenote${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS framenote-common)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Annotation library for pictures and video frames
 The classes with which a host lets its users mark up pictures and video frames.")

set(CPACK_DEBIAN_COMMON_PACKAGE_NAME framenote-common)
set(CPACK_DEBIAN_COMMON_PACKAGE_SECTION localization)
set(CPACK_DEBIAN_COMMON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_COMMON_PACKAGE_SHLIBDEPS OFF)
set(CPACK_COMPONENT_COMMON_DESCRIPTION "Framenote's texts in other languages, and user guide
 Message catalogues of the library and the programs, and what their users read.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libframenote-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION}), libwxgtk3.2-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Annotation library: headers and documentation
 What a host is built with, for CMake and for pkg-config.")

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME framenote)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION}), framenote-common (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION "Marks up still pictures and video frames
 The desktop host, framenote, and framenote-burn, which burns annotations in.")

set(CPACK_COMPONENTS_ALL runtime common dev programs)
set(packages ${library} framenote-common libframenote-dev framenote)
# What may be done with each package, where Debian looks for it.
foreach(component package IN ZIP_LISTS CPACK_COMPONENTS_ALL packages)
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    COMPONENT ${component} RENAME copyright)
endforeach()

include(CPack)
