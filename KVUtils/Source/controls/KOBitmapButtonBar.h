// KOBitmapButtonBar: a row or column of buttons, and the standard buttons of the suite.
#pragma once

#include "KVUtils/Source/controls/KOBitmapButton.h"
#include "SV/core/Container.h"

#include <memory>

namespace kv {

namespace detail {
class ButtonBarLayout;
}

/// The widths of the suite's buttons: 120, 145 and 195 pixels, each 30 high.
enum ButtonSize : int {};

/// The list of its buttons, which it owns. Destroy it before the parent window. A button is placed at the
/// cursor, which then advances by the button and the gap.
class KOBitmapButtonBar : public sv::List {
  public:
    /// A bar at `position` of buttons of this size, to the right if `horizontal` is not 0, else down. `gaps`
    /// are the distances between two buttons, across and down.
    KOBitmapButtonBar(sv::Window* parent, sv::Point position, sv::Size button, unsigned char horizontal);
    KOBitmapButtonBar(sv::Window* parent, sv::Point position, sv::Size button, unsigned char horizontal,
                      sv::Point gaps);
    /// A column at the right of the parent's current area: 30 pixels from the edge, 10 from the top, 3
    /// between two buttons.
    KOBitmapButtonBar(sv::Window* parent, ButtonSize size);
    ~KOBitmapButtonBar();
    KOBitmapButtonBar(KOBitmapButtonBar const&) = delete;
    KOBitmapButtonBar& operator=(KOBitmapButtonBar const&) = delete;

    // The link is called with the button. `id` and `flags` are for the caller's use; a bitmap number names a
    // bitmap of the library. Each returns the button.
    KOBitmapButton* AddButton(sv::Bitmap const& bitmap, sv::Link const& link, long id, long flags,
                              unsigned short style);
    KOBitmapButton* AddButton(unsigned short bitmapId, sv::Link const& link, long id, long flags,
                              unsigned short style);
    KOBitmapButton* AddButton(sv::Bitmap const& bitmap, sv::String const& text, sv::Link const& link, long id,
                              long flags, unsigned short style);
    KOBitmapButton* AddButton(unsigned short bitmapId, sv::String const& text, sv::Link const& link, long id,
                              long flags, unsigned short style);
    /// The suite's button with this id, with its text of the group "KOBitmapButtonBar". Adds nothing and
    /// returns null for any other id.
    KOBitmapButton* AddButton(sv::Link const& link, long id, long flags);
    /// Advances the cursor by this many pixels.
    void AddGap(int pixels) noexcept;

    /// The first button with the id, or null.
    [[nodiscard]] KOBitmapButton* SearchButton(long id) const noexcept;

    [[nodiscard]] sv::Point GetCursor() const noexcept;
    void SetCursor(sv::Point cursor) noexcept;
    [[nodiscard]] sv::Point GetPosPixel() const noexcept;
    /// Moves bar, buttons and cursor. Returns the previous position.
    sv::Point ChangePosPixel(sv::Point position);
    /// The bar's own size, at first that of a button, for the caller's use.
    [[nodiscard]] sv::Size GetSizePixel() const noexcept;
    sv::Size ChangeSizePixel(sv::Size size) noexcept;
    /// The area from the first to the last pixel of the buttons; position and size of the bar if there are
    /// none.
    [[nodiscard]] sv::Rectangle GetBarPosSizePixel() const noexcept;
    /// Moves bar and cursor to the right of the parent's current area, `distance` pixels from the edge and 10
    /// from the top. Existing buttons stay.
    void PlaceRight(int distance) noexcept;

    // Enable or disable all buttons.
    void Enable() { EnableAll(true); }
    void Disable() { EnableAll(false); }

  private:
    [[nodiscard]] KOBitmapButton* ButtonAt(unsigned long place) const noexcept {
        return static_cast<KOBitmapButton*>(GetObject(place));
    }
    void EnableAll(bool enable);

    sv::Window* parent_;
    std::unique_ptr<detail::ButtonBarLayout> layout_;
};

}  // namespace kv
