#include "Platform/Library.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

bool const isWindows = std::string_view(platform::LibrarySuffix()) == ".dll";

TEST(Library, LoadsAndFindsFunctions) {
    unsigned long error = 0;
    void* const library = platform::LoadLibraryFile(isWindows ? "msvcrt.dll" : "libm.so.6", error);
    ASSERT_NE(library, nullptr) << error;
    void* const address = platform::FunctionAddress(library, "cos", error);
    ASSERT_NE(address, nullptr) << error;
    auto* const cosine = reinterpret_cast<double (*)(double)>(address);
    EXPECT_EQ(cosine(0.0), 1.0);
    EXPECT_EQ(error, 0U);
    EXPECT_EQ(platform::FunctionAddress(library, "no_such_function", error), nullptr);
    EXPECT_NE(error, 0U);
    platform::FreeLibraryFile(library);
}

TEST(Library, ReportsANumberForAMissingFile) {
    unsigned long error = 0;
    EXPECT_EQ(platform::LoadLibraryFile(std::string("no_such_library") + platform::LibrarySuffix(), error),
              nullptr);
    EXPECT_EQ(error, isWindows ? 126U : 79U) << "the system's number for a library that cannot be had";
}

}  // namespace
