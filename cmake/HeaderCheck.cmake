# SPDX-License-Identifier: MIT

# The target framenote_headers compiles each header alone, included twice: it brings what it needs
# and guards itself.
set(header_sources)
foreach(root include src platform)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/${root}
    ${PROJECT_SOURCE_DIR}/${root}/*.h)
  foreach(header IN LISTS headers)
    string(MAKE_C_IDENTIFIER ${header} name)
    set(source ${PROJECT_BINARY_DIR}/header_check/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} @ONLY CONTENT
      "#include \"@header@\"\n#include \"@header@\"  // NOLINT: the second time must do nothing\n")
    list(APPEND header_sources ${source})
  endforeach()
endforeach()

add_library(framenote_headers OBJECT ${header_sources})
framenote_configure_target(framenote_headers)
target_link_libraries(framenote_headers PRIVATE framenote::framenote)
