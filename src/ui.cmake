# The window: the shell, the map widget and the playback handlers over Qt Widgets.
add_library(trelvin_ui STATIC
  shell/frm_main.h
  shell/frm_main.cpp
  shell/open_flow.cpp
  shell/twips.cpp
  shell/message_service.cpp
  shell/message_reporter.cpp
  shell/open_file_service.cpp
  view/map_grid.h
  view/map_grid.cpp
  view/map_view.cpp
  playback/navigation.cpp
  playback/slide_show.cpp
  playback/info_refresh.cpp
  ${CMAKE_SOURCE_DIR}/assets/assets.qrc
)
set_target_properties(trelvin_ui PROPERTIES AUTOMOC ON AUTORCC ON)
target_include_directories(trelvin_ui PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(trelvin_ui PUBLIC trelvin_core trelvin_playback_parts Qt6::Widgets)

add_executable(trelvin-replay shell/main.cpp)
target_link_libraries(trelvin-replay PRIVATE trelvin_ui)
