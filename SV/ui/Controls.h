// The controls of the toolkit: fields, buttons and lists that the window system draws, each with a link for
// what a person does with it. The program's own changes call no link.
#pragma once

#include "SV/core/Link.h"
#include "SV/core/ListBox.h"
#include "SV/ui/Window.h"

#include <vector>

namespace sv {

/// A field for one line of text.
class Edit : public Window {
  public:
    explicit Edit(Window* parent, Style style = 0);

    /// In characters; 0 for as many as there are.
    void ChangeMaxTextLen(unsigned short length);
    void SetReadOnly(bool readOnly);
    // Each returns the link before; the sender is the edit.
    /// The text was changed by a person.
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

/// A text that cannot be changed by a person. A "~" in it stands before the letter that leads from the
/// keyboard to the control that was made after the text.
class FixedText : public Window {
  public:
    explicit FixedText(Window* parent, Style style = 0);
};

/// What can be pressed. A "~" in the text stands before the letter that presses it from the keyboard.
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

/// A button that shows a picture, and is drawn by the program.
class BitmapButton : public Button {
  public:
    BitmapButton(Window* parent, Bitmap bitmap, Style style = 0);

    /// Returns the picture before.
    Bitmap ChangeBitmap(Bitmap bitmap);
    [[nodiscard]] Bitmap const& GetBitmap() const noexcept { return bitmap_; }

    void Paint(Rectangle const& area) override;
    void MouseButtonDown(MouseEvent const& event) override;
    void MouseButtonUp(MouseEvent const& event) override;
    void GetFocus() override;
    void LoseFocus() override;

  protected:
    /// Draws the button without its picture; whether it is held down.
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

/// A list of texts on the screen, of which one may be selected.
class ListBoxControl : public Window, public ListBox {
  public:
    explicit ListBoxControl(Window* parent, Style style = 0);

    void Clear() override;
    void InsertEntry(String const& text, unsigned short position = End) override;
    void SelectEntryPos(unsigned short position) override;
    [[nodiscard]] unsigned short GetSelectEntryPos() const override { return entries_.GetSelectEntryPos(); }
    [[nodiscard]] unsigned short GetEntryCount() const override { return entries_.GetEntryCount(); }
    [[nodiscard]] String GetEntry(unsigned short position) const override {
        return entries_.GetEntry(position);
    }
    /// A person has selected another entry.
    Link ChangeSelectHdl(Link const& link) noexcept;

    void EntryWasSelected(unsigned short position) override;

  protected:
    ListBoxControl(detail::WindowKind kind, Window* parent, Style style);

  private:
    ListBoxEntries entries_;
    Link select_;
};

/// The same, of which the selected entry shows alone until it is opened.
class DropDownListBox : public ListBoxControl {
  public:
    explicit DropDownListBox(Window* parent, Style style = 0);
};

}  // namespace sv
