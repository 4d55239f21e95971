# Installs everything into an empty prefix and builds against it with find_package: the README's program by the README's
# own CMake text, whose output must be the one shown, and a consumer that must not see Qt. Where the library has windows,
# one more program uses them.
set(work ${BUILD}/installed-copy)
file(REMOVE_RECURSE ${work})

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "'${ARGN}' exited with ${result}:\n${output}${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# build(NAME): configures and builds the project in ${work}/NAME in ${work}/NAME-build.
function(build name)
  run(${CMAKE_COMMAND} -S ${work}/${name} -B ${work}/${name}-build -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
      -DCMAKE_PREFIX_PATH=${work}/prefix)
  run(${CMAKE_COMMAND} --build ${work}/${name}-build)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/prefix)

# The first ```cpp block of the README, the ```text block after it and the ```cmake block after that.
file(READ ${SOURCE}/README.md readme)
if(NOT readme MATCHES "```cpp\n([^`]*)```[^`]*```text\n([^`]*)```[^`]*`CMakeLists.txt`[^`]*```cmake\n([^`]*)```")
  message(FATAL_ERROR "README.md does not have a program, its output and its CMakeLists.txt in this order")
endif()
set(expected "${CMAKE_MATCH_2}")
file(WRITE ${work}/readme/first.cpp "${CMAKE_MATCH_1}")
file(WRITE ${work}/readme/CMakeLists.txt "${CMAKE_MATCH_3}")
build(readme)
run(${work}/readme-build/first)
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "the README's program printed\n${output}and the README shows\n${expected}")
endif()

file(COPY ${SOURCE}/cmake/tests/consumer/ DESTINATION ${work}/consumer)
build(consumer)
run(${work}/consumer-build/consumer)
message(STATUS "consumer: ${output}")

if(QT)
  file(COPY ${SOURCE}/cmake/tests/windows/ DESTINATION ${work}/windows)
  build(windows)
  run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${work}/windows-build/windows ${work}/window.svg)
  file(READ ${work}/window.svg drawing)
  if(NOT drawing MATCHES "Hello")
    message(FATAL_ERROR "the window's drawing lacks its text:\n${drawing}")
  endif()
endif()
