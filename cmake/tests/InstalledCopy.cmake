# Installs the library into an empty prefix and builds two programs against it with find_package: the README's first
# program, whose output must be the one that the README shows, and a consumer that must not see Qt. Where the library has
# windows, one more program asks for them.
set(work ${BUILD}/installed-copy)
file(REMOVE_RECURSE ${work})

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "'${ARGN}' ended with ${result}:\n${output}${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/prefix)
file(COPY ${SOURCE}/cmake/tests/consumer/ DESTINATION ${work}/consumer)

# The first ```cpp block of the README and the ```text block behind it.
file(READ ${SOURCE}/README.md readme)
if(NOT readme MATCHES "```cpp\n([^`]*)```[^`]*```text\n([^`]*)```")
  message(FATAL_ERROR "README.md has no program with its output")
endif()
set(program "${CMAKE_MATCH_1}")
set(expected "${CMAKE_MATCH_2}")
string(REGEX MATCHALL "\n" lines "${program}")
list(LENGTH lines line_count)
if(line_count GREATER 20)
  message(FATAL_ERROR "the README's first program has ${line_count} lines, 20 at most were promised")
endif()
file(WRITE ${work}/consumer/readme.cpp "${program}")

run(${CMAKE_COMMAND} -S ${work}/consumer -B ${work}/build -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_PREFIX_PATH=${work}/prefix)
run(${CMAKE_COMMAND} --build ${work}/build)

run(${work}/build/readme)
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "the README's program printed\n${output}and the README shows\n${expected}")
endif()
run(${work}/build/consumer)
message(STATUS "consumer: ${output}")

if(QT)
  file(COPY ${SOURCE}/cmake/tests/windows/ DESTINATION ${work}/windows)
  run(${CMAKE_COMMAND} -S ${work}/windows -B ${work}/windows-build -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
      -DCMAKE_PREFIX_PATH=${work}/prefix)
  run(${CMAKE_COMMAND} --build ${work}/windows-build)
  run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${work}/windows-build/windows ${work}/window.svg)
  file(READ ${work}/window.svg drawing)
  if(NOT drawing MATCHES "Hello")
    message(FATAL_ERROR "the window's drawing lacks its text:\n${drawing}")
  endif()
endif()
