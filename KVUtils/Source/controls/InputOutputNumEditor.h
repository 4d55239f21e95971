// InputOutputNumEditor: a number field that can show its number and unit as read-only text.
#pragma once

#include "KVUtils/Source/controls/NumEditor.h"

namespace kv {

class InputOutputNumEditor : public NumEditor {
  public:
    /// 0, in a range of a million to both sides; a field at first.
    InputOutputNumEditor(sv::Window* parent, sv::Point pos, int digits);

    /// 1 shows the text instead of the field, 0 the field.
    void OutputOnly(unsigned char outputOnly);

    using NumEditor::Show;
    /// Shows the field; hides field and text.
    void Show(bool visible) override;
    sv::Point ChangePosPixel(sv::Point position) override;

  protected:
    void showAktValue() override;

  private:
    sv::FixedText output_;
};

}  // namespace kv
