# SPDX-License-Identifier: MIT

# Compiles through ccache where there is one; an explicit choice of launcher wins.
find_program(FRAMENOTE_CCACHE ccache)
mark_as_advanced(FRAMENOTE_CCACHE)
if(PROJECT_IS_TOP_LEVEL AND FRAMENOTE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${FRAMENOTE_CCACHE})
endif()
