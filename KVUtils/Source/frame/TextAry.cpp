#include "KVUtils/Source/frame/TextAry.h"

namespace kv {

void TextAry::ChangeSize(unsigned long count) {
    while (Count() > count) Remove(Count() - 1);
    while (Count() < count) Insert(nullptr, End);
}

sv::String* TextAry::Put(unsigned long index, sv::String* text) {
    return index < Count() ? static_cast<sv::String*>(Replace(text, index)) : text;
}

sv::String* TextAry::Get(unsigned long index) const noexcept {
    return static_cast<sv::String*>(GetObject(index));
}

bool operator==(TextAry const& a, TextAry const& b) noexcept {
    if (a.Count() != b.Count()) return false;
    for (unsigned long i = 0; i < a.Count(); ++i) {
        sv::String const* const left = a.Get(i);
        sv::String const* const right = b.Get(i);
        bool const isEqual = left != nullptr && right != nullptr ? *left == *right : left == right;
        if (!isEqual) return false;
    }
    return true;
}

}  // namespace kv
