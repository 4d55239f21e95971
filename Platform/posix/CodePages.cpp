#include "Platform/CodePages.h"

#include <algorithm>
#include <cstddef>
#include <iconv.h>

namespace platform {

namespace {

class Converter {
  public:
    Converter(std::string const& to, std::string const& from)
        : handle_(::iconv_open(to.c_str(), from.c_str())) {}
    Converter(Converter const&) = delete;
    Converter& operator=(Converter const&) = delete;
    ~Converter() {
        if (IsOpen()) ::iconv_close(handle_);
    }

    [[nodiscard]] bool IsOpen() const noexcept {
        return handle_ != reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr)
    }

    /// Appends what can be converted; returns the rest.
    std::string_view Convert(std::string_view text, std::string& converted) {
        std::string bytes(4 * text.size(), '\0');
        char* source = const_cast<char*>(text.data());  // NOLINT: iconv does not write it
        char* target = bytes.data();
        std::size_t sourceLeft = text.size();
        std::size_t targetLeft = bytes.size();
        static_cast<void>(::iconv(handle_, &source, &sourceLeft, &target, &targetLeft));
        converted.append(bytes, 0, bytes.size() - targetLeft);
        return text.substr(text.size() - sourceLeft);
    }

  private:
    iconv_t handle_;
};

std::string NameOf(int codePage) {
    std::string name = "CP";
    return name += std::to_string(codePage);
}

}  // namespace

std::optional<std::string> Utf8OfCodePage(std::string_view text, int codePage) {
    Converter converter("UTF-8", NameOf(codePage));
    std::string utf8;
    if (!converter.IsOpen() || !converter.Convert(text, utf8).empty()) return std::nullopt;
    return utf8;
}

std::optional<std::string> CodePageOfUtf8(std::string_view utf8, int codePage) {
    Converter converter(NameOf(codePage), "UTF-8");
    if (!converter.IsOpen()) return std::nullopt;
    std::string text;
    while (!utf8.empty()) {
        utf8 = converter.Convert(utf8, text);
        if (utf8.empty()) break;
        text += '?';
        auto const isFurther = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; };
        utf8.remove_prefix(1);
        utf8.remove_prefix(
            static_cast<std::size_t>(std::ranges::find_if_not(utf8, isFurther) - utf8.begin()));
    }
    return text;
}

}  // namespace platform
