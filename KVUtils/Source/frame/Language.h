// Language: the language of the application's texts. It knows 25 languages, determines for which of them the
// application has text files, and stores the choice in a configuration, in the key "language" of the group
// "Settings".
//
// A language has three numbers: the absolute index, its position in the table of 25; the list entry, its
// position among the languages that have texts, as a list box shows them; and the country code (1 English, 49
// German, 86 Chinese, 81 Japanese), which files and other programs use. The state is static and needs no
// object: before one is created the language is English and no language has texts. Use it in the main thread
// only.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "SV/core/Config.h"
#include "SV/core/ListBox.h"
#include "SV/core/String.h"

namespace kv {

class Language : public KVSingleton {
  public:
    /// Replaces an older object. `choice` is the configuration that stores the choice; it is not owned and
    /// must outlive the object. With null the choice is kept in memory. `fileName` is one of the
    /// application's text files, with its path: a stem, up to two digits and an extension; the files of the
    /// other languages have the same stem and their own country code. A name without an extension gets none.
    ///
    /// Selects the language of the configuration if it has texts. If the configuration has no choice, selects
    /// the system's language if that has texts, and writes the choice. Otherwise selects English. A stored
    /// value that is negative, 25 or above, or not a number counts as a language without texts; nothing is
    /// written then.
    static Language* CreateLanguage(sv::Config* choice, sv::String const& fileName);
    /// Returns null before the creation.
    [[nodiscard]] static Language* Instance();
    ~Language() override;

    /// Returns the code of the current language, or 1 if it has no texts.
    [[nodiscard]] static unsigned short GetCountryCode() noexcept;
    /// Returns 1 if Japanese is the current language, with or without texts, otherwise 0.
    [[nodiscard]] static unsigned char IsJapanese() noexcept;
    /// The same for Chinese.
    [[nodiscard]] static unsigned char IsChinese() noexcept;

    /// Fills the box with the names of the languages that have texts, in table order, and selects the current
    /// one.
    static void InitListBox(sv::ListBox& box);
    /// Makes the language of a list entry current and writes it to the configuration. An entry past the last
    /// selects and writes the number 25, which counts as a language without texts.
    static void SetLanguage(unsigned short listEntry);
    /// Makes the language with this country code current, and writes it to the configuration if it has texts.
    /// An unknown code selects 65535, which is not a language of the table.
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
