# What `cmake --install` lays out under a prefix. The programs find lib/quorvi and share/quorvi from
# their own folder (base/Places.h), so that the whole may be moved; only the desktop entry names the
# program's path.
set(quorvi_module_folder lib/quorvi)
set(quorvi_data_folder share/quorvi)

install(TARGETS quorvictl quorvi-phone quorvi-site RUNTIME DESTINATION bin)
install(FILES Data/deployment.json Data/device.md Data/device.xml
  DESTINATION "${quorvi_data_folder}/Data")
install(FILES phone/com.quorvi.Quorvi.apk DESTINATION "${quorvi_data_folder}")
install(FILES README.md ARCHITECTURE.md DESTINATION share/doc/quorvi)
install(FILES docs/window.png DESTINATION share/doc/quorvi/docs)

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
endif()
