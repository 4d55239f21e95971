// The operations that read one line of a data file, by number, for those who want to try them all.
#pragma once

#include "KVUtils/Source/data/ASCIIFile.h"

namespace kv::test {

/// The first so many fail where the key or title "k" is there and its value is not of their form.
inline constexpr int ReadersOfForms = 9;
/// And the first so many where it is not there.
inline constexpr int ReadersOfKeys = 13;
inline constexpr int Readers = 14;

/// What that operation answers; the value is thrown away.
inline uchar ReadAs(int reader, ASCIIFile& file) {
    sv::String const key = "k";
    uchar flag = 0;
    short shorts[2];
    int ints[6];
    double reals[2];
    sv::String text;
    MyStringList list;
    switch (reader) {
        case 0:
            return file.GetBOOL(key, flag);
        case 1:
            return file.GetShort(key, shorts[0]);
        case 2:
            return file.GetInt(key, ints[0]);
        case 3:
            return file.GetReal(key, reals[0]);
        case 4:
            return file.GetShortArray(key, shorts, 2);
        case 5:
            return file.GetIntArray(key, ints, 2);
        case 6:
            return file.GetRealArray(key, reals, 2);
        case 7:
            return file.GetDate(key, ints[0], ints[1], ints[2], ints[3], ints[4], ints[5]);
        case 8:
            return file.GetTitel(key);
        case 9:
            return file.GetString(key, text, 0);
        case 10:
            return file.GetString(key, text, 1);
        case 11:
            return file.GetString(key, list);
        case 12:
            return file.GetMultilineString(key, text);
        default:
            return file.GetKeyString(text);
    }
}

}  // namespace kv::test
