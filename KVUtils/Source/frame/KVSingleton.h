// KVSingleton: base class of the services of which a program has one each. The application creates them in
// the order that it needs and destroys them together before it exits. Create and destroy services in the main
// thread only.
//
// A usual order is `AppDir` and `AppName`, `AppConfig`, `UserConfig` and `KORVELConfig`, `Language`, then
// `PostOffice`. A missing service is reported where it is used, without its name: `AppConfig` by `KVSetting`
// and the head lines of `MyPrinter`, `AppName` by `ASCIIFile::SetVersion`, `AppDir` and `KORVELConfig` by
// `PostOffice`.
#pragma once

namespace kv {

class KVSingleton {
  public:
    virtual ~KVSingleton() = default;
    KVSingleton(KVSingleton const&) = delete;
    KVSingleton& operator=(KVSingleton const&) = delete;

    /// Inserts a service before the one that was inserted last, so that the youngest is destroyed first.
    static void Insert(KVSingleton* singleton);
    /// Replaces a service in the list, at the same position; does nothing if `old` is not in the list.
    /// Destroys neither.
    static void Replace(KVSingleton* old, KVSingleton* replacement);
    /// Removes a service from the list without destroying it.
    static void Remove(KVSingleton* singleton);
    /// Removes a service from the list and destroys it; null does nothing.
    static void Destroy(KVSingleton* singleton);

    /// Destroys all services. The list keeps the dangling entries, so call this once, before the program
    /// exits, and never delete a service that is still in the list.
    static void DeleteAllSingleton();

  protected:
    KVSingleton() = default;

    /// Creates service X: destroys an older instance, then stores and inserts what `make` returns.
    template <class X, class Make>
    static X* Create(X*& instance, Make make) {
        Destroy(instance);
        instance = nullptr;
        instance = make();
        Insert(instance);
        return instance;
    }

    /// Implements `Instance()`: returns the service, or null after preparing a box that names what is
    /// missing. The box is not run: the caller gets the null pointer and reports it with its own position.
    template <class X>
    [[nodiscard]] static X* InstanceOrNull(X* instance, char const* className) {
        if (instance == nullptr) PrepareMissingBox(className);
        return instance;
    }

  private:
    static void PrepareMissingBox(char const* className);
};

}  // namespace kv
