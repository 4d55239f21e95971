// ASCIIFile: the suite's keyed text data format, written and read in sequence. Every construct is one line: a
// title ("[Titel]"), a key and its value ("key=value"), or a free line. A reader asks for the keys in the
// order of the file: what fails stays on its line, so that the line can be tried again as something else.
#pragma once

#include "KVUtils/Source/data/MyStringList.h"
#include "KVUtils/Source/data/detail/DataLine.h"
#include "SV/core/String.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

namespace kv {

class TextFenster;
using uchar = unsigned char;

/// Lines of up to 1023 characters. Numbers never depend on the locale. Line ends are LF or CR LF; a file
/// without an LF in its first 1024 bytes is one of lines that end in CR, and its texts are Mac Roman.
///
/// A copy shares the streams and the window of its original, and has a current line of its own. A writer that
/// reads, or a reader that writes, does nothing and fails.
class ASCIIFile {
  public:
    /// As the number of decimals: those that `SetPrecision` has set.
    static constexpr short DefaultDecimals = -1;

    /// Opens a file: to read if `read` is not 0, else to write, which empties it. In tab mode, `tabs` not 0,
    /// a TAB stands in front of each value, and another separates the values of an array, in place of a
    /// blank. A file that does not open is not reported here: everything that is read from it fails, and
    /// `GetError` of a writer is 1 after the first line.
    ASCIIFile(sv::String const& name, uchar read, uchar tabs);
    /// Works on a stream that stays the caller's and has to outlive this object.
    ASCIIFile(std::iostream* stream, uchar read, uchar tabs);

    // Writing. Each writes one line; whether that failed is what `GetError` tells.

    /// A byte as a number, so 0 or 1 for a truth value.
    void PutBOOL(sv::String const& key, uchar value);
    void PutShort(sv::String const& key, short value);
    void PutInt(sv::String const& key, int value);
    /// Each value right-aligned to six characters, and the separator behind it.
    void PutShortArray(sv::String const& key, short const* values, int count);
    void PutIntArray(sv::String const& key, int const* values, int count);
    /// Right-aligned to the decimals and six more characters, with a point in every locale.
    void PutReal(sv::String const& key, double value, short decimals = DefaultDecimals);
    void PutRealArray(sv::String const& key, double const* values, int count,
                      short decimals = DefaultDecimals);
    /// A control character but TAB is written as "^" and its letter. A "^" in the text is not protected:
    /// reading takes it for the start of such a pair.
    void PutString(sv::String const& key, sv::String const& text);
    /// The strings with the separator between them. A string that holds the separator comes back as two.
    void PutString(sv::String const& key, MyStringList const& list);
    /// As "31-12-1999 23:59:10".
    void PutDate(sv::String const& key, int year, int month, int day, int hour, int minute, int second);
    /// The head of a section, "[title]".
    void PutTitel(sv::String const& title);
    /// The number of decimals of reals, 5 at first.
    void SetPrecision(int decimals) noexcept { precision_ = decimals; }
    /// Writes the head of a versioned file: title "File", application and this version. Without the service
    /// `AppName` it shows an error box and throws, see `Check::POINTER`.
    void SetVersion(int version);

    // Reading. Each answers 1, and moves to the next line, if the current line has that key and a value of
    // that form; else 0. What stands behind a value is ignored. After a 0 the output may have changed.

