# SPDX-License-Identifier: MIT

# Installs the library into ${folder}, and builds there what README.md and docs/embedding.md say to
# paste, as a reader does. Run by CTest as a script.
#   cmake -Dsource=... -Dbuild=... -Dfolder=... -Dbuild_type=... -Dcxx_flags=... -P build_pasted.cmake
cmake_minimum_required(VERSION 3.25)

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGV " " command)
    message(FATAL_ERROR "${command}\n${output}")
  endif()
endfunction()

foreach(component runtime dev)
  run(${CMAKE_COMMAND} --install ${build} --prefix ${folder}/installed --component ${component})
endforeach()
foreach(page README.md docs/embedding.md)
  cmake_path(GET page STEM name)
  file(REMOVE_RECURSE ${folder}/${name}/source)
  run(${source}/scripts/page-code ${source}/${page} ${folder}/${name}/source)
  run(${CMAKE_COMMAND} -G Ninja -S ${folder}/${name}/source -B ${folder}/${name}
    -DCMAKE_PREFIX_PATH=${folder}/installed
    -DCMAKE_BUILD_TYPE=${build_type}
    "-DCMAKE_CXX_FLAGS=${cxx_flags}"
    -DCMAKE_CXX_COMPILER_LAUNCHER=${launcher})
  run(${CMAKE_COMMAND} --build ${folder}/${name})
endforeach()
