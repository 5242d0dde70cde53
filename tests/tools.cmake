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
# A replay that does not load has no rows: the CSV is its header alone, and the dump ends well.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/broken.trp "0;Zlomeny;2;x;2;3\r\n")
add_test(NAME dump_csv_failed_load COMMAND ${CMAKE_COMMAND} "-DCOMMAND=$<TARGET_FILE:trelvin-dump>;--csv;${CMAKE_CURRENT_BINARY_DIR}/broken.trp"
         -DSTATUS=0 -DEXPECTED=Chyba -DOUTPUT=index,time,player,side,moves,nectar,nectarPerHour,territory,armyUnits,hqField,playing
         -P ${CMAKE_CURRENT_SOURCE_DIR}/tools/exits_with.cmake)
# A map wider than the column names reach is refused with the usage, not ended by a failure.
if(TARGET trelvin-generate)
  add_test(NAME generate_unnameable_columns COMMAND ${CMAKE_COMMAND} "-DCOMMAND=$<TARGET_FILE:trelvin-generate>;255;3;2;100"
           -DSTATUS=2 -DEXPECTED=usage: -P ${CMAKE_CURRENT_SOURCE_DIR}/tools/exits_with.cmake)
endif()
add_test(NAME include_floors COMMAND ${CMAKE_COMMAND} -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
         -P ${CMAKE_CURRENT_SOURCE_DIR}/tools/include_floors.cmake)
