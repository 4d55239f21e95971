// The controls of the toolkit: fields, buttons and lists that the window system draws. Links are called when
// the user operates a control, not when the program changes it.
#pragma once

#include "SV/core/Link.h"
#include "SV/core/ListBox.h"
#include "SV/ui/Window.h"

#include <vector>

namespace sv {

/// A field for a line of text.
class Edit : public Window {
  public:
    explicit Edit(Window* parent, Style style = 0);

    /// The maximum number of characters; 0 for no limit.
    void ChangeMaxTextLen(unsigned short length);
    void SetReadOnly(bool readOnly);
    // Each returns the previous link; the sender is the edit.
    /// Called when the user has changed the text.
    Link ChangeModifyHdl(Link const& link) noexcept;
    Link ChangeLoseFocusHdl(Link const& link) noexcept;

    void LoseFocus() override;
    void TextHasChanged(String const& text) override;

  private:
    Link modify_;
    Link loseFocus_;
};

/// Two arrows, up and down.
class SpinButton : public Window {
  public:
    explicit SpinButton(Window* parent, Style style = 0);

    Link ChangeUpHdl(Link const& link) noexcept;
    Link ChangeDownHdl(Link const& link) noexcept;

    void WasSpun(bool up) override;

  private:
    Link up_;
    Link down_;
};

/// A text that the user cannot change. A "~" marks its mnemonic, which moves the focus to the control that
/// was created after the text.
class FixedText : public Window {
  public:
    explicit FixedText(Window* parent, Style style = 0);
};

/// Something to press. A "~" in the text marks its mnemonic.
class Button : public Window {
  public:
    Link ChangeClickHdl(Link const& link) noexcept;

    /// Calls the link.
    virtual void Click();
    void WasClicked() override;

  protected:
    Button(detail::WindowKind kind, Window* parent, Style style);

  private:
    Link click_;
};

class PushButton : public Button {
  public:
    explicit PushButton(Window* parent, Style style = 0);
};

/// A button with a picture, drawn by the program.
class BitmapButton : public Button {
  public:
    BitmapButton(Window* parent, Bitmap bitmap, Style style = 0);

    /// Returns the previous picture.
    Bitmap ChangeBitmap(Bitmap bitmap);
    [[nodiscard]] Bitmap const& GetBitmap() const noexcept { return bitmap_; }

    void Paint(Rectangle const& area) override;
    void MouseButtonDown(MouseEvent const& event) override;
    void MouseButtonUp(MouseEvent const& event) override;
    void GetFocus() override;
    void LoseFocus() override;

  protected:
    /// Draws the button without its picture and returns whether it is pressed.
    bool PaintFrame();

  private:
    Bitmap bitmap_;
    bool isDown_ = false;
};

class CheckBox : public Button {
  public:
    explicit CheckBox(Window* parent, Style style = 0);

    void Check(bool checked);
    [[nodiscard]] bool IsChecked() const noexcept { return isChecked_; }

    void Click() override;

  private:
    bool isChecked_ = false;
};

/// A list of texts, one of which may be selected.
class ListBoxControl : public Window, public ListBox {
  public:
    explicit ListBoxControl(Window* parent, Style style = 0);

    void Clear() override;
    void InsertEntry(String const& text, int position = End) override;
    void SelectEntryPos(int position) override;
    [[nodiscard]] int GetSelectEntryPos() const override { return entries_.GetSelectEntryPos(); }
    [[nodiscard]] int GetEntryCount() const override { return entries_.GetEntryCount(); }
    [[nodiscard]] String GetEntry(int position) const override { return entries_.GetEntry(position); }
    /// Called when the user has selected another entry.
    Link ChangeSelectHdl(Link const& link) noexcept;

    void EntryWasSelected(int position) override;

  protected:
    ListBoxControl(detail::WindowKind kind, Window* parent, Style style);

  private:
    ListBoxEntries entries_;
    Link select_;
};

/// A list that shows only its selected entry until it is opened.
class DropDownListBox : public ListBoxControl {
  public:
    explicit DropDownListBox(Window* parent, Style style = 0);
};

}  // namespace sv
