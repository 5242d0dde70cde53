add_executable(date_text_tests bridge/date_text_test.cpp)
target_link_libraries(date_text_tests PRIVATE trelvin_ui GTest::gtest_main)
gtest_discover_tests(date_text_tests DISCOVERY_TIMEOUT 30)

# The playback alone, without a window.
add_executable(playback_tests playback/playback_test.cpp)
set_target_properties(playback_tests PROPERTIES AUTOMOC ON)
target_include_directories(playback_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(playback_tests PRIVATE trelvin_ui Qt6::Test)
add_test(NAME playback_tests COMMAND playback_tests)
set_tests_properties(playback_tests PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 120)

add_executable(cell_text_tests widgets/cell_text_test.cpp)
set_target_properties(cell_text_tests PROPERTIES AUTOMOC ON)
target_link_libraries(cell_text_tests PRIVATE trelvin_ui Qt6::Test)
add_test(NAME cell_text_tests COMMAND cell_text_tests)
set_tests_properties(cell_text_tests PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen TIMEOUT 120)
