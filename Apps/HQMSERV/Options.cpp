#include "Apps/HQMSERV/Options.h"

#include <charconv>
#include <stdexcept>

namespace hqmserv {

namespace {

int ToNumber(std::string const& option, std::string const& text, int maximum) {
    int number = -1;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 0 || number > maximum) {
        throw std::invalid_argument(option + ": not a number from 0 to " + std::to_string(maximum) + ": \"" +
                                    text + '"');
    }
    return number;
}

}  // namespace

Options ParseOptions(std::vector<std::string> const& arguments) {
    constexpr int LastCode = 999;
    constexpr int MaxTime = 60'000;
    Options options;
    for (auto word = arguments.begin(); word != arguments.end(); ++word) {
        auto const value = [&](int maximum) {
            std::string const& option = *word;
            if (++word == arguments.end()) throw std::invalid_argument(option + ": missing number");
            return ToNumber(option, *word, maximum);
        };
        if (*word == "-S") {
            options.isCalled = true;
        } else if (*word == "-LNG") {
            options.language = value(LastCode);
        } else if (*word == "--measuring-time") {
            options.measuringTime = std::chrono::milliseconds(value(MaxTime));
        } else if (*word == "--help" || *word == "-h") {
            options.wantsHelp = true;
        } else if (*word == "--version") {
            options.wantsVersion = true;
        } else if (word->starts_with('-') || !options.file.empty() || word->empty()) {
            throw std::invalid_argument("unexpected argument \"" + *word + "\" (see HQMSERV --help)");
        } else {
            options.file = *word;
        }
    }
    return options;
}

}  // namespace hqmserv
