// ASCIIFile: reads and writes the suite's keyed text data format in sequence. A line is a title ("[Titel]"),
// a key with its value ("key=value"), or a free line. The caller reads the keys in the order of the file: an
// operation that fails stays on its line, which can then be read as something else.
#pragma once

#include "KVUtils/Source/data/MyStringList.h"
#include "SV/core/String.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

namespace kv {

class TextFenster;
using uchar = unsigned char;

namespace detail {

class DataLine;

/// Owns the current line of a file; a copy owns a copy of the line.
class CurrentLine {
  public:
    explicit CurrentLine(DataLine const& line);
    CurrentLine(CurrentLine const& other);
    CurrentLine& operator=(CurrentLine const& other);
    ~CurrentLine();

    DataLine* operator->() noexcept { return line_.get(); }

  private:
    std::unique_ptr<DataLine> line_;
};

}  // namespace detail

/// Lines have up to 1023 characters, key and "=" included. Numbers do not depend on the locale. Keys and
/// titles are written unescaped. The name of a file is in the code page of the language, as for every file of
/// the toolkit. Lines end in LF or CR LF; in a file without an LF in its first 1024 bytes they end in CR, and
/// its texts are Mac Roman.
///
/// A copy shares the streams and the window with its original, and has its own current line. Reading from a
/// writer and writing to a reader do nothing and fail.
class ASCIIFile {
  public:
    /// A number of decimals: that of `SetPrecision`.
    static constexpr short DefaultDecimals = -1;

    /// Opens a file for reading if `read` is not 0, otherwise for writing, which truncates it. In tab mode,
    /// `tabs` not 0, a TAB precedes each value, and the values of an array are separated by TABs instead of
    /// blanks. If the file does not open, every read fails, and `GetError` of a writer is 1 after the first
    /// line.
    ASCIIFile(sv::String const& name, uchar read, uchar tabs);
    /// Uses a stream that the caller owns and that must outlive this object.
    ASCIIFile(std::iostream* stream, uchar read, uchar tabs);

    // Writing. Each operation writes one line; `GetError` tells whether it failed.

    /// Writes the byte as a number: 0 or 1 for a truth value.
    void PutBOOL(sv::String const& key, uchar value);
    void PutShort(sv::String const& key, short value);
    void PutInt(sv::String const& key, int value);
    /// Writes each value right-aligned to six characters and followed by the separator.
    void PutShortArray(sv::String const& key, short const* values, int count);
    void PutIntArray(sv::String const& key, int const* values, int count);
    /// Writes the value right-aligned to `decimals` + 6 characters, with "." in every locale.
    void PutReal(sv::String const& key, double value, short decimals = DefaultDecimals);
    void PutRealArray(sv::String const& key, double const* values, int count,
                      short decimals = DefaultDecimals);
    /// Writes a control character other than TAB as "^" and a letter. A "^" in the text is not escaped, so a
    /// reader decodes it with the character after it.
    void PutString(sv::String const& key, sv::String const& text);
    /// Writes the strings separated by the separator. One that contains the separator is read back as two.
    void PutString(sv::String const& key, MyStringList const& list);
    /// Writes "31-12-1999 23:59:10".
    void PutDate(sv::String const& key, int year, int month, int day, int hour, int minute, int second);
    /// Writes the title of a section, "[title]".
    void PutTitel(sv::String const& title);
    /// Sets the default number of decimals of reals, 5 at first.
    void SetPrecision(int decimals) noexcept { precision_ = decimals; }
    /// Writes the head of a versioned file: title "File", application and this version. Without the service
    /// `AppName` it shows an error box and throws, see `Check::POINTER`.
    void SetVersion(int version);

    // Reading. Each operation returns 1 and moves to the next line if the current line has that key and a
    // value of that form, otherwise 0. Text after the value is ignored. The output may change even if the
    // result is 0.

