#include "KVUtils/Source/frame/KVSingleton.h"

#include "SV/core/Boxes.h"
#include "SV/core/Container.h"

namespace kv {

namespace {

// Built at its first use, since services may be created by another file's static initialiser. At the
// program's end the list goes and the objects in it stay.
sv::Container& Singletons() {
    static sv::Container singletons(1024, 16, 16);
    return singletons;
}

}  // namespace

void KVSingleton::Insert(KVSingleton* singleton) { Singletons().Insert(singleton); }

void KVSingleton::Replace(KVSingleton* old, KVSingleton* replacement) {
    Singletons().Replace(replacement, static_cast<void*>(old));
}

void KVSingleton::Remove(KVSingleton* singleton) { Singletons().Remove(static_cast<void*>(singleton)); }

void KVSingleton::DeleteAllSingleton() {
    sv::Container& singletons = Singletons();
    void* entry = singletons.First();
    for (unsigned long rounds = singletons.Count(); rounds > 0; --rounds) {
        delete static_cast<KVSingleton*>(entry);
        entry = singletons.Next();
    }
}

void KVSingleton::PrepareMissingBox(char const* className) {
    sv::ErrorBox const box(nullptr, sv::WB_OK,
                           sv::String("Please create the ") + className + "-Singleton first !");
}

}  // namespace kv
