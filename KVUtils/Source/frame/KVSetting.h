// KVSetting: what the applications of the suite keep of their user: the name for reports, and the two
// illuminants between which metamerism is judged. It lies in the application's configuration, in the group
// "Settings".
#pragma once

#include "KVUtils/Source/colorimetry/Selectors.h"
#include "KVUtils/Source/frame/KVSingleton.h"
#include "SV/core/String.h"

namespace kv {

class KVSetting : public KVSingleton {
  public:
    /// Creates and loads itself at the first call; `AppConfig` must stand by then, or `Check::POINTER`
    /// reports it.
    [[nodiscard]] static KVSetting* Instance();
    ~KVSetting() override;

    /// Reads what `SaveProperties` wrote. A missing number is 0, which is illuminant A, and any other is
    /// taken as it stands. A day number is not kept: it becomes 65.
    void LoadProperties();
    /// Writes the types of the illuminants and the name. Without `AppConfig` it reports as loading does.
    void SaveProperties() const;

    /// The two illuminants between which metamerism is judged.
    void GetIllumClasses(IllumClass& first, IllumClass& second) const noexcept;
    [[nodiscard]] IllumClass GetIllumClass1() const noexcept { return first_; }
    [[nodiscard]] IllumClass GetIllumClass2() const noexcept { return second_; }
    /// Setters change the object only.
    void SetIllumClasses(IllumClass first, IllumClass second) noexcept;

    /// The user's name.
    [[nodiscard]] sv::String const& GetBenutzername() const noexcept { return userName_; }
    void SetBenutzername(sv::String const& name) { userName_ = name; }

  protected:
    KVSetting() = default;

  private:
    IllumClass first_{IllumType::D65};
    IllumClass second_{IllumType::A};
    sv::String userName_;

    static KVSetting* instance_;
};

}  // namespace kv
