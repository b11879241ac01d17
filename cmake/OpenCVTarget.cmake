# SPDX-License-Identifier: MIT

# Makes the target framenote_opencv: OpenCV 4's core and imgproc, and nothing else of it. Its own
# CMake package asks for every module to be installed, and the other modules pull in more than a
# hundred libraries, so the two are looked up directly.
if(WIN32)
  # The libraries carry their version in their names there, which its package knows.
  find_package(OpenCV 4 REQUIRED COMPONENTS core imgproc)
  add_library(framenote_opencv INTERFACE IMPORTED)
  target_include_directories(framenote_opencv SYSTEM INTERFACE ${OpenCV_INCLUDE_DIRS})
  target_link_libraries(framenote_opencv INTERFACE ${OpenCV_LIBS})
  return()
endif()
find_path(FRAMENOTE_OPENCV_INCLUDE_DIR opencv2/imgproc/imgproc_c.h
  PATH_SUFFIXES opencv4 REQUIRED)
find_library(FRAMENOTE_OPENCV_CORE opencv_core REQUIRED)
find_library(FRAMENOTE_OPENCV_IMGPROC opencv_imgproc REQUIRED)
mark_as_advanced(FRAMENOTE_OPENCV_INCLUDE_DIR FRAMENOTE_OPENCV_CORE FRAMENOTE_OPENCV_IMGPROC)

add_library(framenote_opencv INTERFACE IMPORTED)
set_target_properties(framenote_opencv PROPERTIES
  INTERFACE_INCLUDE_DIRECTORIES "${FRAMENOTE_OPENCV_INCLUDE_DIR}"
  INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${FRAMENOTE_OPENCV_INCLUDE_DIR}"
  INTERFACE_LINK_LIBRARIES "${FRAMENOTE_OPENCV_IMGPROC};${FRAMENOTE_OPENCV_CORE}")
