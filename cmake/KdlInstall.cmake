# cmake --install, and a Debian package by cpack.
#   bin/kdl, kdl-page, kdl-relocate, kdl-terminal
#   share/kdl/                   what is shipped; at its first start the program makes the user's own copy of it
#   share/applications/, share/mime/packages/
#                                a menu entry; and kdl-page as what opens the XML files in a file manager. A package's
#                                triggers bring the desktop's databases up to date
include(GNUInstallDirs)

install(TARGETS kdl kdl-page kdl-relocate kdl-terminal DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${KDL_SHIPPED}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/kdl)
install(FILES packaging/kdl.desktop packaging/kdl-page.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/kdl-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME kdl.xml)
install(FILES resources/icons/ICO_INTRO_SERVER.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME kdl.svg)
install(FILES resources/icons/ICO_INTRO_SERVER.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/64x64/apps RENAME kdl.png)
install(FILES packaging/copyright README.md README.ja.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The authors of kdl <kdl@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "host's desk of a music intro quiz")
set(CPACK_PACKAGE_DESCRIPTION
    "Plays the opening seconds of a song, takes the buzzes of a contestants'
terminal over TCP, keeps the score, shows the result and records the show.
Keeps the music catalogue, builds quizzes, trains a solo player and makes
certificates. The interface is Japanese.
.
No licence has been chosen yet: all rights are with the authors.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
# Linked libraries are found in the programs; what is loaded at run time is named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, gstreamer1.0-plugins-bad, gstreamer1.0-plugins-ugly, \
gstreamer1.0-libav, gstreamer1.0-alsa, gstreamer1.0-pulseaudio, timgm6mb-soundfont, fonts-ipafont-gothic, \
fonts-ipafont-mincho, qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libreoffice-writer, xdg-utils, qt6-translations-l10n")
include(CPack)
