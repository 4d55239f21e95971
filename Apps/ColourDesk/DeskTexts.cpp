#include "Apps/ColourDesk/DeskTexts.h"

#include "KVUtils/Source/frame/TextSegment.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"

#include <string>
#include <string_view>

namespace colourdesk {

namespace {

template <class Number>
sv::String TextOf(char const* group, Number number) {
    return kv::TextSegment(group)[static_cast<unsigned long>(number)];
}

}  // namespace

sv::String TextOf(Label label) { return TextOf("ColourDesk", label); }
sv::String TextOf(ColumnTitle title) { return TextOf("ColourDeskColumns", title); }
sv::String TextOf(Question question) { return TextOf("ColourDeskQuestions", question); }

void ShowError(sv::String const& text) {
    sv::ErrorBox(sv::Application::GetAppWindow(), sv::WB_OK, text).Execute();
}

sv::String Format(sv::String const& text, std::initializer_list<sv::String> arguments) {
    std::string formatted;
    std::string_view const from = text.View();
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t const number =
            i + 1 < from.size() ? static_cast<std::size_t>(from[i + 1] - '1') : from.size();
        if (from[i] != '%' || number >= arguments.size()) {
            formatted += from[i];
        } else {
            formatted += arguments.begin()[number].View();
            ++i;
        }
    }
    return formatted;
}

}  // namespace colourdesk
