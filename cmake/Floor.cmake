# A floor of the house is a static library. Its public links are the floors below that it may use;
# the tests of a floor link the whole of it against those alone, so that a symbol from above does
# not resolve and the build fails.
#
#   travo_floor(name SOURCES a.cpp ... BELOW lower floors and libraries ...)
function(travo_floor name)
  cmake_parse_arguments(FLOOR "" "" "SOURCES;BELOW" ${ARGN})
  add_library(${name} STATIC ${FLOOR_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${FLOOR_BELOW})
endfunction()

#   travo_test(name FLOOR floor SOURCES ... [LINK further libraries ...])
function(travo_test name)
  cmake_parse_arguments(TEST "" "" "FLOOR;SOURCES;LINK" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  foreach(floor IN LISTS TEST_FLOOR)
    target_link_libraries(${name} PRIVATE "$<LINK_LIBRARY:WHOLE_ARCHIVE,${floor}>")
  endforeach()
  target_link_libraries(${name} PRIVATE ${TEST_LINK} GTest::gmock)
  gtest_discover_tests(${name} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120
                       ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
