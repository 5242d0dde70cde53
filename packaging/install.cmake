# cmake --install and the .deb: the programs, their man pages, the desktop entry with its
# AppStream metadata, the replay file type, the icon in every size, the README, the samples.
include(GNUInstallDirs)
set(app_id io.github.trelvin.Replay)
# Games live in games/ beside bin/, as Debian keeps them (/usr/games is on every user's PATH).
install(TARGETS trelvin-replay trelvin-dump trelvin-export RUNTIME DESTINATION games)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/${app_id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/${app_id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/trelvin-replay.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)

# The program's icon, and the same picture for its files under the name of their MIME type.
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 16 32 48 64 128 256)
  install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin-${size}.png
          DESTINATION ${icons}/${size}x${size}/apps RENAME ${app_id}.png)
  install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin-${size}.png
          DESTINATION ${icons}/${size}x${size}/mimetypes RENAME application-x-trelvin-replay.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin.svg DESTINATION ${icons}/scalable/apps RENAME ${app_id}.svg)
install(FILES ${PROJECT_SOURCE_DIR}/assets/icon/trelvin.svg
        DESTINATION ${icons}/scalable/mimetypes RENAME application-x-trelvin-replay.svg)

# Man pages and the changelog go compressed, as Debian keeps them.
set(compressed ${CMAKE_CURRENT_BINARY_DIR}/compressed)
set(gzipped)
foreach(source man/trelvin-replay.6 man/trelvin-dump.6 man/trelvin-export.6 changelog)
  get_filename_component(name ${source} NAME)
  add_custom_command(OUTPUT ${compressed}/${name}.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${compressed}
    COMMAND gzip -9n -c ${CMAKE_CURRENT_LIST_DIR}/${source} > ${compressed}/${name}.gz
    DEPENDS ${CMAKE_CURRENT_LIST_DIR}/${source} VERBATIM)
  list(APPEND gzipped ${compressed}/${name}.gz)
endforeach()
add_custom_target(compressed-docs ALL DEPENDS ${gzipped})
install(FILES ${compressed}/trelvin-replay.6.gz ${compressed}/trelvin-dump.6.gz ${compressed}/trelvin-export.6.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)

set(doc ${CMAKE_INSTALL_DATADIR}/doc/trelvin-replay)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${CMAKE_CURRENT_LIST_DIR}/copyright ${compressed}/changelog.gz
        DESTINATION ${doc})
install(FILES ${PROJECT_SOURCE_DIR}/docs/screenshot.png DESTINATION ${doc}/docs)
install(FILES ${PROJECT_SOURCE_DIR}/samples/alfa.trp ${PROJECT_SOURCE_DIR}/samples/bitva-u-potoka.trp
        DESTINATION ${CMAKE_INSTALL_DATADIR}/trelvin-replay/samples)

# Desktops learn of the new file type and entry from their caches; packagers (DESTDIR) and
# the package's own triggers run these tools on the target system instead.
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

# The viewer's web page (scripts/build-web.sh builds it): installed where trelvin-export --html
# and the window's export find it; a program run from this build tree uses the build's own.
set(web_page ${PROJECT_SOURCE_DIR}/build-web/trelvin-replay.html)
set(web_page_dir ${CMAKE_INSTALL_DATADIR}/trelvin-replay/web)
target_compile_definitions(trelvin_ui PRIVATE TRELVIN_WEB_PAGE="${CMAKE_INSTALL_FULL_DATADIR}/trelvin-replay/web/trelvin-replay.html"
                           TRELVIN_BUILD_TREE="${CMAKE_BINARY_DIR}" TRELVIN_BUILT_WEB_PAGE="${web_page}")
install(FILES ${web_page} DESTINATION ${web_page_dir} OPTIONAL)
