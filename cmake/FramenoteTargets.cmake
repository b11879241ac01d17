# SPDX-License-Identifier: MIT

# Puts the C++ sources of one folder into `out`. Sources are found rather than listed: a folder's
# files belong to exactly one target, and a new file is picked up by the next build.
function(framenote_sources out folder)
  file(GLOB found CONFIGURE_DEPENDS ${folder}/*.cpp)
  set(${out} ${found} PARENT_SCOPE)
endfunction()

# What every target of ours is compiled with. Nothing of it reaches a consumer.
function(framenote_configure_target target)
  target_compile_features(${target} PRIVATE cxx_std_17)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  if(MSVC)
    # What the compiler reads is UTF-8, as what it writes.
    target_compile_options(${target} PRIVATE /W4 /utf-8 $<$<BOOL:${FRAMENOTE_WERROR}>:/WX>)
    return()
  endif()
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(FRAMENOTE_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# What a program carries on Windows; nothing elsewhere.
function(framenote_add_windows_resources target)
  if(NOT WIN32)
    return()
  endif()
  target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/apps/windows/program.rc)
  if(MSVC)
    target_link_options(${target} PRIVATE /MANIFEST:NO)  # the resources have one
  endif()
endfunction()

# A program made of one folder's sources; a folder without sources gives no program.
function(framenote_add_program target folder)
  framenote_sources(sources ${folder})
  if(NOT sources)
    message(STATUS "${target}: no sources in ${folder}")
    return()
  endif()
  add_executable(${target} ${sources})
  framenote_configure_target(${target})
  framenote_add_windows_resources(${target})
  target_link_libraries(${target} PRIVATE framenote::framenote)
endfunction()
