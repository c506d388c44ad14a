# Sources that are compiled as one: most of a compiler's time goes into headers, which they share.

# append_targets(FOLDER VARIABLE): adds the targets of a folder, and of those below it.
function(append_targets folder variable)
  get_property(found DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  get_property(below DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  set(targets ${${variable}} ${found})
  foreach(one IN LISTS below)
    append_targets(${one} targets)
  endforeach()
  set(${variable} ${targets} PARENT_SCOPE)
endfunction()

# repvolta_group_sources(): groups the sources of all targets, when all are there. Which sources go
# together is a matter of the names that they declare; so they are grouped anew by each configuring.
# Without Python each is compiled alone, which comes to the same.
function(repvolta_group_sources)
  find_package(Python3 COMPONENTS Interpreter)
  if(NOT Python3_FOUND)
    return()
  endif()
  append_targets(${PROJECT_SOURCE_DIR} targets)
  set(lines "")
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE" OR type STREQUAL "STATIC_LIBRARY")
      get_target_property(sources ${target} SOURCES)
      get_target_property(folder ${target} SOURCE_DIR)
      list(FILTER sources INCLUDE REGEX "\\.cpp$")
      list(TRANSFORM sources PREPEND ${folder}/ REGEX "^[^/]")
      list(FILTER sources EXCLUDE REGEX "^${CMAKE_BINARY_DIR}/")  # made by the build
      list(JOIN sources " " sources)
      string(APPEND lines "${target} ${sources}\n")
      set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    endif()
  endforeach()
  file(WRITE ${CMAKE_BINARY_DIR}/sources.txt "${lines}")
  execute_process(
    COMMAND ${Python3_EXECUTABLE} -B ${PROJECT_SOURCE_DIR}/tools/group-sources ${CMAKE_BINARY_DIR}/sources.txt
    OUTPUT_FILE ${CMAKE_BINARY_DIR}/groups.cmake COMMAND_ERROR_IS_FATAL ANY)
  include(${CMAKE_BINARY_DIR}/groups.cmake)
endfunction()
