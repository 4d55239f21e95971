#include "KVUtils/Source/frame/DLL.h"
#include "KVUtils/Tests/staticinit/StaticInitProbe.h"

#include <gtest/gtest.h>

#include <functional>

namespace kv::test {

namespace {

class Probe : public DLL {
  public:
    using DLL::DLL;
    using DLL::GetFunctionPointer;
};

unsigned long Thrown(std::function<void()> const& call) {
    try {
        call();
    } catch (unsigned long error) {
        return error;
    }
    return 0;
}

TEST(DLLTest, FunctionsOfALibraryStayCallable) {
    using Function = StaticInitProbe const& (*)();
    Function function = nullptr;
    {
        Probe const library("libStaticInitProbe");
        function = reinterpret_cast<Function>(library.GetFunctionPointer("_Z17WhatStaticInitSawv"));
    }
    EXPECT_EQ(&function(), &WhatStaticInitSaw());
}

TEST(DLLTest, WhatIsMissingIsThrownAsTheSystemsNumber) {
    EXPECT_NE(Thrown([] { Probe const library("no such library"); }), 0UL);
    Probe const library("libStaticInitProbe");
    EXPECT_NE(Thrown([&library] { static_cast<void>(library.GetFunctionPointer("NoSuchFunction")); }), 0UL);
}

}  // namespace

}  // namespace kv::test
