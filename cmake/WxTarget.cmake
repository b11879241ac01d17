# SPDX-License-Identifier: MIT

# Makes the target wxWidgets::wxWidgets from the variables of find_package(wxWidgets), where that
# does not make it itself (before CMake 3.27, and without a CMake package of wxWidgets' own). Our
# exported target names this target, so that no path of one machine's wxWidgets is installed.
if(NOT TARGET wxWidgets::wxWidgets)
  add_library(wxWidgets::wxWidgets INTERFACE IMPORTED)
  set_target_properties(wxWidgets::wxWidgets PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "${wxWidgets_INCLUDE_DIRS}"
    INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${wxWidgets_INCLUDE_DIRS}"
    INTERFACE_COMPILE_DEFINITIONS "${wxWidgets_DEFINITIONS}"
    INTERFACE_COMPILE_OPTIONS "${wxWidgets_CXX_FLAGS}"
    INTERFACE_LINK_LIBRARIES "${wxWidgets_LIBRARIES}")
endif()
