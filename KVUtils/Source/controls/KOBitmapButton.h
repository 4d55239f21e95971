// KOBitmapButton: a button with a picture and a text beside it. Highlights under the pointer, and shows a
// line of help when the pointer rests.
#pragma once

#include "SV/ui/Controls.h"

#include <memory>

namespace kv {

/// Visible from the start. `MouseMove` runs a nested loop while the pointer rests; handlers that run there
/// may destroy the button, as its own link may.
class KOBitmapButton : public sv::BitmapButton {
  public:
    KOBitmapButton(sv::Window* parent, sv::Bitmap const& bitmap, sv::Point position, sv::Size size, long id,
                   long flags, unsigned short style);
    /// A "~" in the text marks the letter that presses the button, which is underlined. The last argument is
    /// ignored.
    KOBitmapButton(sv::Window* parent, sv::Bitmap const& bitmap, sv::String const& text, sv::Point position,
                   sv::Size size, long id, long flags, unsigned short style, unsigned char unused = 0);
    ~KOBitmapButton() override;

    // For the caller's use.
    [[nodiscard]] long& GetId() noexcept { return id_; }
    [[nodiscard]] long& GetFlags() noexcept { return flags_; }

    using BitmapButton::Enable;
    void Enable(bool enable) override;
    /// Sets the picture of the enabled button; the disabled one is derived from it. Returns the previous one.
    sv::Bitmap ChangeBitmap(sv::Bitmap const& bitmap);
    /// An empty text shows no balloon. Mnemonic marks are removed, so that a button's text can be its help
    /// too.
    void SetBalloonText(sv::String const& text);

    void Paint(sv::Rectangle const& area) override;
    void MouseMove(sv::MouseEvent const& event) override;
    void MouseButtonDown(sv::MouseEvent const& event) override;
    void LoseFocus() override;
    /// A second click does not enter a handler that runs a nested loop.
    void Click() override;

  private:
    /// State that a nested loop checks when it continues; outlives the button.
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
