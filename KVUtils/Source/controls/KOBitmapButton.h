// KOBitmapButton: a button with a picture and, beside it, a text; it lights up under the pointer and, when
// the pointer rests, shows a line of help.
#pragma once

#include "SV/ui/Controls.h"

#include <memory>

namespace kv {

/// Shown at once. While the pointer rests a nested loop runs in `MouseMove`, so a handler may run there that
/// destroys the button; that is allowed, as it is in the button's own link.
class KOBitmapButton : public sv::BitmapButton {
  public:
    KOBitmapButton(sv::Window* parent, sv::Bitmap const& bitmap, sv::Point position, sv::Size size, long id,
                   long flags, unsigned short style);
    /// A "~" in the text stands before the letter that presses the button, which is underlined. The last
    /// argument has no meaning.
    KOBitmapButton(sv::Window* parent, sv::Bitmap const& bitmap, sv::String const& text, sv::Point position,
                   sv::Size size, long id, long flags, unsigned short style, unsigned char unused = 0);
    ~KOBitmapButton() override;

    // The caller's own.
    [[nodiscard]] long& GetId() noexcept { return id_; }
    [[nodiscard]] long& GetFlags() noexcept { return flags_; }

    using BitmapButton::Enable;
    void Enable(bool enable) override;
    /// The picture of the enabled button; the greyed one is made from it. Returns the one before.
    sv::Bitmap ChangeBitmap(sv::Bitmap const& bitmap);
    /// An empty text is none. The mark of a mnemonic does not show, so a button's text may serve for its
    /// help.
    void SetBalloonText(sv::String const& text);

    void Paint(sv::Rectangle const& area) override;
    void MouseMove(sv::MouseEvent const& event) override;
    void MouseButtonDown(sv::MouseEvent const& event) override;
    void LoseFocus() override;
    /// A handler that runs a loop of its own is not entered again by a second click.
    void Click() override;

  private:
    /// What a nested loop looks at when it goes on, and outlives the button.
    struct State {
        bool isInClick = false;
        bool isWaiting = false;
        bool isWaitCancelled = false;
        bool isGone = false;
    };

    void EndBalloon();
    void WaitForBalloon(sv::MouseEvent const& event);
    void LightUp(bool isLit);
    void DrawLabel(sv::Point corner);

    sv::Bitmap face_;
    sv::Bitmap inactive_;
    long flags_;
    long id_;
    sv::String balloonText_;
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace kv