    /// The lowest byte of an integer; 0 where there is none.
    uchar GetBOOL(sv::String const& key, uchar& value);
    /// The lower 16 bits of an integer. Where there is none, the value stays as it was, here and below.
    uchar GetShort(sv::String const& key, short& value);
    /// A number that is too large for an int is the largest one, or the smallest.
    uchar GetInt(sv::String const& key, int& value);
    /// A real has no exponent.
    uchar GetReal(sv::String const& key, double& value);
    /// As many values as asked for; further ones are ignored, fewer are a failure.
    uchar GetShortArray(sv::String const& key, short* values, int count);
    uchar GetIntArray(sv::String const& key, int* values, int count);
    uchar GetRealArray(sv::String const& key, double* values, int count);
    /// The rest of the line. TABs are left out if `dropTabs` is not 0; else the one that a writer in tab mode
    /// sets in front of the value is part of it.
    uchar GetString(sv::String const& key, sv::String& text, uchar dropTabs);
    /// Appends the strings to the list. An empty value is no string.
    uchar GetString(sv::String const& key, MyStringList& list);
    /// A text and the lines behind it that begin with a TAB, which is kept, each after an LF. Files that
    /// people or other programs wrote have this form.
    uchar GetMultilineString(sv::String const& key, sv::String& text);
    /// Seconds may be missing and count as 0 then.
    uchar GetDate(sv::String const& key, int& year, int& month, int& day, int& hour, int& minute,
                  int& second);
    /// Whether the line is this title.
    uchar GetTitel(sv::String const& title);
    /// Goes to the line behind this title; 0 at the end of the file.
    uchar SkipToTitel(sv::String const& title);
    /// Goes that many lines on; nothing for a count below 1. Always 1.
    uchar SkipLines(int count);
    /// The whole of the current line without TABs, and on to the next; 0 for a title or an empty line.
    uchar GetKeyString(sv::String& text);
    /// Reads the head of a versioned file. 1 if its version is one of 2 to `highest`.
    uchar CheckVersion(int highest);

    /// The version of the file, as it was written or read last; 0 before.
    [[nodiscard]] int GetVersion() const noexcept { return version_; }
    [[nodiscard]] int& Version() noexcept { return version_; }
    /// The name as it was given; empty on a stream.
    [[nodiscard]] sv::String GetFileName() const { return fileName_; }
    /// 1 once a write has failed, else 0. Reading leaves it alone.
    [[nodiscard]] int GetError() const noexcept { return error_; }
    /// Takes note of a stream that has failed. Every write does this.
    void CheckOutError() noexcept;
    /// What separates the values of an array.
    [[nodiscard]] sv::String Trennzeichen() const { return sv::String(Separator()); }
    /// How much of a file has been read, from 0 to about 1 in spite of the name: an estimate, since a line
    /// counts as far as it was parsed. -1 for a file that is empty or not there, about 0 on a stream.
    [[nodiscard]] float GetPercentDone() const noexcept;

    // Messages to the person at the program, gathered in a window that is made with the first and destroyed
    // with the file.

    /// Adds a line.
    void MeldungAusgeben(sv::String const& message);
    [[nodiscard]] TextFenster* GetTextFenster();
    /// Shows the messages, if there are any, waits until they are closed, and forgets them.
    void MeldungenZeigen();

  private:
    [[nodiscard]] char Separator() const noexcept { return tabMode_ ? '\t' : ' '; }

    /// Key, "=" and a value that is in its written form already.
    void PutLine(sv::String const& key, std::string_view value);
    /// The same for values that each have the separator behind them.
    template <class Value, class Form>
    void PutArray(sv::String const& key, Value const* values, int count, Form form);
    void Write(std::string const& line);
    /// The written form of a real.
    [[nodiscard]] sv::String RealForm(double value, short decimals) const;

    void NextLine();
    /// On to the next line if that is read, else back to the start of the line; 1 or 0.
    uchar Finish(bool isRead);
    [[nodiscard]] bool MatchKey(sv::String const& key);
    template <class Value, class Scan>
    uchar GetArray(sv::String const& key, Value* values, int count, Scan scan);

    int error_ = 0;
    // Null in a writer, and in a reader. They own the stream where this class has opened it.
    std::shared_ptr<std::istream> in_;
    std::shared_ptr<std::ostream> out_;
    sv::String fileName_;
    unsigned long fileSize_ = static_cast<unsigned long>(-1);
    unsigned long consumed_ = 0;
    detail::DataLine line_;
    bool tabMode_;
    int version_ = 0;
    int precision_ = 5;
    std::shared_ptr<TextFenster> messages_;
};

}  // namespace kv
