// Names of locales ("de_CH", "pt_BR") as Windows language identifiers.
#pragma once

#include <string_view>

namespace platform::detail {

/// The identifier for the language and country of a locale's name, whatever its character set and variant
/// ("de_CH.UTF-8@euro"). A country that Windows does not know beside this language gives the language's own
/// identifier, an unknown language 0, and so do "C" and "POSIX".
[[nodiscard]] unsigned short LanguageIdentifierOf(std::string_view localeName) noexcept;

}  // namespace platform::detail
