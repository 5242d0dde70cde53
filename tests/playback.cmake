add_executable(clock_geometry_tests playback/clock_geometry_test.cpp)
target_link_libraries(clock_geometry_tests PRIVATE trelvin_playback_parts GTest::gtest_main)
gtest_discover_tests(clock_geometry_tests DISCOVERY_TIMEOUT 30)

add_executable(playback_texts_tests playback/playback_texts_test.cpp)
target_link_libraries(playback_texts_tests PRIVATE trelvin_playback_parts GTest::gtest)
gtest_discover_tests(playback_texts_tests DISCOVERY_TIMEOUT 30
                     PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen)
