# How the tree is compiled and linked: ccache, a fast linker, lean debug
# information, light test programs and precompiled headers. A cold build of
# the whole tree is meant to stay within minutes on two cores.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # ccache caches files that use a precompiled header only when it may ignore
  # the header's macros and timestamps.
  set(stagewright_launcher ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${stagewright_launcher})
  set(CMAKE_C_COMPILER_LAUNCHER ${stagewright_launcher})
endif()

# lld links the large test programs several times faster than the default linker.
option(STAGEWRIGHT_LLD "Link with lld when it is installed" ON)
find_program(LLD_PROGRAM ld.lld)
if(STAGEWRIGHT_LLD AND LLD_PROGRAM AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_link_options(-fuse-ld=lld)
endif()

# Line tables are enough for stack traces and profiles, at a fraction of the
# size of full debug information; the `debug` preset asks for -g. These come
# after the build type's own flags, so they win.
set(STAGEWRIGHT_DEBUG_INFO "-g1" CACHE STRING "Debug information of every target: -g0, -g1 or -g")
add_compile_options(${STAGEWRIGHT_DEBUG_INFO})

option(STAGEWRIGHT_PCH "Precompile the standard library, Qt and GoogleTest headers" ON)

set(STAGEWRIGHT_PCH_STD <algorithm> <cstdint> <functional> <map> <memory> <optional> <string> <string_view>
                        <utility> <variant> <vector>)
set(STAGEWRIGHT_PCH_GUI <QObject> <QString> <QStringList> <QPointF> <QRectF> <QSizeF> <QColor> <QImage> <QPainter>
                        <QFileInfo> <QDir> <QFile>)
set(STAGEWRIGHT_PCH_WIDGETS <QWidget> <QLabel> <QPushButton> <QToolButton> <QHBoxLayout> <QVBoxLayout> <QComboBox>
                            <QLineEdit> <QPointer> <QTimer> <QUndoCommand> <QApplication>)

# stagewright_precompile_headers(TARGET [GUI] [WIDGETS] [TEST] [HEADERS FILE...])
# Precompiles the headers nearly every file of TARGET includes: the standard
# library always, Qt's GUI or widget classes when the target links them,
# GoogleTest for test programs, and HEADERS (a test program's fixture header,
# which every one of its files includes). Each target compiles its own
# header, since a precompiled header only serves files compiled with the same
# flags.
function(stagewright_precompile_headers target)
  if(NOT STAGEWRIGHT_PCH)
    return()
  endif()
  cmake_parse_arguments(P "GUI;WIDGETS;TEST" "" "HEADERS" ${ARGN})
  # Compiling the header costs as much as a few files: it pays off only for
  # targets of several files.
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  list(LENGTH sources count)
  if(count LESS 3)
    return()
  endif()
  set(headers ${STAGEWRIGHT_PCH_STD})
  if(P_GUI OR P_WIDGETS)
    list(APPEND headers ${STAGEWRIGHT_PCH_GUI})
  endif()
  if(P_WIDGETS)
    list(APPEND headers ${STAGEWRIGHT_PCH_WIDGETS})
  endif()
  if(P_TEST)
    list(APPEND headers <gtest/gtest.h>)
  endif()
  list(APPEND headers ${P_HEADERS})
  target_precompile_headers(${target} PRIVATE ${headers})
endfunction()
