# Compiler options that every target of this project shares.
add_library(kvutils_options INTERFACE)
target_compile_features(kvutils_options INTERFACE cxx_std_20)

# Results are the same on every build: no fused multiply-add behind the source's back, no reassociation.
target_compile_options(kvutils_options INTERFACE -ffp-contract=off)

# Nor may an optimiser drop a rounding to float: where this one does, straight-line code is not vectorised. The library's
# own places withstand it (detail::Rounded), Tools/bits.sh watches them, and this is for those still to be written.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  include(CheckCXXSourceRuns)
  set(CMAKE_REQUIRED_FLAGS "-O2 -ffp-contract=off")
  if(CMAKE_CROSSCOMPILING)
    set(KVUTILS_KEEPS_ROUNDINGS FALSE)
  else()
    check_cxx_source_runs("
      __attribute__((noinline)) void Scale(double const* s, double d, float* v) {
        v[0] = static_cast<float>(s[0]); v[1] = static_cast<float>(s[1]); v[2] = static_cast<float>(s[2]);
        v[0] = static_cast<float>(v[0] / d * 100);
        v[1] = static_cast<float>(v[1] / d * 100);
        v[2] = static_cast<float>(v[2] / d * 100);
      }
      int main() {
        double const s[3] = {213.25435622141896, 213.25435622141896, 213.25435622141896};
        double const d = 1078.85571;
        float v[3];
        Scale(s, d, v);
        float volatile const rounded = static_cast<float>(s[0]);
        float volatile const expected = static_cast<float>(rounded / d * 100);
        return v[0] == expected && v[1] == expected && v[2] == expected ? 0 : 1;
      }" KVUTILS_KEEPS_ROUNDINGS)
  endif()
  unset(CMAKE_REQUIRED_FLAGS)
  if(NOT KVUTILS_KEEPS_ROUNDINGS)
    target_compile_options(kvutils_options INTERFACE -fno-tree-slp-vectorize)
  endif()
endif()

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
