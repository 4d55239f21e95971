// AppConfig, UserConfig and KORVELConfig: the configurations of the application, of its user and of the whole
// suite. AppDir and AppName: the application's directories, title and version. Each is a service that the
// application creates when it starts. AppFonts: the fonts of its windows and reports.
//
// Operations on keys may be called on the class or through `Instance()`. Before the creation they report the
// null pointer through `Check::POINTER`, which throws. An empty value is the same as no value. An operation
// leaves its group selected unless it says otherwise, so do not rely on a selected group. Use all of this in
// the main thread only.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "SV/core/Config.h"
#include "SV/core/DirEntry.h"
#include "SV/core/String.h"
#include "SV/ui/Drawing.h"

namespace kv {

/// What the configurations have in common. An ini file as a service; `Service` is the derived class.
template <class Service>
class ConfigService : public sv::Config, public KVSingleton {
  public:
    /// Returns null before the creation.
    [[nodiscard]] static Service* Instance();
    ~ConfigService() override;

    /// Returns the value of the key, or `defaultValue` if it is empty or missing.
    [[nodiscard]] static sv::String ReadKey(sv::String const& group, sv::String const& key,
                                            sv::String const& defaultValue = {});
    /// Does not change the selected group.
    static void WriteKey(sv::String const& group, sv::String const& key, sv::String const& value);

  protected:
    explicit ConfigService(sv::String const& file);

    static Service* instance_;
};

/// The application's own ini file.
class AppConfig : public ConfigService<AppConfig> {
  public:
    /// Replaces an older object.
    static AppConfig* CreateAppConfig(sv::String const& file);

    /// Returns the number of keys in the group; 0 if there is no such group.
    [[nodiscard]] static unsigned short GetKeyCount(sv::String const& group);
    /// Returns an empty name past the last key.
    [[nodiscard]] static sv::String GetKeyName(sv::String const& group, unsigned short index);
    /// Deletes all keys of the group, as far as the file can be written. Does not change the selected group.
    static void EmptyGroup(sv::String const& group);

  protected:
    using ConfigService::ConfigService;
};

/// The user's ini file.
class UserConfig : public ConfigService<UserConfig> {
  public:
    /// Replaces an older object.
    static void CreateUserConfig(sv::String const& file);

  protected:
    using ConfigService::ConfigService;
};

/// The groups of the suite's ini file: "HQM-Server", "Scales", "Vindara Applications", "Compatibility".
enum class KORVELiniGroup : int { HqmServer = 0, Scales = 1, VindaraApplications = 2, Compatibility = 3 };

/// The ini file that all applications of the suite share. It holds the full file name of the measuring server
/// (group HqmServer, key "Path"), and the applications with their paths (group VindaraApplications, one key
/// each).
class KORVELConfig : public ConfigService<KORVELConfig> {
  public:
    using Config::ReadKey;
    using Config::WriteKey;

    /// Replaces an older object.
    static KORVELConfig* CreateKORVELConfig(sv::String const& file);

    /// Returns the value of the key, or `defaultValue` if it is empty or missing. A number that is not a
    /// group reads from the group selected last.
    [[nodiscard]] static sv::String ReadKORVELKey(KORVELiniGroup group, sv::String const& key,
                                                  sv::String const& defaultValue = {});
    /// Intentional: does not select the group Compatibility; a key for it is written to the group selected
    /// last.
    static void WriteKORVELKey(KORVELiniGroup group, sv::String const& key, sv::String const& value);
    /// Returns the name of the application with this number, counted from 0; empty if there is none.
    [[nodiscard]] static sv::String ReadVindaraApplication(int index);

  protected:
    using ConfigService::ConfigService;
};

extern template class ConfigService<AppConfig>;
extern template class ConfigService<UserConfig>;
extern template class ConfigService<KORVELConfig>;

/// The directories of the application: the programs are in a directory below the application's root, texts
/// and documents in "LNG" and "DOC" next to it. The entry itself is the full name of the running program.
class AppDir : public sv::DirEntry, public KVSingleton {
  public:
    /// `path` is the full name of the running program. Replaces an older object.
    static AppDir* CreateAppDir(sv::String const& path);
    /// Returns null before the creation.
    [[nodiscard]] static AppDir* Instance();
    ~AppDir() override;

    /// Returns the parent of the directory of the programs.
    [[nodiscard]] virtual sv::DirEntry RootDirEntry() const;
    /// Returns the directory of the translated texts.
    [[nodiscard]] virtual sv::DirEntry LngDirEntry() const;
    /// Returns the directory of the programs, of the service's instance.
    [[nodiscard]] virtual sv::DirEntry BinDirEntry() const;
    /// Returns the directory of the documents.
    [[nodiscard]] virtual sv::DirEntry HlpDirEntry() const;
    /// Returns the drive; empty if there is none.
    [[nodiscard]] virtual sv::DirEntry TargetDisk() const;

  protected:
    explicit AppDir(sv::String const& path);

    /// Protected for derived classes that move the directories and create themselves as the service.
    static AppDir* instance_;
};

/// The application's title and version.
class AppName : public KVSingleton {
  public:
    /// Replaces an older object.
    static AppName* CreateAppName(sv::String const& title, sv::String const& version);
    /// Returns null before the creation.
    [[nodiscard]] static AppName* Instance();
    ~AppName() override;

    void SetTitel(sv::String const& title) { title_ = title; }
    [[nodiscard]] sv::String const& GetTitel() const noexcept { return title_; }
    [[nodiscard]] sv::String const& GetVersion() const noexcept { return version_; }

  protected:
    AppName(sv::String title, sv::String version);

  private:
    sv::String title_;
    sv::String version_;

    static AppName* instance_;
};

/// The fonts of the suite's windows and reports. All operations are static and need no service.
class AppFonts {
  public:
    AppFonts() = delete;

    /// Returns a fixed-pitch font in the system's size, for columns of text.
    [[nodiscard]] static constexpr sv::Font GetFixedAppFont() noexcept {
        return sv::Font(0, sv::FontPitch::Fixed);
    }
    /// Return the fonts of a report's title and text; sizes are line heights in points.
    [[nodiscard]] static constexpr sv::Font GetBigPrinterFont() noexcept { return sv::Font(18); }
    [[nodiscard]] static constexpr sv::Font GetNormalPrinterFont() noexcept { return sv::Font(10); }
};

}  // namespace kv
