#include "KVUtils/Source/frame/KVSingleton.h"

#include "SV/core/Boxes.h"
#include "SV/core/Container.h"

namespace kv {

namespace {

// Constructed on first use, since a static initialiser of another file may create services. When the program
// exits the list is destroyed, the objects in it are not.
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

void KVSingleton::Destroy(KVSingleton* singleton) {
    Remove(singleton);
    delete singleton;
}

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
