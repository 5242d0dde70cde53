# The window against hostile files and against many opens in a row; leaks are the sanitizer
# build's to find.
trelvin_window_test(hostile_files_window_tests shell/hostile_files_window_test.cpp
                    ${PROJECT_SOURCE_DIR}/bench/replay_generator.cpp)
target_include_directories(hostile_files_window_tests PRIVATE ${PROJECT_SOURCE_DIR}/bench)
