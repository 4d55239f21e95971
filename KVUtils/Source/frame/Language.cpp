#include "KVUtils/Source/frame/Language.h"

#include "KVUtils/Source/frame/WinIni.h"
#include "KVUtils/Source/frame/detail/LanguageTable.h"
#include "SV/core/DirEntry.h"
#include "SV/core/International.h"
#include "SV/core/detail/TextPage.h"
#include "SV/ui/Language.h"

#include <algorithm>
#include <array>

namespace kv {

namespace {

using detail::LanguageTable;

constexpr unsigned short English = 0;
constexpr unsigned short Chinese = 23;
constexpr unsigned short Japanese = 24;
constexpr unsigned short PastTheTable = LanguageTable.size();
constexpr unsigned short UnknownLanguage = 65535;

static_assert(LanguageTable[English].name == "English");
static_assert(LanguageTable[Chinese].name == "Chinese");
static_assert(LanguageTable[Japanese].name == "Japanese");

/// The languages of the table by their ISO codes, for the texts of the window system.
constexpr std::array<char const*, LanguageTable.size()> IsoCodes = {
    "en", "de", "es", "fr", "it", "nl", "sv", "fi", "nb", "da", "pt_BR", "cs", "hu",
    "pl", "ar", "ru", "vi", "tr", "",   "",   "",   "",   "",   "zh_CN", "ja"};

constinit std::array<bool, LanguageTable.size()> available{};
constinit unsigned short current = English;  // absolute index
constinit sv::Config* config = nullptr;      // null: the choice is kept in memory

/// Makes a language current, and selects the code page of its texts.
void Select(unsigned short absolute) noexcept {
    current = absolute;
    sv::ChangeLanguage(absolute < IsoCodes.size() ? IsoCodes[absolute] : "");
    sv::ChangeTextPage(absolute == Japanese  ? sv::TextPage::Japanese
                       : absolute == Chinese ? sv::TextPage::Chinese
                                             : sv::TextPage::Western);
}

bool EndsInDigit(sv::String const& text) noexcept {
    return !text.IsEmpty() && text[text.Len() - 1] >= '0' && text[text.Len() - 1] <= '9';
}

}  // namespace

constinit Language* Language::instance_ = nullptr;

Language* Language::CreateLanguage(sv::Config* choice, sv::String const& fileName) {
    return Create(instance_, [&] { return new Language(choice, fileName); });
}

Language* Language::Instance() { return InstanceOrNull(instance_, "Language"); }

Language::Language(sv::Config* choice, sv::String const& fileName) {
    config = choice;
    AccsessableLanguage(fileName);
    ReadChoice();
}

Language::~Language() {
    config = nullptr;
    instance_ = nullptr;
}

unsigned short Language::GetCountryCode() noexcept {
    return IsAvailable(current) ? AbsoluteToCountryCode(current) : AbsoluteToCountryCode(English);
}

unsigned char Language::IsJapanese() noexcept { return current == Japanese ? 1 : 0; }
unsigned char Language::IsChinese() noexcept { return current == Chinese ? 1 : 0; }

void Language::InitListBox(sv::ListBox& box) {
    box.Clear();
    for (unsigned short i = 0; i < PastTheTable; ++i) {
        if (IsAvailable(i)) box.InsertEntry(LanguageTable[i].name);
    }
    box.SelectEntryPos(AbsoluteToListEntry(current));
}

void Language::SetLanguage(unsigned short listEntry) {
    Select(ListEntryToAbsolute(listEntry));
    WriteChoice();
}

void Language::SetLanguageByCountryCode(unsigned short code) {
    Select(CountryCodeToAbsolute(code));
    if (IsAvailable(current)) WriteChoice();
}

void Language::AccsessableLanguage(sv::String const& fileName) {
    sv::DirEntry file(fileName);
    sv::String const extension = file.CutExtension();
    sv::String const ending = extension.IsEmpty() ? sv::String() : sv::String(".") + extension;
    // Intentional: of a country code of three digits the first stays in the stem.
    sv::String stem = file.GetName();
    for (int digit = 0; digit < 2 && EndsInDigit(stem); ++digit) stem.Erase(stem.Len() - 1);

    for (std::size_t i = 0; i < LanguageTable.size(); ++i) {
        file.ChangeName(stem + sv::String(LanguageTable[i].countryCode) + ending);
        available[i] = file.Exists();
    }
}

unsigned short Language::GetWinSprache() {
    unsigned short const identifier = sv::International::GetLanguage();
    if (identifier == 0 || identifier == 255) return ReadFromWinINI();
    auto const* const known =
        std::ranges::find(detail::SystemLanguages, identifier, &detail::SystemLanguage::identifier);
    return known == detail::SystemLanguages.end() ? detail::OtherSystemLanguage : known->absolute;
}

unsigned short Language::ReadFromWinINI() {
    sv::String const name = ReadWinIni("intl", "sLanguage");
    auto const* const known =
        std::ranges::find(detail::WinIniLanguages, name.View(), &detail::WinIniLanguage::name);
    return known == detail::WinIniLanguages.end() ? detail::OtherSystemLanguage : known->absolute;
}

void Language::ReadChoice() {
    Select(English);
    sv::String choice;
    if (config != nullptr) {
        config->SetGroup("Settings");
        choice = config->ReadKey("language");
    }
    if (choice.IsEmpty()) {
        unsigned short const system = GetWinSprache();
        if (IsAvailable(system)) Select(system);
        WriteChoice();
    } else if (choice.IsNumeric()) {
        long const chosen = std::min(choice.ToLong(), long{UnknownLanguage});
        if (IsAvailable(static_cast<unsigned short>(chosen))) Select(static_cast<unsigned short>(chosen));
    }
}

void Language::WriteChoice() {
    if (config == nullptr) return;
    config->SetGroup("Settings");
    config->WriteKey("language", sv::String(current));
}

bool Language::IsAvailable(unsigned short absolute) noexcept {
    return absolute < available.size() && available[absolute];
}

unsigned short Language::ListEntryToAbsolute(unsigned short listEntry) noexcept {
    unsigned short absolute = 0;
    for (; absolute < PastTheTable; ++absolute) {
        if (available[absolute] && listEntry-- == 0) break;
    }
    return absolute;
}

unsigned short Language::AbsoluteToListEntry(unsigned short absolute) noexcept {
    return static_cast<unsigned short>(
        std::count(available.begin(), available.begin() + std::min(absolute, PastTheTable), true));
}

unsigned short Language::AbsoluteToCountryCode(unsigned short absolute) noexcept {
    return absolute < PastTheTable ? LanguageTable[absolute].countryCode : LanguageTable[English].countryCode;
}

unsigned short Language::CountryCodeToAbsolute(unsigned short code) noexcept {
    auto const* const slot = std::ranges::find(LanguageTable, code, &detail::LanguageSlot::countryCode);
    return slot == LanguageTable.end() ? UnknownLanguage
                                       : static_cast<unsigned short>(slot - LanguageTable.begin());
}

}  // namespace kv
