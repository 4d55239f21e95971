// NumEditor: a field for a number, with arrows that walk a ladder of preferred numbers and a unit behind
// them.
#pragma once

#include "SV/ui/Controls.h"

namespace kv {

/// A text that is no number is left to stand while it is typed, and repaired when the field is left: a number
/// outside the range becomes the nearest of it, anything else the number that the program set last.
///
/// Arrows and unit are windows beside the field, children of its parent.
class NumEditor : public sv::Edit {
  public:
    /// The field is as wide as `digits` zeros, at `pos` in its parent; shown.
    NumEditor(sv::Window* parent, sv::Point pos, double value, double minimum, double maximum, int digits);
    /// 0, in a range of a million to both sides.
    NumEditor(sv::Window* parent, sv::Point pos, int digits);

    [[nodiscard]] double getValue() const noexcept { return value_; }
    void getRange(double& min, double& max) const noexcept;
    /// Outside the range, too. The link is not called.
    void setValue(double value);
    /// The value stays until the next step or typed text, even outside the range.
    void setRange(double minimum, double maximum) noexcept;
    void setUnit(sv::String const& unit);

    /// The distance from zero at which the arrows cross to the other sign, 0.0001 at first.
    void ChangeMinimalStep(double step) noexcept { minimalStep_ = step; }
    /// The decimals of the next number that is shown, 3 at first. With 0 the zeros at the end of the number
    /// itself go as well, see `detail::ShownNumber`.
    void ChangeResolution(int decimals) noexcept { resolution_ = decimals; }
    /// The arrows count by one from now on.
    void IntegerMode() noexcept { isInteger_ = true; }
    /// 1 stops the arrows, 0 lets them go on.
    void SetStopUpDown(unsigned char stop) noexcept { isStopped_ = stop != 0; }
    /// Called with the editor at each step, at each key that leaves a number of the range, and when a changed
    /// field is left. Returns the link before.
    sv::Link ChangeValueChangedHdl(sv::Link const& link) noexcept;

    /// Moves all parts. The earlier position.
    sv::Point ChangePosPixel(sv::Point position) override;
    using Edit::Enable;
    using Edit::Show;
    /// Field and arrows, and the unit unless it is empty; hides all.
    void Show(bool visible) override;
    /// Field and arrows.
    void Enable(bool enable) override;
    void ToTop();

    /// The keys up and down, and the wheel, step as the arrows do.
    void WasSpun(bool up) override;

  protected:
    /// The number as the field shows it, in the form of the locale.
    [[nodiscard]] sv::String myString(double value) const;
    virtual void showAktValue();
    [[nodiscard]] sv::String const& GetUnit() const noexcept { return unit_.GetText(); }
    /// Of so many zeros.
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
    bool isModified_ = false;
    int resolution_ = 3;
    bool isStopped_ = false;
    sv::Link valueChanged_;
    sv::FixedText unit_;
};

}  // namespace kv
