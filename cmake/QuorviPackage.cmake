# The package for Debian, which script/package makes with CPack. What the programs link, it finds by
# itself; what they start or load while they run stands here.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorvi)
set(CPACK_PACKAGE_VENDOR Quorvi)
set(CPACK_PACKAGE_CONTACT "Quorvi <support@quorvi.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "manage an Android phone from the PC")
set(CPACK_PACKAGE_DESCRIPTION
"The phone hangs on a USB cable; Quorvi finds it and shows what is there:
contacts with their photos, messages, calls, alarms, bookmarks, files and
applications, to read, to change and to write. It grabs the phone's screen,
tells where a number comes from, and has a lunar calendar on board.
.
Beside the window there are quorvictl, the same on the command line, and
quorvi-phone, a simulated phone to try it with.")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/package")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# adb is started; Qt loads what shows its texts in Chinese and reads the pictures of contacts.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "adb, qt6-image-formats-plugins, qt6-translations-l10n")
# The rights on the USB bus, a desktop without X, Chinese letters, and xdg-open.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "android-sdk-platform-tools-common, fonts-noto-cjk, qt6-wayland, xdg-utils")
include(CPack)