    /// Reads the lowest byte of an integer; stores 0 if there is none.
    uchar GetBOOL(sv::String const& key, uchar& value);
    /// Reads the lower 16 bits of an integer. If there is none, leaves the value unchanged, here and below.
    uchar GetShort(sv::String const& key, short& value);
    /// Clamps a number that does not fit into an int.
    uchar GetInt(sv::String const& key, int& value);
    /// Reads a real; exponents are not supported.
    uchar GetReal(sv::String const& key, double& value);
    /// Reads `count` values; ignores further ones, and fails if there are fewer.
    uchar GetShortArray(sv::String const& key, short* values, int count);
    uchar GetIntArray(sv::String const& key, int* values, int count);
    uchar GetRealArray(sv::String const& key, double* values, int count);
    /// Reads the rest of the line, without its TABs if `dropTabs` is not 0. Otherwise the TAB that a writer
    /// in tab mode puts before the value is part of the text.
    uchar GetString(sv::String const& key, sv::String& text, uchar dropTabs);
    /// Appends the strings to the list; none for an empty value.
    uchar GetString(sv::String const& key, MyStringList& list);
    /// Reads a text and the lines after it that begin with a TAB; appends each after an LF, with its TAB.
    /// `PutString` does not write this form; files edited by hand or by other programs have it.
    uchar GetMultilineString(sv::String const& key, sv::String& text);
    /// Seconds may be missing and are 0 then.
    uchar GetDate(sv::String const& key, int& year, int& month, int& day, int& hour, int& minute,
                  int& second);
    /// Reads this title.
    uchar GetTitel(sv::String const& title);
    /// Moves to the line after this title; returns 0 at the end of the file.
    uchar SkipToTitel(sv::String const& title);
    /// Skips `count` lines, none if it is below 1. Returns 1.
    uchar SkipLines(int count);
    /// Reads the whole line without TABs; returns 0 for a title and an empty line.
    uchar GetKeyString(sv::String& text);
    /// Reads the head of a versioned file. Returns 1 if its version is 2 to `highest`.
    uchar CheckVersion(int highest);

    /// Returns the version that was written or read last; 0 before.
    [[nodiscard]] int GetVersion() const noexcept { return version_; }
    [[nodiscard]] int& Version() noexcept { return version_; }
    /// Returns the name as given to the constructor; empty for a stream.
    [[nodiscard]] sv::String GetFileName() const { return fileName_; }
    /// Returns 1 after a write has failed, otherwise 0. Reading does not change it.
    [[nodiscard]] int GetError() const noexcept { return error_; }
    /// Sets the error if the output stream has failed. Every write calls this.
    void CheckOutError() noexcept;
    /// Returns the separator of the values of an array.
    [[nodiscard]] sv::String Trennzeichen() const { return sv::String(Separator()); }
    /// Estimates the fraction of the file that has been read, from 0 to about 1 despite the name, by the
    /// parsed part of each line. Returns -1 for an empty or missing file, about 0 for a stream.
    [[nodiscard]] float GetPercentDone() const noexcept;

    // Messages to the user are collected in a window, which the first one creates.

    /// Adds a line.
    void MeldungAusgeben(sv::String const& message);
    [[nodiscard]] TextFenster* GetTextFenster();
    /// Shows the messages, if any, waits until the user closes the window, and deletes them.
    void MeldungenZeigen();

  private:
    [[nodiscard]] char Separator() const noexcept { return tabMode_ ? '\t' : ' '; }

    /// Writes the key, "=" and a formatted value.
    void PutLine(sv::String const& key, std::string_view value);
    /// The same for several values, each followed by the separator.
    template <class Value, class Form>
    void PutArray(sv::String const& key, Value const* values, int count, Form form);
    void Write(std::string const& line);
    [[nodiscard]] sv::String FormatReal(double value, short decimals) const;

    void NextLine();
    /// Moves to the next line if `isRead`, otherwise to the start of the line. Returns `isRead`.
    uchar Finish(bool isRead);
    [[nodiscard]] bool MatchKey(sv::String const& key);
    template <class Value, class Scan>
    uchar GetArray(sv::String const& key, Value* values, int count, Scan scan);

    int error_ = 0;
    // The input is null in a writer, the output in a reader. Owned if this class opened the stream.
    std::shared_ptr<std::istream> in_;
    std::shared_ptr<std::ostream> out_;
    sv::String fileName_;
    unsigned long fileSize_ = static_cast<unsigned long>(-1);
    unsigned long consumed_ = 0;
    detail::CurrentLine line_;
    bool tabMode_;
    int version_ = 0;
    int precision_ = 5;
    std::shared_ptr<TextFenster> messages_;
};

}  // namespace kv
