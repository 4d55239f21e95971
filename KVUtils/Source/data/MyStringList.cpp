#include "KVUtils/Source/data/MyStringList.h"

#include <memory>

namespace kv {

MyStringList::~MyStringList() {
    while (Count() > 0)
        std::unique_ptr<sv::String> const entry(static_cast<sv::String*>(Remove(Count() - 1)));
}

void MyStringList::Append(sv::String const& text) {
    auto entry = std::make_unique<sv::String>(text);
    Insert(entry.get(), End);
    entry.release();  // NOLINT(bugprone-unused-return-value): the list owns it
}

sv::String& MyStringList::operator[](int position) noexcept {
    return *static_cast<sv::String*>(GetObject(static_cast<unsigned long>(position)));
}

sv::String const& MyStringList::operator[](int position) const noexcept {
    return *static_cast<sv::String const*>(GetObject(static_cast<unsigned long>(position)));
}

}  // namespace kv
