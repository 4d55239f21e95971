// The configuration of an application, of its user and of the whole suite, and what the application knows of
// itself: where its files lie and what it is called. Each is a service that the application creates at its
// start. And the fonts of its windows.
//
// The operations on keys may be called by way of `Instance()` or of the class. Used before the creation they
// report the null pointer through `Check::POINTER`, and so throw. An empty value is the same as no value. The
// group that an operation selects stays selected, so nobody may rely on a selected group. All of it belongs
// to the main thread.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "SV/core/Config.h"
#include "SV/core/DirEntry.h"
#include "SV/core/String.h"
#include "SV/ui/Drawing.h"

namespace kv {

/// The application's own ini file.
class AppConfig : public sv::Config, public KVSingleton {
  public:
    /// Replaces an older one.
    static AppConfig* CreateAppConfig(sv::String const& file);
    /// Null before the creation.
    [[nodiscard]] static AppConfig* Instance();
    ~AppConfig() override;

    /// The value of the key, or `defaultValue` when it is empty or missing.
    [[nodiscard]] static sv::String ReadKey(sv::String const& group, sv::String const& key,
                                            sv::String const& defaultValue = {});
    /// Leaves the selected group alone.
    static void WriteKey(sv::String const& group, sv::String const& key, sv::String const& value);
    /// How many keys the group has; 0 for a group that is not there.
    [[nodiscard]] static unsigned short GetKeyCount(sv::String const& group);
    /// Empty past the last key.
    [[nodiscard]] static sv::String GetKeyName(sv::String const& group, unsigned short index);
    /// Deletes all keys of the group, as far as the file can be written. The group that was selected before
    /// stays selected.
    static void EmptyGroup(sv::String const& group);

  protected:
    explicit AppConfig(sv::String const& file);

  private:
    static AppConfig* instance_;
};

/// The user's ini file.
class UserConfig : public sv::Config, public KVSingleton {
  public:
    /// Replaces an older one.
    static void CreateUserConfig(sv::String const& file);
    /// Null before the creation.
    [[nodiscard]] static UserConfig* Instance();
    ~UserConfig() override;

    /// The value of the key, or `defaultValue` when it is empty or missing.
    [[nodiscard]] static sv::String ReadKey(sv::String const& group, sv::String const& key,
                                            sv::String const& defaultValue);
    /// Leaves the selected group alone.
    static void WriteKey(sv::String const& group, sv::String const& key, sv::String const& value);

  protected:
    explicit UserConfig(sv::String const& file);

  private:
    static UserConfig* instance_;
};

/// The groups of the suite's ini file: "HQM-Server", "Scales", "Vindara Applications", "Compatibility".
enum class KORVELiniGroup : int { HqmServer = 0, Scales = 1, VindaraApplications = 2, Compatibility = 3 };

/// The ini file that all applications share: the measuring server's full file name (group HqmServer, key
/// "Path"), and the applications with their paths (group VindaraApplications, one key each).
class KORVELConfig : public sv::Config, public KVSingleton {
  public:
    /// Replaces an older one.
    static KORVELConfig* CreateKORVELConfig(sv::String const& file);
    /// Null before the creation.
    [[nodiscard]] static KORVELConfig* Instance();
    ~KORVELConfig() override;

    /// The value of the key, or `defaultValue` when it is empty or missing. Of a group that has no name the
    /// key is looked for in the group selected last.
    [[nodiscard]] static sv::String ReadKORVELKey(KORVELiniGroup group, sv::String const& key,
                                                  sv::String const& defaultValue = {});
    /// Never selects the group Compatibility: a key for it is written to the group selected last. That is
    /// meant.
    static void WriteKORVELKey(KORVELiniGroup group, sv::String const& key, sv::String const& value);
    /// The name of the application with this number, counted from 0; empty when there is none.
    [[nodiscard]] static sv::String ReadVindaraApplication(int index);

  protected:
    explicit KORVELConfig(sv::String const& file);

  private:
    static KORVELConfig* instance_;
};

/// Where the application's files lie: programs in one directory of the application's root, texts and
/// documents beside it in "LNG" and "DOC". The entry itself is the full name of the running program.
class AppDir : public sv::DirEntry, public KVSingleton {
  public:
    /// `path` is the full name of the running program. Replaces an older one.
    static AppDir* CreateAppDir(sv::String const& path);
    /// Null before the creation.
    [[nodiscard]] static AppDir* Instance();
    ~AppDir() override;

    /// The directory that holds that of the programs.
    [[nodiscard]] virtual sv::DirEntry RootDirEntry() const;
    /// The directory of the translated texts.
    [[nodiscard]] virtual sv::DirEntry LngDirEntry() const;
    /// The directory of the programs, that of the service's instance.
    [[nodiscard]] virtual sv::DirEntry BinDirEntry() const;
    /// The directory of the documents.
    [[nodiscard]] virtual sv::DirEntry HlpDirEntry() const;
    /// The drive; empty where there is none.
    [[nodiscard]] virtual sv::DirEntry TargetDisk() const;

  protected:
    explicit AppDir(sv::String const& path);

    /// For a class that moves the directories and creates itself as the service.
    static AppDir* instance_;
};

/// The application's title and version.
class AppName : public KVSingleton {
  public:
    /// Replaces an older one.
    static AppName* CreateAppName(sv::String const& title, sv::String const& version);
    /// Null before the creation.
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

/// The fonts of the suite's windows and reports.
class AppFonts {
  public:
    AppFonts() = delete;

    /// Of dialogs and their controls: the system's own.
    [[nodiscard]] static constexpr sv::Font GetDialogAppFont() noexcept { return sv::Font(); }
    /// The same, bold: for what stands above a part of a window.
    [[nodiscard]] static constexpr sv::Font GetTitleAppFont() noexcept {
        return sv::Font(0, sv::FontPitch::Variable, sv::FontWeight::Bold);
    }
    /// All letters of one width, in the system's own size: for columns of text.
    [[nodiscard]] static constexpr sv::Font GetFixedAppFont() noexcept {
        return sv::Font(0, sv::FontPitch::Fixed);
    }
    /// Of a report's title and its text, in points of a line's height.
    [[nodiscard]] static constexpr sv::Font GetBigPrinterFont() noexcept { return sv::Font(18); }
    [[nodiscard]] static constexpr sv::Font GetNormalPrinterFont() noexcept { return sv::Font(10); }
};

}  // namespace kv
