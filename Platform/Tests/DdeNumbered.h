// DdeNumbered: messages that show whether one was lost, doubled, changed or overtaken.
#pragma once

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tests {

/// The number, a blank, and filling that depends on it.
[[nodiscard]] inline std::string NumberedMessage(unsigned long number, std::size_t size) {
    std::string message = std::to_string(number) + ' ';
    if (message.size() < size) message.resize(size, static_cast<char>('a' + number % 26));
    return message;
}

/// Takes messages of several senders and counts those that are not the next one of their sender.
class NumberedMessages {
  public:
    void Take(std::string_view sender, std::string_view message) {
        ++count_;
        auto place = next_.find(sender);
        if (place == next_.end()) place = next_.emplace(sender, 0).first;
        unsigned long number = 0;
        std::from_chars(message.data(), message.data() + message.size(), number);
        std::string_view const filling = message.substr(std::min(message.find(' ') + 1, message.size()));
        // A comparison in one go, since this is done for hundreds of thousands of messages.
        expected_.assign(filling.size(), static_cast<char>('a' + number % 26));
        bool const isWhole = filling == expected_;
        if (number != place->second || !isWhole) ++faults_;
        place->second = number + 1;
    }

    [[nodiscard]] unsigned long Count() const noexcept { return count_; }
    [[nodiscard]] unsigned long Count(std::string_view sender) const {
        auto const place = next_.find(sender);
        return place == next_.end() ? 0 : place->second;
    }
    [[nodiscard]] unsigned long Faults() const noexcept { return faults_; }

  private:
    std::map<std::string, unsigned long, std::less<>> next_;
    std::string expected_;
    unsigned long count_ = 0;
    unsigned long faults_ = 0;
};

}  // namespace tests
