#include "KVUtils/Source/data/ASCIIFile.h"
#include "KVUtils/Tests/data/TestFile.h"

#include <array>
#include <cmath>
#include <random>
#include <sstream>
#include <vector>

namespace kv {
namespace {

/// A value of each form, written and read in this order.
struct Fields {
    uchar flag = 0;
    short number = 0;
    int integer = 0;
    std::vector<short> shorts;
    std::vector<int> ints;
    double real = 0;
    std::vector<double> reals;
    std::string text;
    std::vector<std::string> list;
    std::array<int, 6> date{};
    friend bool operator==(Fields const&, Fields const&) = default;
};

void Put(ASCIIFile& file, Fields const& fields) {
    file.PutBOOL("flag", fields.flag);
    file.PutShort("a number", fields.number);
    file.PutInt("[integer]", fields.integer);
    file.PutShortArray("shorts", fields.shorts.data(), static_cast<int>(fields.shorts.size()));
    file.PutIntArray("", fields.ints.data(), static_cast<int>(fields.ints.size()));
    file.PutReal("real", fields.real, 6);
    file.PutRealArray("reals", fields.reals.data(), static_cast<int>(fields.reals.size()), 3);
    file.PutString("text", fields.text);
    MyStringList list;
    for (std::string const& text : fields.list) list.Append(text);
    file.PutString("list", list);
    auto const& d = fields.date;
    file.PutDate("date", d[0], d[1], d[2], d[3], d[4], d[5]);
}

/// Reads fields of the sizes that `like` has; false where anything is not found.
bool Get(ASCIIFile& file, Fields const& like, bool tabs, Fields& found) {
    found = {};
    found.shorts.resize(like.shorts.size());
    found.ints.resize(like.ints.size());
    found.reals.resize(like.reals.size());
    sv::String text;
    MyStringList list;
    auto& d = found.date;
    bool const isRead =
        file.GetBOOL("flag", found.flag) && file.GetShort("a number", found.number) &&
        file.GetInt("[integer]", found.integer) &&
        file.GetShortArray("shorts", found.shorts.data(), static_cast<int>(found.shorts.size())) &&
        file.GetIntArray("", found.ints.data(), static_cast<int>(found.ints.size())) &&
        file.GetReal("real", found.real) &&
        file.GetRealArray("reals", found.reals.data(), static_cast<int>(found.reals.size())) &&
        file.GetString("text", text, 0) && file.GetString("list", list) &&
        file.GetDate("date", d[0], d[1], d[2], d[3], d[4], d[5]);
    found.text = text.View().substr(tabs ? 1 : 0);
    for (unsigned long i = 0; i < list.Count(); ++i)
        found.list.emplace_back(list[static_cast<int>(i)].View());
    return isRead;
}

class Generator {
  public:
    /// Of printable characters, a file of lines ended by CR changes none.
    Generator(unsigned seed, bool tabs, bool printable)
        : random_(seed), separator_(tabs ? '\t' : ' '), printable_(printable) {}

    Fields Next() {
        Fields fields;
        fields.flag = static_cast<uchar>(Bits());
        fields.number = static_cast<short>(Bits());
        fields.integer = Bits();
        fields.shorts.resize(Below(40));
        for (short& value : fields.shorts) value = static_cast<short>(Bits());
        fields.ints.resize(Below(40));
        for (int& value : fields.ints) value = Bits();
        fields.real = Bits() / 1e6;
        fields.reals.resize(Below(36));
        for (double& value : fields.reals) value = Bits() / 1e3;
        fields.text = Bytes(Below(Below(4) == 0 ? 480 : 20), '^');
        // Not one empty string, which is written like an empty list; nor, between blanks, an empty first one.
        fields.list = {Bytes(1 + Below(8), separator_)};
        for (std::size_t i = Below(12); i > 0; --i) fields.list.push_back(Bytes(Below(8), separator_));
        std::array<std::size_t, 6> const limits = {3000, 13, 32, 24, 60, 60};
        for (std::size_t i = 0; i < limits.size(); ++i) fields.date[i] = static_cast<int>(Below(limits[i]));
        return fields;
    }

  private:
    std::size_t Below(std::size_t count) { return random_() % count; }
    /// An integer of any length.
    int Bits() { return static_cast<int>(random_()) >> Below(32); }
    /// Any bytes but "^", which begins an escape, and this one.
    std::string Bytes(std::size_t length, char without) {
        std::string text;
        while (text.size() < length) {
            char const byte = static_cast<char>(printable_ ? ' ' + Below(95) : Below(256));
            if (byte != '^' && byte != without) text += byte;
        }
        return text;
    }

    std::mt19937 random_;
    char separator_;
    bool printable_;
};

using ASCIIFileRoundTripTest = test::FileTest;

TEST_F(ASCIIFileRoundTripTest, WhatIsPutIsGot) {
    for (char const* const end : {"\n", "\r\n", "\r"}) {
        for (unsigned seed = 1; seed <= 100; ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            bool const tabs = seed % 2 == 0;
            Generator generator(seed, tabs, std::string_view(end) == "\r");
            std::vector<Fields> written(10);
            std::stringstream stream;
            ASCIIFile writer(&stream, 0, tabs ? 1 : 0);
            for (Fields& fields : written) Put(writer, fields = generator.Next());

            std::string content;
            for (char const byte : stream.str()) byte == '\n' ? content += end : content += byte;
            ASCIIFile reader(Write("file", content), 1, tabs ? 1 : 0);
            for (Fields const& fields : written) {
                Fields found;
                ASSERT_TRUE(Get(reader, fields, tabs, found));
                ASSERT_TRUE(found == fields);
            }
        }
    }
}

}  // namespace
}  // namespace kv
