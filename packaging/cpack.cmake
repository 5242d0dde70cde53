# The Debian package: cpack -G DEB in a build directory (scripts/make-deb.sh does it all).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME trelvin-replay)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "Trelvin Replay developers <developers@trelvin.github.io>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "viewer of recorded games of Trelvin")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://github.com/trelvin/trelvin-replay)
# Libraries as dpkg-shlibdeps finds them (Qt with Qt Charts for the charts, and giflib and
# libwebp for the animations);
# what the program loads by name besides: the Qt platform plugins, its fonts and Qt's
# translations.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-liberation2, fonts-comic-neue, qt6-translations-l10n")
# The long description; CPack puts the summary above it.
set(CPACK_PACKAGE_DESCRIPTION "Trelvin Replay opens a recorded game (a replay) of Trelvin, a turn-based
strategy game, and rebuilds its world action by action: the map seen whole or
as one side sees it, each action's Czech description, date and time with a
24-hour clock face, a chosen player's standing and a chosen field's details.
A timeline, a list of every action and jumps to attacks, captured
headquarters and failures lead through long games, and charts show each
player's territory, nectar, moves and armies over the whole game; a click in
a chart goes to that action. The map can be saved as a PNG picture, or a
stretch of the game as an animated GIF or WebP, from the window or with
trelvin-export, which needs no display. trelvin-dump prints a replay as JSON
Lines, or every player's standing after every action as CSV.")
include(CPack)
