# format: clang-format -i over the project's own .h/.cpp files; format-check: the same files checked
# without changes (fails on the first file that is not formatted). Not part of the build; ./dev test runs
# format-check.
# The build folders and data/ are left out; a table that must keep its hand layout is fenced with
# // clang-format off ... // clang-format on in its file.
find_program(QUILLET_CLANG_FORMAT NAMES clang-format)
if(NOT QUILLET_CLANG_FORMAT)
  return()
endif()

set(format_sources)
foreach(dir app bench cards categorise cli equity range results storage tests tools)
  file(GLOB_RECURSE dir_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${dir}/*.h ${CMAKE_SOURCE_DIR}/${dir}/*.cpp)
  list(APPEND format_sources ${dir_sources})
endforeach()
list(SORT format_sources)

add_custom_target(format
  COMMAND ${QUILLET_CLANG_FORMAT} -i ${format_sources}
  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
  COMMENT "clang-format -i over the project's .h/.cpp files"
  VERBATIM)
add_custom_target(format-check
  COMMAND ${QUILLET_CLANG_FORMAT} --dry-run -Werror ${format_sources}
  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
  COMMENT "clang-format --dry-run -Werror over the project's .h/.cpp files"
  VERBATIM)
