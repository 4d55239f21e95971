#include "Platform/CommandLine.h"

#include <windows.h>  // before all other headers of the system

#include <memory>
#include <shellapi.h>

namespace platform {

namespace {

std::string ToUtf8(wchar_t const* wide) {
    int const size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size > 0 ? size : 1), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
    text.pop_back();
    return text;
}

}  // namespace

std::vector<std::string> Arguments(int, char const* const*) {
    // Those of main have lost what the code page does not have.
    int count = 0;
    auto const release = [](wchar_t** list) { LocalFree(list); };
    std::unique_ptr<wchar_t*[], decltype(release)> const list(CommandLineToArgvW(GetCommandLineW(), &count),
                                                              release);
    std::vector<std::string> arguments;
    for (int i = 1; list && i < count; ++i) arguments.push_back(ToUtf8(list[static_cast<std::size_t>(i)]));
    return arguments;
}

std::string RunningProgram() {
    constexpr std::size_t LongestPath = 32768;
    std::wstring path(LongestPath, L'\0');
    DWORD const length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length < LongestPath ? length : 0);
    return ToUtf8(path.c_str());
}

}  // namespace platform
