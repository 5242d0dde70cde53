# cmake --install: the program, its desktop entry, the replay file type and the icon in every size.
include(GNUInstallDirs)
install(TARGETS trelvin-replay trelvin-dump RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${CMAKE_CURRENT_LIST_DIR}/trelvin-replay.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/trelvin-replay.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)

# The program's icon, and the same picture for its files under the name of their MIME type.
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 16 32 48 64 128 256)
  foreach(kind apps mimetypes)
    set(name trelvin-replay)
    if(kind STREQUAL "mimetypes")
      set(name application-x-trelvin-replay)
    endif()
    install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin-${size}.png
            DESTINATION ${icons}/${size}x${size}/${kind} RENAME ${name}.png)
  endforeach()
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin.svg
        DESTINATION ${icons}/scalable/apps RENAME trelvin-replay.svg)
install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin.svg
        DESTINATION ${icons}/scalable/mimetypes RENAME application-x-trelvin-replay.svg)

# Desktops learn of the new file type and entry from their caches; packagers (DESTDIR) run
# these tools on the target system instead.
install(CODE "set(share \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}\")")
install(CODE [[
  if("$ENV{DESTDIR}" STREQUAL "")
    find_program(update_mime update-mime-database)
    find_program(update_desktop update-desktop-database)
    find_program(update_icons gtk-update-icon-cache)
    if(update_mime)
      execute_process(COMMAND ${update_mime} "${share}/mime")
    endif()
    if(update_desktop)
      execute_process(COMMAND ${update_desktop} "${share}/applications")
    endif()
    if(update_icons)
      execute_process(COMMAND ${update_icons} -q -t "${share}/icons/hicolor")
    endif()
  endif()
]])
