add_library(trelvin_core STATIC
  model/action_table.cpp
  model/checked_math.cpp
  model/date_time.cpp
  model/number_reading.cpp
  model/text_encoding.cpp
  model/field_addressing.cpp
  model/replay_loader.cpp
  model/replay_source.cpp
  engine/game_tables.cpp
  engine/rule_context.cpp
  engine/event_executor.cpp
  engine/rules_lifecycle.cpp
  engine/rules_combat.cpp
  engine/rules_movement.cpp
  engine/rules_economy.cpp
  view/visibility.cpp
  view/field_pictures.cpp
  view/forward_steps.cpp
  view/field_details.cpp
  view/grid_layout.cpp
  view/action_marks.cpp
  history/action_log.cpp
  history/keyframes.cpp
  history/replay_history.cpp
  history/action_players.cpp
)
target_include_directories(trelvin_core PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
