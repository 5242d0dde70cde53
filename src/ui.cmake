# The window: the Qt bridge, the map widget and painter, the playback, the session that owns
# an opened replay, the panels that follow it, and the shell over Qt Widgets.
add_library(trelvin_ui STATIC
  bridge/core_text.h
  bridge/twips.cpp
  bridge/date_text.cpp
  render/designed_fonts.cpp
  render/map_painter.cpp
  widgets/map_grid.cpp
  widgets/clock_face.cpp
  widgets/player_colors.cpp
  widgets/course_chart.cpp
  widgets/hover_note.cpp
  widgets/timeline.cpp
  widgets/action_row_delegate.cpp
  widgets/cell_text.cpp
  widgets/action_list.cpp
  widgets/jump_prompt.cpp
  playback/playback.cpp
  export/export_options.cpp
  export/caption_strip.cpp
  export/map_frames.cpp
  export/gif_writer.cpp
  export/webp_writer.cpp
  export/map_export.cpp
  export/export_command_line.cpp
  export/web_page.cpp
  export/whole_file.cpp
  export/system_error_text.cpp
  session/replay_session.cpp
  panels/playback_commands.cpp
  panels/playback_controls.cpp
  panels/description_strip.cpp
  panels/view_mode_panel.cpp
  panels/player_panel.cpp
  panels/fitting_label.cpp
  panels/field_panel.cpp
  panels/map_panel.cpp
  panels/timeline_strip.cpp
  panels/failed_load_note.cpp
  panels/action_list_panel.cpp
  panels/export_dialog.cpp
  panels/charts_panel.cpp
  panels/jump_menu.cpp
  panels/help_menu.cpp
  shell/frm_main.cpp
  shell/open_flow.cpp
  shell/window_fit.cpp
  shell/command_line.cpp
  shell/qt_translations.cpp
  shell/message_service.cpp
  shell/message_reporter.cpp
  shell/open_file_service.cpp
  shell/slow_task_dialog.cpp
  shell/export_commands.cpp
  ${CMAKE_SOURCE_DIR}/assets/assets.qrc
)
set_target_properties(trelvin_ui PROPERTIES AUTOMOC ON AUTORCC ON)
target_include_directories(trelvin_ui PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(trelvin_ui PUBLIC trelvin_core Qt6::Widgets Qt6::Charts PRIVATE GIF::GIF PkgConfig::WEBP)
target_compile_definitions(trelvin_ui PRIVATE TRELVIN_VERSION="${PROJECT_VERSION}")

add_executable(trelvin-replay shell/main.cpp)
target_link_libraries(trelvin-replay PRIVATE trelvin_ui)
