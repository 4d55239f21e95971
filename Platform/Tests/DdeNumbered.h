// DdeNumbered: numbered messages, which reveal loss, duplication, corruption and reordering.
#pragma once

#include <charconv>
#include <map>
#include <string>
#include <string_view>

namespace tests {

/// Returns the number, a blank, and padding that depends on the number, up to `size` bytes.
[[nodiscard]] inline std::string NumberedMessage(unsigned long number, std::size_t size) {
    std::string message = std::to_string(number) + ' ';
    if (message.size() < size) message.resize(size, static_cast<char>('a' + number % 26));
    return message;
}

/// Counts the messages of several senders, and the faulty ones: damaged, or not the next of their sender.
class NumberedMessages {
  public:
    void Take(std::string_view sender, std::string_view message) {
        ++count_;
        unsigned long& next = next_[std::string(sender)];
        unsigned long number = 0;
        std::from_chars(message.data(), message.data() + message.size(), number);
        if (number != next || message != NumberedMessage(number, message.size())) ++faults_;
        next = number + 1;
    }

    [[nodiscard]] unsigned long Count() const noexcept { return count_; }
    [[nodiscard]] unsigned long Count(std::string const& sender) const {
        auto const place = next_.find(sender);
        return place == next_.end() ? 0 : place->second;
    }
    [[nodiscard]] unsigned long Faults() const noexcept { return faults_; }

  private:
    std::map<std::string, unsigned long> next_;
    unsigned long count_ = 0;
    unsigned long faults_ = 0;
};

}  // namespace tests
