# `tessel-sim serve`: the live phone in the browser. Its server goes into the
# tool's library, so that the tests reach it as the tool does, and the page's
# files (web/) are built into the program.
pkg_check_modules(HTTPLIB REQUIRED IMPORTED_TARGET cpp-httplib)
find_package(Threads REQUIRED)

file(GLOB TESSEL_WEB_FILES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/web/*)
list(SORT TESSEL_WEB_FILES)
set(TESSEL_WEB_ARRAYS "")
set(TESSEL_WEB_ENTRIES "")
set(tessel_web_index 0)
foreach(tessel_web_file IN LISTS TESSEL_WEB_FILES)
  get_filename_component(tessel_web_name ${tessel_web_file} NAME)
  file(READ ${tessel_web_file} tessel_web_hex HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," tessel_web_bytes "${tessel_web_hex}")
  string(APPEND TESSEL_WEB_ARRAYS
    "const unsigned char kAsset${tessel_web_index}[] = {${tessel_web_bytes}0x00};\n")
  string(APPEND TESSEL_WEB_ENTRIES
    "    {\"/${tessel_web_name}\", {reinterpret_cast<const char*>(kAsset${tessel_web_index}), sizeof kAsset${tessel_web_index} - 1}},\n")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${tessel_web_file})
  math(EXPR tessel_web_index "${tessel_web_index} + 1")
endforeach()
configure_file(${CMAKE_SOURCE_DIR}/cli/serve/web_assets.cpp.in ${CMAKE_BINARY_DIR}/generated/web_assets.cpp @ONLY)

file(GLOB TESSEL_SERVE_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/cli/serve/*.cpp)
target_sources(tessel_cli PRIVATE ${TESSEL_SERVE_SOURCES} ${CMAKE_BINARY_DIR}/generated/web_assets.cpp)
target_link_libraries(tessel_cli PUBLIC PkgConfig::HTTPLIB Threads::Threads)
