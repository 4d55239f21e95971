// KVSetting: the user settings that the applications of the suite share: the name for reports, and the two
// illuminants between which metamerism is judged. They are stored in the application's configuration, in the
// group "Settings".
#pragma once

#include "KVUtils/Source/colorimetry/Selectors.h"
#include "KVUtils/Source/frame/KVSingleton.h"
#include "SV/core/String.h"

namespace kv {

class KVSetting : public KVSingleton {
  public:
    /// Creates the service and loads the settings on the first call. `AppConfig` must exist, otherwise
    /// `Check::POINTER` reports it.
    [[nodiscard]] static KVSetting* Instance();
    ~KVSetting() override;

    /// Reads what `SaveProperties` wrote. A missing number reads as 0, which is illuminant A; any other is
    /// taken unchecked. Day numbers are not stored: both become 65.
    void LoadProperties();
    /// Writes the types of the illuminants and the name. Reports a missing `AppConfig` like loading.
    void SaveProperties() const;

    /// Returns the two illuminants between which metamerism is judged.
    void GetIllumClasses(IllumClass& first, IllumClass& second) const noexcept;
    [[nodiscard]] IllumClass GetIllumClass1() const noexcept { return first_; }
    [[nodiscard]] IllumClass GetIllumClass2() const noexcept { return second_; }
    /// Changes the object only; call `SaveProperties` to store, here and below.
    void SetIllumClasses(IllumClass first, IllumClass second) noexcept;

    /// Returns the user's name.
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
