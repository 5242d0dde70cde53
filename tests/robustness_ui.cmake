# The window against hostile files and against many opens in a row; leaks are the sanitizer
# build's to find.
foreach(name hostile_files_window repeated_opens)
  trelvin_window_test(${name}_tests shell/${name}_test.cpp)
  target_compile_definitions(${name}_tests PRIVATE TRELVIN_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples")
  set_tests_properties(${name}_tests PROPERTIES TIMEOUT 300)
endforeach()
