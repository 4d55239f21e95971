#include "KVUtils/Source/frame/Text.h"

#include "KVUtils/Source/frame/detail/TextFile.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

namespace {

constexpr int GermanCode = 49;
constexpr int EnglishCode = 1;

struct LoadedTexts {
    detail::TextGroups groups;
    std::vector<sv::String> entries;
    std::size_t writeIndex = 0;  // the entry that the second pass stores next
    int messageLanguage = EnglishCode;
};

constinit LoadedTexts loaded;

struct FaultTexts {
    char const* title;
    char const* missing;
    char const* inGroup;
    char const* goOn;
    char const* cannotOpen;
    char const* moreThan;
    char const* groups;
    char const* general;
};

constexpr FaultTexts EnglishFaults = {
    "error in text file '",     "missing ",   " in text group ", "\n\ncontinue?",
    "unable to open text file", "more then ", " text groups",    "general error"};
constexpr FaultTexts GermanFaults = {"Fehler in Textdatei '",
                                     "Fehlendes Zeichen ",
                                     " in Textgruppe ",
                                     "\n\nweiterfahren?",
                                     "Es ist nicht m\xF6glich die Textdatei zu \xF6"
                                     "ffnen",
                                     "Mehr als ",
                                     " Textgruppen",
                                     "Allgemeiner Fehler"};

/// Shows the error; returns whether to continue.
bool ShowFault(sv::String const& file, detail::TextFault fault, char missing, sv::String const& group) {
    FaultTexts const& texts = loaded.messageLanguage == GermanCode ? GermanFaults : EnglishFaults;
    sv::String const title = sv::String(texts.title) + file + "'\n";
    switch (fault) {
        case detail::TextFault::MissingCharacter: {
            sv::String const question = title + texts.missing + missing + texts.inGroup + group + texts.goOn;
            return sv::MessBox(nullptr, sv::WB_YES_NO, {}, question).Execute() != sv::BoxAnswer::No;
        }
        case detail::TextFault::CannotOpen:
            sv::ErrorBox(nullptr, sv::WB_OK, title + texts.cannotOpen).Execute();
            break;
        case detail::TextFault::TooManyGroups:
            sv::ErrorBox(nullptr, sv::WB_OK,
                         title + texts.moreThan + sv::String(detail::TextGroups::MaxCount) + texts.groups)
                .Execute();
            break;
        case detail::TextFault::General:
            sv::ErrorBox(nullptr, sv::WB_OK, title + texts.general).Execute();
            break;
    }
    return true;
}

/// Returns false, after showing a box, if the file cannot be opened or read to its end.
bool ReadFile(sv::String const& name, std::string& bytes) {
    std::ifstream file(sv::FilePath(name), std::ios::binary);
    if (!file.is_open()) {
        ShowFault(name, detail::TextFault::CannotOpen, '\0', {});
        return false;
    }
    std::vector<char> block(65536);
    while (file.read(block.data(), static_cast<std::streamsize>(block.size())) || file.gcount() > 0) {
        bytes.append(block.data(), static_cast<std::size_t>(file.gcount()));
    }
    if (file.bad()) ShowFault(name, detail::TextFault::General, '\0', {});
    return !file.bad();
}

/// The first pass. Returns false if any error was shown.
bool ParseTextFile(sv::String const& name, std::string_view bytes) {
    return CountTexts(bytes, loaded.groups,
                      [&name](detail::TextFault fault, char missing, sv::String const& group) {
                          return ShowFault(name, fault, missing, group);
                      });
}

/// The second pass. Discards an entry that the first pass did not count.
void ReadString(std::string_view bytes) {
    detail::ReadTexts(bytes, [](std::string_view text) {
        if (loaded.writeIndex < loaded.entries.size()) {
            loaded.entries[loaded.writeIndex] = Text::ConvertText(text);
        }
        ++loaded.writeIndex;
    });
}

}  // namespace

void Text::LoadText(sv::String const& name) {
    std::string bytes;
    if (!ReadFile(name, bytes) || !ParseTextFile(name, bytes)) return;
    loaded.entries.resize(loaded.groups.entryCount);
    ReadString(bytes);
}

void Text::LoadText(sv::String const& name, int language) {
    loaded.messageLanguage = language;
    LoadText(name + sv::String(language) + ".lng");
}

sv::String Text::GetText(unsigned group, unsigned long index) {
    if (group >= loaded.groups.starts.size()) return {};
    unsigned long const start = loaded.groups.starts[group];
    if (start >= loaded.entries.size() || index >= loaded.entries.size() - start) return {};
    return loaded.entries[start + index];
}

unsigned long Text::GetEntryCount(unsigned group) {
    auto const& starts = loaded.groups.starts;
    if (group >= starts.size() || group + 1 >= starts.size()) return 0;
    return starts[group + 1] - starts[group];
}

unsigned Text::GetGroupNr(sv::String const& name) {
    auto const& names = loaded.groups.names;
    auto const found = std::ranges::find(names, name);
    return found == names.end() ? static_cast<unsigned>(-1) : static_cast<unsigned>(found - names.begin());
}

void Text::FreeResources() { loaded = {}; }

}  // namespace kv
