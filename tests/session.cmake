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

# The charts panel on a session; its CSV against trelvin-dump's.
add_executable(charts_panel_tests panels/charts_panel_test.cpp)
set_target_properties(charts_panel_tests PROPERTIES AUTOMOC ON)
target_include_directories(charts_panel_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(charts_panel_tests PRIVATE trelvin_ui Qt6::Test)
target_compile_definitions(charts_panel_tests PRIVATE TRELVIN_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples")
add_test(NAME charts_panel_tests COMMAND charts_panel_tests)
set_tests_properties(charts_panel_tests PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 120)
