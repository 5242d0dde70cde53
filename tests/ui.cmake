# Tests of the window, run by Qt Test on the offscreen platform.
function(trelvin_window_test name source)
  add_executable(${name} ${source})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE trelvin_ui Qt6::Test)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 120)
endfunction()

trelvin_window_test(open_flow_tests shell/open_flow_test.cpp)
trelvin_window_test(map_grid_tests view/map_grid_test.cpp)
trelvin_window_test(navigation_tests playback/navigation_test.cpp)
trelvin_window_test(slide_show_tests playback/slide_show_test.cpp)
