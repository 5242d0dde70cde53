# Tests of the window, run by Qt Test on the offscreen platform.
function(trelvin_window_test name source)
  add_executable(${name} ${source})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE trelvin_ui Qt6::Test)
  target_compile_definitions(${name} PRIVATE TRELVIN_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 300)
endfunction()

trelvin_window_test(map_window_tests shell/map_window_test.cpp)
trelvin_window_test(keyboard_and_drop_tests shell/keyboard_and_drop_test.cpp)
trelvin_window_test(navigation_window_tests shell/navigation_window_test.cpp)
