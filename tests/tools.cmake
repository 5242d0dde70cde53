set(samples ${PROJECT_SOURCE_DIR}/samples)
set(golden ${CMAKE_CURRENT_SOURCE_DIR}/data)
add_test(NAME dump_alfa COMMAND ${CMAKE_COMMAND} -DDUMP=$<TARGET_FILE:trelvin-dump> -DARGS=
  -DSAMPLE=${samples}/alfa.trp -DGOLDEN=${golden}/alfa.jsonl -P ${CMAKE_CURRENT_SOURCE_DIR}/golden_dump.cmake)
add_test(NAME dump_battle_tiles_les COMMAND ${CMAKE_COMMAND} -DDUMP=$<TARGET_FILE:trelvin-dump>
  "-DARGS=--tiles;--view;les" -DSAMPLE=${samples}/bitva-u-potoka.trp
  -DGOLDEN=${golden}/bitva-u-potoka.tiles-les.jsonl -P ${CMAKE_CURRENT_SOURCE_DIR}/golden_dump.cmake)
add_test(NAME dump_usage COMMAND $<TARGET_FILE:trelvin-dump> --view sideways)
set_tests_properties(dump_usage PROPERTIES WILL_FAIL TRUE)
add_test(NAME dump_hostile_paths COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/dump_hostile_paths.sh $<TARGET_FILE:trelvin-dump>)
set_tests_properties(dump_hostile_paths PROPERTIES TIMEOUT 120)
if(TARGET trelvin-export)
  add_test(NAME export_exit_codes
           COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/export_exit_codes.sh $<TARGET_FILE:trelvin-export> ${samples})
  set_tests_properties(export_exit_codes PROPERTIES TIMEOUT 120)
endif()
add_executable(dump_csv_tests tools/dump_csv_test.cpp ${PROJECT_SOURCE_DIR}/bench/replay_generator.cpp)
target_include_directories(dump_csv_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/bench)
target_link_libraries(dump_csv_tests PRIVATE trelvin_core GTest::gtest_main nlohmann_json::nlohmann_json)
target_compile_definitions(dump_csv_tests PRIVATE TRELVIN_DUMP="$<TARGET_FILE:trelvin-dump>")
add_dependencies(dump_csv_tests trelvin-dump)
gtest_discover_tests(dump_csv_tests TEST_PREFIX "dump_csv_tests." DISCOVERY_TIMEOUT 30 PROPERTIES TIMEOUT 120)
# A map wider than the column names reach is refused with the usage, not ended by a failure.
if(TARGET trelvin-generate)
  add_test(NAME generate_unnameable_columns COMMAND ${CMAKE_COMMAND} "-DCOMMAND=$<TARGET_FILE:trelvin-generate>;255;3;2;100"
           -DSTATUS=2 -DEXPECTED=usage: -P ${CMAKE_CURRENT_SOURCE_DIR}/tools/exits_with.cmake)
endif()
add_test(NAME include_floors COMMAND ${CMAKE_COMMAND} -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
         -P ${CMAKE_CURRENT_SOURCE_DIR}/tools/include_floors.cmake)
