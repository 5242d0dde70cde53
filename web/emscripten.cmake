# Settings of the browser's build (emcmake): the core and trelvin-dump compiled to WebAssembly.
# Neither Qt nor GoogleTest is there; the native tests hold the results of this build.
set(TRELVIN_BUILD_UI OFF)
set(TRELVIN_BUILD_TESTS OFF)

# Without exceptions a thrown one ends the module instead of reaching its catch. WebAssembly's
# own (browsers since 2022, node 16) rather than -fexceptions, whose every call that may throw
# goes out to JavaScript and back: the core runs quicker and the page is smaller.
add_compile_options(-fwasm-exceptions)
add_link_options(-fwasm-exceptions)

# Debian's nlohmann-json is header-only: the build sees its folder alone, since the rest of
# /usr/include is the host's C library and would shadow emscripten's.
if(NOT EXISTS /usr/include/nlohmann/json.hpp)
  message(FATAL_ERROR "nlohmann/json.hpp is missing: apt-get install nlohmann-json3-dev")
endif()
set(debian_json_include ${CMAKE_BINARY_DIR}/debian-json)
file(MAKE_DIRECTORY ${debian_json_include})
file(CREATE_LINK /usr/include/nlohmann ${debian_json_include}/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
set_target_properties(nlohmann_json::nlohmann_json PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${debian_json_include})
