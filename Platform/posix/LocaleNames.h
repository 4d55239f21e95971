// LocaleNames: Windows language identifiers of locale names ("de_CH", "pt_BR").
#pragma once

#include <string_view>

namespace platform::detail {

/// Returns the identifier for the language and country of a locale name, ignoring character set and variant
/// ("de_CH.UTF-8@euro"). A country unknown to Windows for this language yields the language's own identifier;
/// an unknown language, "C" and "POSIX" yield 0.
[[nodiscard]] unsigned short LanguageIdentifierOf(std::string_view localeName) noexcept;

}  // namespace platform::detail
