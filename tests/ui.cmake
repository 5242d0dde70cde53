# Tests of the window, run by Qt Test on the offscreen platform.
function(trelvin_window_test name source)
  add_executable(${name} ${source} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE trelvin_ui Qt6::Test)
  target_compile_definitions(${name} PRIVATE TRELVIN_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples"
                                             TRELVIN_VERSION="${PROJECT_VERSION}")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 300)
endfunction()

trelvin_window_test(map_window_tests shell/map_window_test.cpp)
trelvin_window_test(keyboard_and_drop_tests shell/keyboard_and_drop_test.cpp)
trelvin_window_test(finding_window_tests shell/finding_window_test.cpp)
trelvin_window_test(export_window_tests shell/export_window_test.cpp)

# On a laptop's screen of 1366 x 768 pixels.
set(screen_config ${CMAKE_CURRENT_BINARY_DIR}/screen-1366x768.json)
file(WRITE ${screen_config} [[{"screens": [{"name": "laptop", "x": 0, "y": 0, "width": 1366, "height": 768,
  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}]])
trelvin_window_test(screen_fit_tests shell/screen_fit_test.cpp)
set_tests_properties(screen_fit_tests PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen:configfile=${screen_config}")

# On a Czech desktop, the locale generated where it is missing.
add_executable(czech_desktop_tests shell/czech_desktop_test.cpp)
set_target_properties(czech_desktop_tests PROPERTIES AUTOMOC ON)
target_include_directories(czech_desktop_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(czech_desktop_tests PRIVATE trelvin_ui Qt6::Test)
add_test(NAME czech_desktop_tests
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/shell/with_czech_locale.sh $<TARGET_FILE:czech_desktop_tests>)
set_tests_properties(czech_desktop_tests PROPERTIES TIMEOUT 120)
