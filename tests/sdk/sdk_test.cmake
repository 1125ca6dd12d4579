# Installs BUILD, moves the installation, builds examples/translator, a service and small programs against it, and runs them.

# run(WHAT COMMAND...): stops the test when the command fails; `output` is what it printed.
function(run what)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${WORK}
    OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${output}${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect what text pattern)
  if(NOT text MATCHES "${pattern}")
    message(FATAL_ERROR "${what}: expected \"${pattern}\" in:\n${text}")
  endif()
endfunction()

# build(DIRECTORY): configures and builds a project outside the tree; its build directory is named like it.
function(build directory)
  cmake_path(GET directory FILENAME name)
  run("configuring ${name}" ${CMAKE_COMMAND} -S ${directory} -B ${WORK}/${name} -G ${GENERATOR}
    -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS}
    -D CMAKE_BUILD_TYPE=Debug)
  run("building ${name}" ${CMAKE_COMMAND} --build ${WORK}/${name})
endfunction()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/home)
set(ENV{QRM_HOME} ${WORK}/home)

# An installation may be moved as a whole.
run("installing" ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
set(prefix "${WORK}/moved")
file(RENAME ${WORK}/first ${prefix})
foreach(file share/man/man1/vel.1 file/examples/bracket.stl sys/schemas/resources/STL.rsc)
  if(NOT EXISTS ${prefix}/${file})
    message(FATAL_ERROR "the installation lacks ${file}")
  endif()
endforeach()
run("vel --version" ${prefix}/bin/vel --version)
expect("vel --version" "${output}" "${VERSION}")

# The installation's own copy of the example, as an author finds it.
build(${prefix}/file/examples/translator)
run("installing the translator" ${CMAKE_COMMAND} --install ${WORK}/translator)
run("vel list" ${prefix}/bin/vel list)
expect("vel list" "${output}" "TRI +input +tri, raw +Unknown +Mesh +trireader.dll")
expect("vel list" "${output}" "TRI +output +tri, raw +Mesh +triwriter.dll")
expect("vel list" "${output}" "STL +input")
if(output MATCHES "Failed")
  message(FATAL_ERROR "vel list: ${output}")
endif()

# What is no file of the format, although its reader is asked.
file(WRITE ${WORK}/bad.tri "0 0 0 1 0 0 0 1 0\n\n0 0 0 1 0 0 0 nan 0\n")
execute_process(COMMAND ${prefix}/bin/vel info ${WORK}/bad.tri RESULT_VARIABLE result ERROR_VARIABLE errors)
expect("vel info of a broken file" "${result} ${errors}" "^4 .*bad.tri: line 3: nine numbers are expected")

run("vel options" ${prefix}/bin/vel options TRI)
expect("vel options" "${output}" "SCALE = 1.*CHORD_TOLERANCE = 0")

run("vel translate" ${prefix}/bin/vel translate ${prefix}/file/examples/bracket.stl -o ${WORK}/bracket.tri
  --out SCALE=10)
file(STRINGS ${WORK}/bracket.tri lines)
list(LENGTH lines count)
set(number "-?[0-9.e-]+")
list(FILTER lines EXCLUDE REGEX "^${number} ${number} ${number} ${number} ${number} ${number} ${number} ${number} ${number}$")
if(NOT count EQUAL 524 OR lines)
  message(FATAL_ERROR "bracket.tri: ${count} lines instead of 524; not nine numbers: ${lines}")
endif()
run("vel info" ${prefix}/bin/vel info ${WORK}/bracket.tri)
expect("vel info" "${output}" "triangles +524\nvertices +260\nsmallest x y z +0 0 0\nlargest x y z +600 400 600")

# A service, and a program that finds it among those of the installation.
build(${SOURCE}/tests/sdk/service)
run("installing the service" ${CMAKE_COMMAND} --install ${WORK}/service)
run("the program that asks for the service" ${WORK}/service/greet)
expect("the program that asks for the service" "${output}" "^hello 1 0\n$")

# An older language is reported.
execute_process(COMMAND ${COMPILER} -std=c++17 -E -x c++
    -I${prefix}/include/velbase -I${prefix}/include/velbase/platform ${prefix}/include/velbase/vlnTranslator.h
  RESULT_VARIABLE result ERROR_VARIABLE errors OUTPUT_QUIET)
expect("a header in C++17" "${result} ${errors}" "^1 .*#error .velbase needs C\\+\\+20")

# A program, by the CMake package and by pkg-config.
build(${SOURCE}/tests/sdk/consumer)
run("the program by CMake" ${WORK}/consumer/consumer)
expect("the program by CMake" "${output}" "^[0-9]+ /a;/b\n$")

find_program(pkg_config pkg-config)
if(NOT pkg_config)
  message(STATUS "pkg-config is not installed: its file was not tried")
  return()
endif()
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBRARY_DIR}/pkgconfig)
run("pkg-config" ${pkg_config} --cflags --libs velbase)
separate_arguments(words UNIX_COMMAND "${FLAGS} ${output}")
run("building by pkg-config" ${COMPILER} ${SOURCE}/tests/sdk/consumer/main.cpp -o ${WORK}/by_pkg_config ${words}
  -Wl,-rpath,${prefix}/${LIBRARY_DIR})
run("the program by pkg-config" ${WORK}/by_pkg_config)
expect("the program by pkg-config" "${output}" "^[0-9]+ /a;/b\n$")
