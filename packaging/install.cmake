# cmake --install: the program, its desktop entry, the replay file type and the icon in every size.
include(GNUInstallDirs)
install(TARGETS trelvin-replay trelvin-dump RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${CMAKE_CURRENT_LIST_DIR}/trelvin-replay.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/trelvin-replay.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
foreach(size 16 32 48 64 128 256)
  install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME trelvin-replay.png)
  install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/mimetypes
          RENAME application-x-trelvin-replay.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME trelvin-replay.svg)
