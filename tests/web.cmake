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

file(GLOB web_page_tests ${PROJECT_SOURCE_DIR}/web/tests/*.test.mjs)
add_test(NAME web_page COMMAND node --test ${web_page_tests})
set_tests_properties(web_page PROPERTIES TIMEOUT 300)
