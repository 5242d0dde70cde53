# The playback pieces the window uses: clock face, time text and player panel texts.
add_library(trelvin_playback_parts STATIC
  ${CMAKE_CURRENT_LIST_DIR}/clock_geometry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/clock_face.cpp
  ${CMAKE_CURRENT_LIST_DIR}/time_text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/player_panel.cpp
)
set_target_properties(trelvin_playback_parts PROPERTIES AUTOMOC ON)
target_include_directories(trelvin_playback_parts PUBLIC ${CMAKE_CURRENT_LIST_DIR}/..)
target_link_libraries(trelvin_playback_parts PUBLIC trelvin_core Qt6::Widgets)
