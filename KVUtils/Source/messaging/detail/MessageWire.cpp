#include "KVUtils/Source/messaging/detail/MessageWire.h"

#include <algorithm>
#include <string_view>

namespace kv::detail {

namespace {

constexpr char Divider = '!';
constexpr std::string_view Prefix = "ANSWER";

constexpr char Escape = 0x01;
constexpr char EscapedZero = 0x0A;

static_assert(MessageTable.size() == MessageCount + 1 && sizeof(MessageRecord) == 30);

bool HasPrefix(sv::String const& name) {
    // Without a divider the first part is the whole name: "ANSWER" alone is an answer with an empty name.
    return name.GetToken(0, Divider).View() == Prefix;
}

std::string_view Unread(MyMemoryBlock& block) {
    char const* const end = block.GetDatenZeiger() + block.Len();
    char const* const next = std::min<char const*>(block.GetGetPointer(), end);
    return {next, static_cast<std::size_t>(end - next)};
}

void Append(MyMemoryBlock& block, std::string_view bytes) {
    block.Put(bytes.data(), static_cast<long>(bytes.size()));
}

}  // namespace

sv::String NameOfMessage(long number) {
    bool const isAnswer = number >= AnswerOffset;
    long const place = isAnswer ? number - AnswerOffset : number;
    if (place < 0 || place >= MessageCount) return {};
    sv::String const name = MessageTable[static_cast<std::size_t>(place)].name;
    return isAnswer && !name.IsEmpty() ? AnswerName(name) : name;
}

sv::String NameWithoutPrefix(sv::String const& name) {
    return HasPrefix(name) ? name.Copy(Prefix.size() + 1) : name;
}

int NumberOfMessage(sv::String const& name) {
    sv::String const plain = NameWithoutPrefix(name);
    if (plain.IsEmpty()) return -1;  // the reserved records are empty too
    auto const* const end = MessageTable.begin() + MessageCount;
    auto const* const record = std::find_if(
        MessageTable.begin(), end, [&](auto const& message) { return plain.View() == message.name; });
    if (record == end) return -1;
    int const number = static_cast<int>(record - MessageTable.begin());
    return HasPrefix(name) ? number + AnswerOffset : number;
}

sv::String AnswerName(sv::String const& name) { return sv::String(Prefix) + Divider + name; }

bool IsAnswerToAnswer(sv::String const& name) {
    return HasPrefix(name) && HasPrefix(NameWithoutPrefix(name));
}

void EncodePayload(MyMemoryBlock& block) {
    MyMemoryBlock encoded;
    for (std::string_view rest = Unread(block); !rest.empty();) {
        auto const* const special =
            std::ranges::find_if(rest, [](char byte) { return byte == '\0' || byte == Escape; });
        auto const run = static_cast<std::size_t>(special - rest.begin());
        Append(encoded, rest.substr(0, run));
        rest.remove_prefix(run);
        if (rest.empty()) break;
        encoded << Escape << (rest.front() == Escape ? Escape : EscapedZero);
        rest.remove_prefix(1);
    }
    block = encoded;
}

void DecodePayload(MyMemoryBlock& block) {
    MyMemoryBlock decoded;
    long surplus = 0;
    char last = 0;
    for (std::string_view rest = Unread(block); !rest.empty();) {
        std::size_t const run = std::min(rest.find(Escape), rest.size());
        Append(decoded, rest.substr(0, run));
        if (run > 0) last = rest[run - 1];
        rest.remove_prefix(run);
        if (rest.empty()) break;
        // Half a pair at the end decodes to 0x01.
        bool const isPair = rest.size() > 1;
        last = isPair ? rest[1] : Escape;
        decoded << (last == EscapedZero ? '\0' : Escape);
        rest.remove_prefix(isPair ? 2 : 1);
        if (isPair) ++surplus;
    }
    // Intentional: the other programs of the suite decode in one round per byte of the wire, of which a pair
    // takes two, and so have always appended these bytes to a payload.
    for (; surplus > 0; --surplus) decoded << last;
    block = decoded;
}

}  // namespace kv::detail
