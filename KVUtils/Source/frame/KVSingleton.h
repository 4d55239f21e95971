// KVSingleton: the base of the services of which a program has one each. The application creates them in an
// order of its own and destroys them all together at its end. Creation and destruction belong to the main
// thread.
#pragma once

#include <utility>

namespace kv {

class KVSingleton {
  public:
    virtual ~KVSingleton() = default;
    KVSingleton(KVSingleton const&) = delete;
    KVSingleton& operator=(KVSingleton const&) = delete;

    /// Enters a service in front of the one that was entered last, so that the youngest is destroyed first.
    static void Insert(KVSingleton* singleton);
    /// Puts another service into the place of one; does nothing when `old` is not in the list. Destroys
    /// neither.
    static void Replace(KVSingleton* old, KVSingleton* replacement);
    /// Takes a service out of the list without destroying it.
    static void Remove(KVSingleton* singleton);

    /// Destroys all services. The list keeps its dead entries, so it is called once, as a program's last act.
    /// For the same reason no service may be deleted without being removed first.
    static void DeleteAllSingleton();

  protected:
    KVSingleton() = default;

    /// How a service X is created: an older one leaves the list and is deleted, `make` returns the new one,
    /// which becomes the instance and enters the list.
    template <class X, class Make>
    static X* Create(X*& instance, Make make) {
        if (instance != nullptr) {
            Remove(instance);
            delete std::exchange(instance, nullptr);
        }
        instance = make();
        Insert(instance);
        return instance;
    }

    /// What `Instance()` answers: the service, or null, with a box prepared that names what is missing. The
    /// box is not run: the caller sees the null pointer and reports it where it stands.
    template <class X>
    [[nodiscard]] static X* InstanceOrNull(X* instance, char const* className) {
        if (instance == nullptr) PrepareMissingBox(className);
        return instance;
    }

  private:
    static void PrepareMissingBox(char const* className);
};

}  // namespace kv
