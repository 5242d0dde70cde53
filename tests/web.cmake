# Tests of the browser's build, registered when scripts/build-web.sh has made it (it runs before
# the configure in scripts/build-and-test.sh): its trelvin-dump against the native one, and
# the page in Debian's chromium.
set(web_build ${PROJECT_SOURCE_DIR}/build-web)
if(NOT EXISTS ${web_build}/trelvin-dump.js OR NOT EXISTS ${web_build}/trelvin-replay.html)
  message(STATUS "No browser build in ${web_build}: its tests are left out (scripts/build-web.sh makes it)")
  return()
endif()

# Larger replays than the samples, with every action, from the benchmark's generator.
add_executable(web_dump_generator ${PROJECT_SOURCE_DIR}/bench/trelvin_generate.cpp
               ${PROJECT_SOURCE_DIR}/bench/replay_generator.cpp)
target_include_directories(web_dump_generator PRIVATE ${PROJECT_SOURCE_DIR}/bench)
target_link_libraries(web_dump_generator PRIVATE trelvin_core)

file(GLOB web_dump_replays ${PROJECT_SOURCE_DIR}/samples/*.trp ${CMAKE_CURRENT_SOURCE_DIR}/web/data/*.trp)
add_test(NAME web_dump_matches_native
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/web/dump_matches_native.sh $<TARGET_FILE:trelvin-dump>
                 ${web_build}/trelvin-dump.js $<TARGET_FILE:web_dump_generator> ${web_dump_replays})
set_tests_properties(web_dump_matches_native PROPERTIES TIMEOUT 600)

# The page in chromium, held to the native export's pictures (where the window's build made it)
# and opening the largest replay the generator writes.
file(GLOB web_page_tests ${PROJECT_SOURCE_DIR}/web/tests/*.test.mjs)
set(web_page_environment TRELVIN_GENERATOR=$<TARGET_FILE:web_dump_generator>)
if(TARGET trelvin-export)
  list(APPEND web_page_environment TRELVIN_NATIVE_EXPORT=$<TARGET_FILE:trelvin-export>)
endif()
add_test(NAME web_page COMMAND node --test --test-concurrency=1 ${web_page_tests})
set_tests_properties(web_page PROPERTIES TIMEOUT 600 ENVIRONMENT "${web_page_environment}")

if(TARGET trelvin-export)
  add_test(NAME web_page_export COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/web/page_export.sh ${PROJECT_BINARY_DIR}
           $<TARGET_FILE:trelvin-export> ${PROJECT_SOURCE_DIR}/samples/bitva-u-potoka.trp)
  set_tests_properties(web_page_export PROPERTIES TIMEOUT 300 RUN_SERIAL TRUE)
endif()
