# Compiler settings shared by every target.

include(CheckPIESupported)
check_pie_supported()

add_library(repvolta_options INTERFACE)
target_compile_options(repvolta_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  -fstack-protector-strong)
if(REPVOLTA_GROUPS)
  # What is one source's own is global for the others of its group, and g++ takes the sources of a group
  # for headers; a build without groups judges them.
  target_compile_options(repvolta_options INTERFACE -Wno-shadow
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local> $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # False alarms inside std::string's own operator+ (GCC bug 105651).
  target_compile_options(repvolta_options INTERFACE -Wno-restrict)
endif()
target_link_options(repvolta_options INTERFACE -Wl,-z,relro,-z,now)
# Half of the program knows nothing of Qt and has slots and signals of its own.
target_compile_definitions(repvolta_options INTERFACE QT_NO_KEYWORDS)

# What is built fast has no optimisation, without which nothing is fortified.
set(fast $<BOOL:$<TARGET_PROPERTY:REPVOLTA_BUILT_FAST>>)
if(CMAKE_BUILD_TYPE STREQUAL "Release" OR REPVOLTA_SANITIZE)
  target_compile_options(repvolta_options INTERFACE $<${fast}:-O0>)
endif()
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT REPVOLTA_SANITIZE)
  target_compile_options(repvolta_options INTERFACE
    -U_FORTIFY_SOURCE $<$<NOT:${fast}>:-D_FORTIFY_SOURCE=2>)
endif()

if(REPVOLTA_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(repvolta_options INTERFACE ${sanitizers} -D_GLIBCXX_ASSERTIONS)
  target_link_options(repvolta_options INTERFACE ${sanitizers})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # With sanitizers it warns of values that are not set although they are; the release build is judge.
    target_compile_options(repvolta_options INTERFACE -Wno-error)
  endif()
endif()

if(REPVOLTA_FUZZ)
  target_compile_options(repvolta_options INTERFACE
    -fsanitize=fuzzer-no-link,float-cast-overflow -fno-sanitize-recover=float-cast-overflow)
endif()

if(REPVOLTA_COVERAGE)
  target_compile_options(repvolta_options INTERFACE --coverage -O0)
  target_link_options(repvolta_options INTERFACE --coverage)
endif()

# repvolta_folder([libraries...]): a static library of this folder's sources, named after the
# folder. It links the folders that it builds on (src/folders.txt) and the libraries named here.
function(repvolta_folder)
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
  get_filename_component(name ${folder} NAME)
  if(ARGN MATCHES "repvolta_")
    message(FATAL_ERROR "src/folders.txt says on which folders ${folder} builds")
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_library(repvolta_${name} STATIC ${sources})
  target_include_directories(repvolta_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(repvolta_${name} PUBLIC repvolta_options ${ARGN})
  foreach(other IN LISTS builds_on_${folder})
    get_filename_component(other ${other} NAME)
    target_link_libraries(repvolta_${name} PUBLIC repvolta_${other})
  endforeach()
endfunction()
