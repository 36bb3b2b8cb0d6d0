# quillet_use_unity_build(TARGET): with QUILLET_UNITY_LIBS the target's sources are compiled a few at a time
# as one unit, which parses the shared headers once per unit. Helpers private to one .cpp therefore need names
# of their own across the library (an anonymous namespace does not keep two files' helpers apart in one unit).
function(quillet_use_unity_build target)
  if(QUILLET_UNITY_LIBS)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON)
  endif()
endfunction()

# quillet_add_library(NAME DEPS lib...): a library of every .cpp in the calling folder (an interface library
# while the folder has none), with headers included from the source root as "folder/header.h".
function(quillet_add_library name)
  cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(sources)
    add_library(${name} STATIC ${sources})
    quillet_use_unity_build(${name})
    # Under the sanitizers the core is compiled at -O1: its exhaustive counts, which the tests run, are many
    # times faster than unoptimised, and the sanitizers check optimised code as well.
    if(QUILLET_SANITIZE)
      target_compile_options(${name} PRIVATE -O1)
    endif()
    target_include_directories(${name} PUBLIC ${QUILLET_SOURCE_ROOT})
    target_link_libraries(${name} PUBLIC ${ARG_DEPS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${QUILLET_SOURCE_ROOT})
    target_link_libraries(${name} INTERFACE ${ARG_DEPS})
  endif()
endfunction()

# quillet_add_precompiled_headers(NAME LIBS lib... HEADERS header...): an object library that only compiles a
# precompiled header of HEADERS, with the flags that linking LIBS gives, for programs of the same flags to reuse
# (target_precompile_headers(PROGRAM REUSE_FROM NAME)).
function(quillet_add_precompiled_headers name)
  cmake_parse_arguments(ARG "" "" "LIBS;HEADERS" ${ARGN})
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_link_libraries(${name} PRIVATE ${ARG_LIBS})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

# quillet_add_subdirectories(): adds every immediate subfolder that has a CMakeLists.txt, in name order.
function(quillet_add_subdirectories)
  file(GLOB children LIST_DIRECTORIES true ${CMAKE_CURRENT_SOURCE_DIR}/*)
  list(SORT children)
  foreach(child ${children})
    if(IS_DIRECTORY ${child} AND EXISTS ${child}/CMakeLists.txt)
      add_subdirectory(${child})
    endif()
  endforeach()
endfunction()
