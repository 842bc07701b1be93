# The headers that most files read, read once for all that is compiled in one way. A file still names what it
# uses: tools/house.py looks for that, and the presets for fuzzing and clang-tidy compile without these.

set(core_headers <QObject> <QString> <QTimer>
    <array> <cmath> <functional> <map> <memory> <optional> <string> <vector>)
set(widget_headers ${core_headers} <QImage> <QPainter> <QWidget>)
set(mock_headers <gmock/gmock.h> <gtest/gtest.h>)

# travo_headers(name LINK libraries HEADERS headers... FOR targets, which link the same libraries at least)
function(travo_headers name)
  if(TRAVO_FUZZ OR CMAKE_CXX_CLANG_TIDY)
    return()
  endif()
  cmake_parse_arguments(HEADERS "" "" "LINK;HEADERS;FOR" ${ARGN})
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE ${HEADERS_LINK})
  target_precompile_headers(${name} PRIVATE ${HEADERS_HEADERS})
  foreach(target IN LISTS HEADERS_FOR)
    target_precompile_headers(${target} REUSE_FROM ${name})
  endforeach()
endfunction()
