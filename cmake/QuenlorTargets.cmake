# How the targets of this tree are declared: sources are the folder's, Qt only where said. Warnings are errors where
# the tree is worked on; whoever builds it with a compiler of their own only reads them.

option(QUENLOR_WERROR "Treat warnings as errors" OFF)
option(QUENLOR_SANITIZE "Build with address and undefined-behaviour sanitizers" OFF)
option(QUENLOR_FUZZ "Build the fuzz targets (needs clang)" OFF)
option(QUENLOR_ROOMS_ONLY "Build the folders that need no Qt, and their tests, and nothing else" OFF)
option(QUENLOR_BENCH "Build the benchmarks (needs Google Benchmark)" OFF)

add_library(quenlor_flags INTERFACE)
target_include_directories(quenlor_flags INTERFACE ${CMAKE_SOURCE_DIR})
if(MSVC)
  target_compile_options(quenlor_flags INTERFACE /W4 /utf-8 /permissive- $<$<BOOL:${QUENLOR_WERROR}>:/WX>)
else()
  target_compile_options(quenlor_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
    $<$<BOOL:${QUENLOR_WERROR}>:-Werror>)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Two warnings of g++ 12 are wrong once it has inlined enough: it takes the empty side of an optional for an
  # uninitialised variable, and sees a string overlap with the text that it is put together from.
  target_compile_options(quenlor_flags INTERFACE -Wno-maybe-uninitialized -Wno-restrict)
endif()
if(QUENLOR_SANITIZE)
  target_compile_options(quenlor_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quenlor_flags INTERFACE -fsanitize=address,undefined)
endif()
if(QUENLOR_FUZZ)
  target_compile_options(quenlor_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# The C++ files of a folder, without what is for other systems: *_windows.cpp is for Windows, *_posix.cpp for all others.
function(quenlor_sources variable folder)
  file(GLOB found CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)
  if(WIN32)
    list(FILTER found EXCLUDE REGEX "_posix(_test)?\\.cpp$")
  else()
    list(FILTER found EXCLUDE REGEX "_windows(_test)?\\.cpp$")
  endif()
  set(${variable} ${found} PARENT_SCOPE)
endfunction()

# A library of the sources given, linked against the given targets.
function(quenlor_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE quenlor_flags)
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
endfunction()

# The same for a folder that may use Qt.
function(quenlor_qt_library name)
  if(QUENLOR_ROOMS_ONLY)
    return()
  endif()
  quenlor_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
endfunction()

# A static Qt brings its plugins within the program: those that the commands without a window, and the tests, paint on.
function(quenlor_paints_offscreen name)
  get_target_property(qt Qt6::Core TYPE)
  if(qt STREQUAL "STATIC_LIBRARY" AND TARGET Qt6::QOffscreenIntegrationPlugin)
    qt_import_plugins(${name} INCLUDE Qt6::QOffscreenIntegrationPlugin)
  endif()
endfunction()
