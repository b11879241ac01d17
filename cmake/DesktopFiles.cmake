# SPDX-License-Identifier: MIT

# What a desktop shows of the programs: entry, icon, kind of file, description for shops, manual
# pages, completion of the shell. Texts are translated by the catalogues, where those are built.
set(app_id org.framenote.Framenote)
set(data ${PROJECT_SOURCE_DIR}/apps/desktop/data)
set(desktop_files ${PROJECT_BINARY_DIR}/share/desktop)
file(MAKE_DIRECTORY ${desktop_files})
configure_file(${data}/${app_id}.metainfo.xml.in
  ${desktop_files}/${app_id}.metainfo.xml.in @ONLY)

# Makes `out` from the template `from`, by msgfmt with `arguments` or as it is.
function(framenote_desktop_file out from)
  set(target ${desktop_files}/${out})
  if(FRAMENOTE_BUILD_CATALOGUES)
    set(command ${CMAKE_COMMAND} -E env GETTEXTDATADIRS=${PROJECT_SOURCE_DIR}/po
      ${FRAMENOTE_MSGFMT} ${ARGN} --template=${from} -d ${PROJECT_SOURCE_DIR}/po -o ${target})
  else()
    set(command ${CMAKE_COMMAND} -E copy ${from} ${target})
  endif()
  file(GLOB catalogues CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/po/*.po)
  add_custom_command(OUTPUT ${target} COMMAND ${command} DEPENDS ${from} ${catalogues} VERBATIM)
  set_property(GLOBAL APPEND PROPERTY FRAMENOTE_DESKTOP_FILES ${target})
endfunction()

framenote_desktop_file(${app_id}.desktop ${data}/${app_id}.desktop.in --desktop)
framenote_desktop_file(${app_id}.metainfo.xml ${desktop_files}/${app_id}.metainfo.xml.in --xml)
framenote_desktop_file(${app_id}.xml ${data}/${app_id}.xml.in --xml)
get_property(made GLOBAL PROPERTY FRAMENOTE_DESKTOP_FILES)
add_custom_target(framenote_desktop_files ALL DEPENDS ${made})

# Installs `ARGN` below share/ for the programs.
function(framenote_install_share folder)
  install(FILES ${ARGN} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder} COMPONENT programs)
endfunction()

framenote_install_share(applications ${desktop_files}/${app_id}.desktop)
framenote_install_share(metainfo ${desktop_files}/${app_id}.metainfo.xml)
framenote_install_share(mime/packages ${desktop_files}/${app_id}.xml)
framenote_install_share(icons/hicolor/scalable/apps ${data}/${app_id}.svg)
install(FILES ${data}/framenote.1 ${PROJECT_SOURCE_DIR}/apps/burn/data/framenote-burn.1
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT programs)
foreach(program framenote framenote-burn)
  string(REPLACE framenote-burn burn folder ${program})
  string(REPLACE framenote desktop folder ${folder})
  install(FILES ${PROJECT_SOURCE_DIR}/apps/${folder}/data/${program}.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME ${program} COMPONENT programs)
endforeach()
