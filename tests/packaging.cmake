# The Debian package made from this build, unpacked and checked.
add_test(NAME deb_package COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/packaging/deb_package_test.sh ${PROJECT_BINARY_DIR})
set_tests_properties(deb_package PROPERTIES TIMEOUT 300 RUN_SERIAL TRUE)
