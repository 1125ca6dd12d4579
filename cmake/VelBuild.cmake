# Compiler settings, and the layout of the build tree.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g")

set(VEL_SANITIZE "" CACHE STRING "Sanitizers to build with, separated by commas")
option(VEL_COVERAGE "Count which lines run" OFF)

# Warnings are errors only with the compilers that the code is tested with; other compilers may warn without failing the
# build.
set(strict OFF)
if((CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13) OR
   (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15))
  set(strict ON)
endif()
option(VEL_WARNINGS_AS_ERRORS "Let a warning of the compiler fail the build" ${strict})

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wimplicit-fallthrough)
if(VEL_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()
if(VEL_SANITIZE)
  add_compile_options(-fsanitize=${VEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VEL_SANITIZE})
else()
  add_link_options(-Wl,--no-undefined)
endif()
if(VEL_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()

# The build tree has the layout of an installation, so the program finds its directories the same way in both.
set(VEL_ROOT ${CMAKE_BINARY_DIR}/root)
set(VEL_EXEC_DIR sys/exec)
set(VEL_TRANSLATOR_DIR ${VEL_EXEC_DIR}/lib)
set(VEL_SERVICE_DIR ${VEL_EXEC_DIR}/services)
set(VEL_SCHEMA_DIR sys/schemas)

set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# Everything that the program needs to run, including the translators.
add_custom_target(program)
add_custom_target(translator_libraries)

# vel_place(TARGET DIRECTORY): puts the target's file into DIRECTORY below the root, in the build and in an
# installation, and sets the run path to the shared libraries.
function(vel_place target directory)
  string(REGEX REPLACE "[^/]+" ".." up ${directory})
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${VEL_ROOT}/${directory}
    LIBRARY_OUTPUT_DIRECTORY ${VEL_ROOT}/${directory}
    INSTALL_RPATH "$ORIGIN/${up}/${CMAKE_INSTALL_LIBDIR}")
  add_dependencies(program ${target})
  install(TARGETS ${target} RUNTIME DESTINATION ${directory} LIBRARY DESTINATION ${directory})
endfunction()

# vel_add_translator(NAME SOURCE...): the translator library NAME.dll.
function(vel_add_translator name)
  add_library(${name} MODULE ${ARGN})
  target_link_libraries(${name} PRIVATE velplatform)
  set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX ".dll")
  vel_place(${name} ${VEL_TRANSLATOR_DIR})
  add_dependencies(translator_libraries ${name})
endfunction()

# vel_add_service(KEY SOURCE...): the service library KEYsvc.dll.
function(vel_add_service key)
  set(library ${key}svc)
  add_library(${library} MODULE ${ARGN})
  target_link_libraries(${library} PRIVATE velplatform)
  set_target_properties(${library} PROPERTIES PREFIX "" SUFFIX ".dll")
  vel_make_unloadable(${library})
  vel_place(${library} ${VEL_SERVICE_DIR})
endfunction()

# vel_make_unloadable(TARGET): lets the library be unloaded. A symbol that is unique in the process would keep the
# library mapped after it was closed.
function(vel_make_unloadable target)
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
endfunction()

# vel_add_data(DIRECTORY FILE...): puts files into DIRECTORY below the root, in the build and in an installation.
function(vel_add_data directory)
  foreach(file ${ARGN})
    cmake_path(GET file FILENAME name)
    configure_file(${file} ${VEL_ROOT}/${directory}/${name} COPYONLY)
  endforeach()
  install(FILES ${ARGN} DESTINATION ${directory})
endfunction()
