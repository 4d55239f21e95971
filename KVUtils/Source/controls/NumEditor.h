// NumEditor: a field for a number, with arrows that step along a ladder of preferred numbers, and a unit.
#pragma once

#include "SV/ui/Controls.h"

#include <memory>

namespace kv {

/// Accepts any text while the user types, and corrects it when the field loses the focus: a number outside
/// the range becomes the nearest one inside, and any other text the number that the program set last.
///
/// Arrows and unit are children of the field's parent.
class NumEditor : public sv::Edit {
  public:
    /// A visible field at `pos` in its parent, as wide as `digits` zeros.
    NumEditor(sv::Window* parent, sv::Point pos, double value, double minimum, double maximum, int digits);
    /// Value 0, range -1,000,000 to 1,000,000.
    NumEditor(sv::Window* parent, sv::Point pos, int digits);

    [[nodiscard]] double getValue() const noexcept { return value_; }
    void getRange(double& min, double& max) const noexcept;
    /// Accepts values outside the range. Does not call the link.
    void setValue(double value);
    /// Keeps the value, even outside the range, until the next step or typed text.
    void setRange(double minimum, double maximum) noexcept;
    void setUnit(sv::String const& unit);

    /// The distance from zero at which the arrows cross to the other sign, 0.0001 at first.
    void ChangeMinimalStep(double step) noexcept { minimalStep_ = step; }
    /// The decimals of the next number that is shown, 3 at first. With 0, trailing zeros of the number itself
    /// are removed as well: 100 shows as "1".
    void ChangeResolution(int decimals) noexcept { resolution_ = decimals; }
    /// Makes the arrows count by one.
    void IntegerMode() noexcept { isInteger_ = true; }
    /// 1 stops the arrows, 0 enables them again.
    void SetStopUpDown(unsigned char stop) noexcept { isStopped_ = stop != 0; }
    /// Called with the editor at each step, at each key after which the text is a number in the range, and
    /// when a changed field loses the focus, which counts as changed until the link returns. Returns the
    /// previous link.
    sv::Link ChangeValueChangedHdl(sv::Link const& link) noexcept;

    /// Moves all parts. Returns the previous position.
    sv::Point ChangePosPixel(sv::Point position) override;
    using Edit::Enable;
    using Edit::Show;
    /// Shows field, arrows and the unit unless it is empty; hides all.
    void Show(bool visible) override;
    /// Field and arrows.
    void Enable(bool enable) override;
    void ToTop();

    /// The up and down keys and the wheel step as the arrows do.
    void WasSpun(bool up) override;

  protected:
    /// The number as the field shows it, with the locale's separator.
    [[nodiscard]] sv::String myString(double value) const;
    virtual void showAktValue();
    [[nodiscard]] sv::String const& GetUnit() const noexcept { return unit_.GetText(); }
    /// The size of this many zeros.
    [[nodiscard]] sv::Size SizeOfDigits(int digits) const;

  private:
    void initEditor(sv::Point pos, int digits);
    long LooseFocusHdl(Edit* sender);
    long ModifyHdl(Edit* sender);
    void ChangeNumber(unsigned char up);
    long UpHdl(sv::SpinButton* sender);
    long DownHdl(sv::SpinButton* sender);
    void valueChanged() { valueChanged_.Call(this); }

    bool isInteger_ = false;
    sv::SpinButton spin_;
    double minimalStep_ = 0.0001F;  // just below the rung of that name, so that the first step is that rung
    double value_;
    double minimum_;
    double maximum_;
    double restore_;
    std::shared_ptr<bool> isModified_ = std::make_shared<bool>(false);
    int resolution_ = 3;
    bool isStopped_ = false;
    sv::Link valueChanged_;
    sv::FixedText unit_;
};

}  // namespace kv
