# kdl_library(<name> SOURCES <file>... [LINKS <library>...])
# One static library for one folder of src/. Headers are included as "<folder>/<file>.h" from src/.
function(kdl_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE kdl_flags)
endfunction()

# kdl_test(<name> SOURCES <file>... LINKS <library>... [REAL_TIME])
# One GoogleTest program for one folder of tests/. It brings its own main (tests/support/main.cpp),
# which starts the platform layer without a display, so it also runs bare at discovery time. With REAL_TIME its tests
# listen to sound as it plays and run with nothing beside them.
function(kdl_test name)
  cmake_parse_arguments(ARG "REAL_TIME" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE kdl_test_support ${ARG_LINKS} kdl_flags)
  gtest_discover_tests(${name} PROPERTIES TIMEOUT 120 RUN_SERIAL ${ARG_REAL_TIME}
                       DISCOVERY_TIMEOUT 60)
endfunction()

# kdl_inputs(<variable> <name> <pattern>...)
# The files that match, and a list of their names: what depends on both is made again also when a file is gone.
function(kdl_inputs variable name)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${ARGN})
  list(JOIN files "\n" names)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.list CONTENT "${names}\n" @ONLY)
  set(${variable} ${files} ${CMAKE_BINARY_DIR}/${name}.list PARENT_SCOPE)
endfunction()
