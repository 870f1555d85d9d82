# What `cmake --install` lays out under a prefix. The programs find lib/quorvi and share/quorvi from
# their own folder (base/Places.h), so that the whole may be moved; only the desktop entry names the
# program's path.
set(quorvi_module_folder lib/quorvi)
set(quorvi_data_folder share/quorvi)

install(TARGETS quorvictl quorvi-phone quorvi-site RUNTIME DESTINATION bin)
install(FILES Data/deployment.json Data/device.md Data/device.xml Data/guide.html
  DESTINATION "${quorvi_data_folder}/Data")
install(DIRECTORY Data/guide DESTINATION "${quorvi_data_folder}/Data")
install(FILES phone/com.quorvi.Quorvi.apk DESTINATION "${quorvi_data_folder}")
install(FILES README.md ARCHITECTURE.md DESTINATION share/doc/quorvi)
install(FILES docs/window.png DESTINATION share/doc/quorvi/docs)
install(FILES packaging/copyright DESTINATION share/doc/quorvi)
install(FILES "${CMAKE_BINARY_DIR}/packaging/quorvictl.bash"
  DESTINATION share/bash-completion/completions RENAME quorvictl)

# What is read through gzip: the same bytes each time, without a name and a date.
set(quorvi_manuals "${CMAKE_BINARY_DIR}/packaging/quorvictl.1"
  packaging/quorvi-phone.1 packaging/quorvi-site.1)
if(QUORVI_WITH_QT)
  list(APPEND quorvi_manuals packaging/quorvi.1)
endif()
foreach(file IN LISTS quorvi_manuals ITEMS packaging/changelog)
  cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_SOURCE_DIR}")
  cmake_path(GET file FILENAME name)
  set(folder share/doc/quorvi)
  if(name MATCHES "\\.1$")
    set(folder share/man/man1)
  endif()
  set(zipped "${CMAKE_BINARY_DIR}/packaging/${name}.gz")
  add_custom_command(OUTPUT "${zipped}"
    COMMAND sh -c "gzip -9nc \"$1\" >\"$2\"" sh "${file}" "${zipped}"
    DEPENDS "${file}" VERBATIM)
  list(APPEND quorvi_zipped "${zipped}")
  install(FILES "${zipped}" DESTINATION "${folder}")
endforeach()
add_custom_target(quorvi_zipped ALL DEPENDS ${quorvi_zipped})
add_dependencies(quorvi_zipped quorvi_command_guide_files)

if(QUORVI_WITH_QT)
  install(TARGETS quorvi RUNTIME DESTINATION bin)
  install(TARGETS quorvi_browser LIBRARY DESTINATION "${quorvi_module_folder}")
  install(FILES res/icons/logo.svg DESTINATION share/icons/hicolor/scalable/apps
    RENAME quorvi.svg)
  # Written at the time of installation, when the prefix is known. Where the path holds what
  # the format reserves, it is in double quotes and escaped, as desktop/ does it for a user.
  set(quorvi_entry_template "${CMAKE_SOURCE_DIR}/packaging/quorvi.desktop.in")
  set(quorvi_entry "${CMAKE_BINARY_DIR}/packaging/quorvi.desktop")
  install(CODE "
    set(program \"\${CMAKE_INSTALL_PREFIX}/bin/quorvi\")
    set(quote \"\")
    if(program MATCHES [=[[ \"'\\><~|&;\$*?#()`%]]=])
      set(quote [[\"]])
    endif()
    string(REGEX REPLACE [[([\"`$\\])]] [[\\\\\\\\\\1]] program \"\${program}\")
    string(REPLACE \"%\" \"%%\" program \"\${program}\")
    set(program \"\${quote}\${program}\${quote}\")
    configure_file(\"${quorvi_entry_template}\" \"${quorvi_entry}\" @ONLY)")
  install(FILES "${quorvi_entry}" DESTINATION share/applications)
  install(FILES packaging/com.quorvi.Quorvi.metainfo.xml DESTINATION share/metainfo)
endif()
