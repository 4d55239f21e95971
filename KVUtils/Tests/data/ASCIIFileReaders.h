// The operations that read a data file, by number and by name.
#pragma once

#include "KVUtils/Source/data/ASCIIFile.h"

#include <array>
#include <ostream>
#include <sstream>
#include <string_view>

namespace kv::test {

struct Reader {
    std::string_view name;
    /// Calls the operation with this key and writes the value, which is 7 at first.
    uchar (*read)(ASCIIFile& file, sv::String const& key, std::ostream& value);
};

template <auto Get, class Value>
uchar ReadOne(ASCIIFile& file, sv::String const& key, std::ostream& value) {
    Value found = 7;
    uchar const answer = (file.*Get)(key, found);
    value << +found;
    return answer;
}

template <auto Get, class Value>
uchar ReadTwo(ASCIIFile& file, sv::String const& key, std::ostream& value) {
    Value found[] = {7, 7};
    uchar const answer = (file.*Get)(key, found, 2);
    value << found[0] << ' ' << found[1];
    return answer;
}

template <uchar DropTabs>
uchar ReadText(ASCIIFile& file, sv::String const& key, std::ostream& value) {
    sv::String text = "7";
    uchar const answer = file.GetString(key, text, DropTabs);
    value << text.View();
    return answer;
}

inline uchar ReadDate(ASCIIFile& file, sv::String const& key, std::ostream& value) {
    std::array<int, 6> d{};
    uchar const answer = file.GetDate(key, d[0], d[1], d[2], d[3], d[4], d[5]);
    for (int const part : d) value << part << ' ';
    return answer;
}

inline uchar ReadList(ASCIIFile& file, sv::String const& key, std::ostream& value) {
    MyStringList list;
    list.Append("7");
    uchar const answer = file.GetString(key, list);
    for (int i = 0; i < static_cast<int>(list.Count()); ++i) value << list[i].View() << '|';
    return answer;
}

inline uchar ReadLines(ASCIIFile& file, sv::String const& key, std::ostream& value) {
    sv::String text = "7";
    uchar const answer = file.GetMultilineString(key, text);
    value << text.View();
    return answer;
}

inline uchar ReadTitel(ASCIIFile& file, sv::String const& key, std::ostream& /*value*/) {
    return file.GetTitel(key);
}

inline uchar ReadLine(ASCIIFile& file, sv::String const& /*key*/, std::ostream& value) {
    sv::String text = "7";
    uchar const answer = file.GetKeyString(text);
    value << text.View();
    return answer;
}

/// The first so many fail on a key or title "k" with a value that is not of their form.
inline constexpr int ReadersOfForms = 9;
/// The first so many fail without a key or title "k".
inline constexpr int ReadersOfKeys = 13;
inline constexpr int Readers = 14;

inline constexpr Reader AllReaders[Readers] = {
    {"BOOL", ReadOne<&ASCIIFile::GetBOOL, uchar>},
    {"Short", ReadOne<&ASCIIFile::GetShort, short>},
    {"Int", ReadOne<&ASCIIFile::GetInt, int>},
    {"Real", ReadOne<&ASCIIFile::GetReal, double>},
    {"Shorts", ReadTwo<&ASCIIFile::GetShortArray, short>},
    {"Ints", ReadTwo<&ASCIIFile::GetIntArray, int>},
    {"Reals", ReadTwo<&ASCIIFile::GetRealArray, double>},
    {"Date", ReadDate},
    {"Titel", ReadTitel},
    {"String", ReadText<0>},
    {"Dropped", ReadText<1>},
    {"List", ReadList},
    {"Lines", ReadLines},
    {"Line", ReadLine},
};

/// What that operation returns for the key "k"; the value is discarded.
inline uchar ReadAs(int reader, ASCIIFile& file) {
    std::ostringstream value;
    return AllReaders[reader].read(file, "k", value);
}

}  // namespace kv::test
