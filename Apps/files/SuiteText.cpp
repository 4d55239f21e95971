#include "Apps/files/SuiteText.h"

#include "SV/core/detail/Encoding.h"

namespace files {

std::string ToSuite(std::string_view utf8) {
    return sv::detail::ToSingleByte(sv::detail::FromUtf8(utf8), sv::detail::Windows1252);
}

std::string FromSuite(std::string_view bytes) {
    return sv::detail::ToUtf8(sv::detail::FromSingleByte(bytes, sv::detail::Windows1252));
}

}  // namespace files
