# Tests of the core library; test names carry the executable's name so that
# `ctest -R 'model|engine|view_core'` picks exactly these.
add_library(trelvin_test_support INTERFACE)
target_include_directories(trelvin_test_support INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(trelvin_test_support INTERFACE trelvin_core GTest::gtest_main)

function(trelvin_core_tests name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE trelvin_test_support)
  gtest_discover_tests(${name} TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 30 PROPERTIES TIMEOUT 120)
endfunction()

trelvin_core_tests(model_tests model/reading_test.cpp model/replay_loader_test.cpp)
trelvin_core_tests(engine_tests engine/rules_test.cpp)
trelvin_core_tests(view_core_tests view/field_view_test.cpp view/action_marks_test.cpp)
trelvin_core_tests(history_tests history/replay_history_test.cpp history/player_series_test.cpp
                   ${PROJECT_SOURCE_DIR}/bench/replay_generator.cpp)
target_include_directories(history_tests PRIVATE ${PROJECT_SOURCE_DIR}/bench)
trelvin_core_tests(cursor_tests cursor/replay_cursor_test.cpp ${PROJECT_SOURCE_DIR}/bench/replay_generator.cpp)
target_include_directories(cursor_tests PRIVATE ${PROJECT_SOURCE_DIR}/bench)
trelvin_core_tests(display_tests display/texts_test.cpp)
