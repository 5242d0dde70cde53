# The session and each panel alone, without the window.
foreach(name session/replay_session_test panels/panels_test)
  get_filename_component(test ${name} NAME_WE)
  string(REPLACE "_test" "_tests" test ${test})
  add_executable(${test} ${name}.cpp)
  set_target_properties(${test} PROPERTIES AUTOMOC ON)
  target_include_directories(${test} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${test} PRIVATE trelvin_ui Qt6::Test)
  add_test(NAME ${test} COMMAND ${test})
  set_tests_properties(${test} PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 120)
endforeach()

# Exports of the map and trelvin-export's command line; the animations are decoded with giflib
# and libwebp's own decoder.
add_executable(export_tests export/map_export_test.cpp)
set_target_properties(export_tests PROPERTIES AUTOMOC ON)
target_include_directories(export_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(export_tests PRIVATE trelvin_ui Qt6::Test GIF::GIF PkgConfig::WEBPDEMUX)
target_compile_definitions(export_tests PRIVATE TRELVIN_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples"
                                                TRELVIN_VERSION="${PROJECT_VERSION}")
add_test(NAME export_tests COMMAND export_tests)
set_tests_properties(export_tests PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 300)

# The series recorded at opening against the player panel, on the battle sample and on generated
# replays, valid and hostile.
add_executable(course_series_tests session/course_series_test.cpp ${PROJECT_SOURCE_DIR}/bench/replay_generator.cpp)
set_target_properties(course_series_tests PROPERTIES AUTOMOC ON)
target_include_directories(course_series_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/bench)
target_link_libraries(course_series_tests PRIVATE trelvin_ui Qt6::Test)
add_test(NAME course_series_tests COMMAND course_series_tests)
set_tests_properties(course_series_tests PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 300)

# The charts panel on a session; its CSV against trelvin-dump's.
add_executable(charts_panel_tests panels/charts_panel_test.cpp)
set_target_properties(charts_panel_tests PROPERTIES AUTOMOC ON)
target_include_directories(charts_panel_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(charts_panel_tests PRIVATE trelvin_ui Qt6::Test)
target_compile_definitions(charts_panel_tests PRIVATE TRELVIN_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples"
                                                      TRELVIN_DUMP="$<TARGET_FILE:trelvin-dump>")
add_dependencies(charts_panel_tests trelvin-dump)
add_test(NAME charts_panel_tests COMMAND charts_panel_tests)
set_tests_properties(charts_panel_tests PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 120)
