#include "Platform/CommandLine.h"

#include "Platform/win32/Wide.h"

#include <memory>
#include <shellapi.h>

namespace platform {

std::vector<std::string> Arguments(int, char const* const*) {
    // The arguments of main lack characters outside the code page.
    int count = 0;
    auto const release = [](wchar_t** list) { LocalFree(list); };
    std::unique_ptr<wchar_t*[], decltype(release)> const list(CommandLineToArgvW(GetCommandLineW(), &count),
                                                              release);
    std::vector<std::string> arguments;
    for (int i = 1; list && i < count; ++i)
        arguments.push_back(detail::Narrow(list[static_cast<std::size_t>(i)]));
    return arguments;
}

std::string RunningProgram() {
    constexpr std::size_t LongestPath = 32768;
    std::wstring path(LongestPath, L'\0');
    DWORD const length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length < LongestPath ? length : 0);
    return detail::Narrow(path);
}

}  // namespace platform
