# Compiler options that every target of this project shares.
add_library(kvutils_options INTERFACE)
target_compile_features(kvutils_options INTERFACE cxx_std_20)

# Results are the same on every build: no fused multiply-add behind the source's back, no reassociation.
target_compile_options(kvutils_options INTERFACE -ffp-contract=off)

target_compile_options(kvutils_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wextra-semi
  $<$<BOOL:${KVUTILS_WARNINGS_AS_ERRORS}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimising, GCC 12 sees overlapping copies where two std::strings are joined (GCC bug 105651), uninitialised ones where
  # a std::variant that holds no string is moved (105562), and a wrong pointer deleted where an object goes by its
  # second base. The analyser of ./kv lint watches instead.
  target_compile_options(kvutils_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized -Wno-free-nonheap-object)
endif()

if(KVUTILS_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(KVUTILS_SANITIZE)
  target_compile_options(kvutils_options INTERFACE
    -fsanitize=${KVUTILS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kvutils_options INTERFACE -fsanitize=${KVUTILS_SANITIZE})
endif()
if(KVUTILS_COVERAGE)
  target_compile_options(kvutils_options INTERFACE --coverage)
  target_link_options(kvutils_options INTERFACE --coverage)
endif()
