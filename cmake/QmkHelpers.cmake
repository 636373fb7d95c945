# Small functions that the folders' CMake files share.

# qmk_area_sources(VAR dir...): every .cpp and .c under the given folders, so that a new file
# joins its library without an edit here.
function(qmk_area_sources var)
  set(all)
  foreach(dir IN LISTS ARGN)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS
         ${CMAKE_SOURCE_DIR}/${dir}/*.cpp ${CMAKE_SOURCE_DIR}/${dir}/*.c)
    list(APPEND all ${found})
  endforeach()
  set(${var} ${all} PARENT_SCOPE)
endfunction()

# qmk_add_suite(name DIR folder LIBS libs...): one GoogleTest program per test folder, run as
# one CTest entry.
function(qmk_add_suite name)
  cmake_parse_arguments(S "" "DIR" "LIBS" ${ARGN})
  file(GLOB_RECURSE srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${S_DIR}/*.cpp)
  if(NOT srcs)
    return()
  endif()
  add_executable(${name} ${srcs})
  target_link_libraries(${name} PRIVATE ${S_LIBS} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QMK_TEST_SOURCE_DIR=${CMAKE_SOURCE_DIR}")
endfunction()

# qmk_add_fuzzer(name SOURCES files... LIBS libs...): a libFuzzer target whose seed corpus
# lives in fuzz/corpus/<name>/.
function(qmk_add_fuzzer name)
  cmake_parse_arguments(F "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${F_SOURCES})
  target_link_libraries(${name} PRIVATE ${F_LIBS})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()
