// Language: the language that the application speaks. It knows 25, finds out for which of them the
// application has texts, and keeps the choice in a configuration, in the key "language" of the group
// "Settings".
//
// A language has three numbers: the absolute index, its place in the table; the list entry, its place among
// the languages that have texts, as a list box shows them; and the country code (1 English, 49 German, 86
// Chinese, 81 Japanese), by which the outside world names it. The state is the process's own and needs no
// object: before one is created the language is English, and none has texts. It belongs to the main thread.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "SV/core/Config.h"
#include "SV/core/ListBox.h"
#include "SV/core/String.h"

namespace kv {

class Language : public KVSingleton {
  public:
    /// Replaces an older one. `choice`, not owned, is the configuration that holds the choice as long as the
    /// object lives; without one (null) it is kept in memory. `fileName` is one of the application's text
    /// files, with its path: the stem and up to two digits, of which the others have the same stem and their
    /// own country code.
    ///
    /// The language is that of the configuration, where it has texts. Of a configuration without a choice it
    /// is the system's own, which is then written there. Without texts it is English.
    static Language* CreateLanguage(sv::Config* choice, sv::String const& fileName);
    /// Null before the creation.
    [[nodiscard]] static Language* Instance();
    ~Language() override;

    /// The current language's, or 1 if it has no texts.
    [[nodiscard]] static unsigned short GetCountryCode() noexcept;
    /// 1 if that is the current language, with texts or without; else 0.
    [[nodiscard]] static unsigned char IsJapanese() noexcept;
    [[nodiscard]] static unsigned char IsChinese() noexcept;

    /// Fills the box with the names of the languages that have texts, in the order of the table, and selects
    /// the current one.
    static void InitListBox(sv::ListBox& box);
    /// Makes the language of a list entry current and writes it to the configuration. Past the last entry
    /// that is the number 25, which is no language and counts as one without texts.
    static void SetLanguage(unsigned short listEntry);
    /// Makes the language with this code current, and writes it to the configuration if it has texts. An
    /// unknown code is kept as "no language of the table" (65535).
    static void SetLanguageByCountryCode(unsigned short code);

  protected:
    Language(sv::Config* choice, sv::String const& fileName);

  private:
    static void AccsessableLanguage(sv::String const& fileName);
    [[nodiscard]] static unsigned short GetWinSprache();
    [[nodiscard]] static unsigned short ReadFromWinINI();
    static void ReadChoice();
    static void WriteChoice();

    [[nodiscard]] static bool IsAvailable(unsigned short absolute) noexcept;
    [[nodiscard]] static unsigned short ListEntryToAbsolute(unsigned short listEntry) noexcept;
    [[nodiscard]] static unsigned short AbsoluteToListEntry(unsigned short absolute) noexcept;
    [[nodiscard]] static unsigned short AbsoluteToCountryCode(unsigned short absolute) noexcept;
    [[nodiscard]] static unsigned short CountryCodeToAbsolute(unsigned short code) noexcept;

    static Language* instance_;
};

}  // namespace kv
