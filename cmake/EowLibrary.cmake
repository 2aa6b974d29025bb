# eow_library(NAME DIR DEPS...): a static library of every .cpp directly in DIR.
# Sources are globbed so that adding a file needs no edit here. A folder of headers only
# gives an interface library.
function(eow_library name dir)
  file(GLOB sources CONFIGURE_DEPENDS "${dir}/*.cpp")
  if(sources)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARGN})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${ARGN})
  endif()
endfunction()

# eow_test(NAME DIR DEPS...): one GoogleTest program of every .cpp in DIR, registered with
# CTest. Test data is found through EOW_TEST_DIR and EOW_EXAMPLES_DIR.
function(eow_test name dir)
  file(GLOB sources CONFIGURE_DEPENDS "${dir}/*.cpp")
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest_main GTest::gmock)
  target_compile_definitions(${name} PRIVATE
    EOW_TEST_DIR="${PROJECT_SOURCE_DIR}/tests"
    EOW_EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()
