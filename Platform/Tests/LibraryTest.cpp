#include "Platform/Library.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

TEST(Library, LoadsAndFindsFunctions) {
    std::string const suffix = platform::LibrarySuffix();
    bool const isWindows = suffix == ".dll";
    unsigned long error = 0;
    void* const library = platform::LoadLibraryFile(isWindows ? "msvcrt.dll" : "libm.so.6", error);
    ASSERT_NE(library, nullptr) << error;
    void* const address = platform::FunctionAddress(library, "cos", error);
    ASSERT_NE(address, nullptr) << error;
    EXPECT_EQ(reinterpret_cast<double (*)(double)>(address)(0.0), 1.0);
    EXPECT_EQ(error, 0U);
    EXPECT_EQ(platform::FunctionAddress(library, "no_such_function", error), nullptr);
    EXPECT_NE(error, 0U);
    platform::FreeLibraryFile(library);
    EXPECT_EQ(platform::LoadLibraryFile("no_such_library" + suffix, error), nullptr);
    EXPECT_EQ(error, isWindows ? 126U : 79U) << "the system's number for a library that cannot be accessed";
}
