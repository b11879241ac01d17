# SPDX-License-Identifier: MIT

# Run by CPack on the files that are about to be packaged: what Debian's policy wants compressed, and
# a change log in Debian's form beside each copyright file.
function(compress file)
  execute_process(COMMAND gzip -9nf ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(GLOB pages ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/man*/*.[1-9])
foreach(page IN LISTS pages)
  compress(${page})
endforeach()

# The date is that of SOURCE_DATE_EPOCH where it is set.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(GLOB copyrights ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/copyright)
foreach(copyright IN LISTS copyrights)
  cmake_path(REPLACE_FILENAME copyright changelog OUTPUT_VARIABLE log)
  file(WRITE ${log} "framenote (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium\n\n"
    "  * /usr/share/doc/framenote/CHANGELOG.md says what changed.\n\n"
    " -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
  compress(${log})
endforeach()
