// KOBitmapButtonBar: buttons in a row or a column, and the buttons that the suite's windows share.
#pragma once

#include "KVUtils/Source/controls/KOBitmapButton.h"
#include "KVUtils/Source/controls/detail/ButtonBarLayout.h"
#include "SV/core/Container.h"

namespace kv {

/// The list of the buttons, which it owns; destroyed before the window that they stand in. A button goes
/// where the cursor is, which then moves on by the button and the gap.
class KOBitmapButtonBar : public sv::List {
  public:
    /// A bar at `position` of buttons of this size, to the right if `horizontal` is not 0, else down. `gaps`
    /// are those between two buttons, across and down.
    KOBitmapButtonBar(sv::Window* parent, sv::Point position, sv::Size button, unsigned char horizontal);
    KOBitmapButtonBar(sv::Window* parent, sv::Point position, sv::Size button, unsigned char horizontal,
                      sv::Point gaps);
    /// A column at the right of the parent as it is now: 30 pixels from the edge, 10 from the top, 3 between
    /// two buttons.
    KOBitmapButtonBar(sv::Window* parent, ButtonSize size);
    ~KOBitmapButtonBar();
    KOBitmapButtonBar(KOBitmapButtonBar const&) = delete;
    KOBitmapButtonBar& operator=(KOBitmapButtonBar const&) = delete;

    // The link is called with the button. `id` and `flags` are the caller's own; the bitmap of a number is
    // the library's. Each returns the button.
    KOBitmapButton* AddButton(sv::Bitmap const& bitmap, sv::Link const& link, long id, long flags,
                              unsigned short style);
    KOBitmapButton* AddButton(unsigned short bitmapId, sv::Link const& link, long id, long flags,
                              unsigned short style);
    KOBitmapButton* AddButton(sv::Bitmap const& bitmap, sv::String const& text, sv::Link const& link, long id,
                              long flags, unsigned short style);
    KOBitmapButton* AddButton(unsigned short bitmapId, sv::String const& text, sv::Link const& link, long id,
                              long flags, unsigned short style);
    /// The suite's button with this id, with its text of the group "KOBitmapButtonBar". Any other id adds
    /// nothing and returns null.
    KOBitmapButton* AddButton(sv::Link const& link, long id, long flags);
    /// Moves the cursor on by so many pixels more.
    void AddGap(int pixels) noexcept { layout_.AddGap(pixels); }

    /// The first button with the id, or null.
    [[nodiscard]] KOBitmapButton* SearchButton(long id) const noexcept;

    [[nodiscard]] sv::Point GetCursor() const noexcept { return layout_.GetCursor(); }
    void SetCursor(sv::Point cursor) noexcept { layout_.SetCursor(cursor); }
    [[nodiscard]] sv::Point GetPosPixel() const noexcept { return layout_.GetPosPixel(); }
    /// Moves the buttons and the cursor along. The earlier position.
    sv::Point ChangePosPixel(sv::Point position);
    /// The bar's own size, at first that of a button, for the caller's use.
    [[nodiscard]] sv::Size GetSizePixel() const noexcept { return layout_.GetSizePixel(); }
    sv::Size ChangeSizePixel(sv::Size size) noexcept { return layout_.ChangeSizePixel(size); }
    /// What the buttons take up, their first and last pixel; position and size as long as there are none.
    [[nodiscard]] sv::Rectangle GetBarPosSizePixel() const noexcept;
    /// Puts bar and cursor at the right of the parent as it is now, `distance` pixels from the edge and 10
    /// from the top. Buttons that were added stay.
    void PlaceRight(int distance) noexcept;

    // All buttons.
    void Enable() { EnableAll(true); }
    void Disable() { EnableAll(false); }

  private:
    [[nodiscard]] KOBitmapButton* ButtonAt(unsigned long place) const noexcept {
        return static_cast<KOBitmapButton*>(GetObject(place));
    }
    void EnableAll(bool enable);

    sv::Window* parent_;
    detail::ButtonBarLayout layout_;
};

}  // namespace kv
