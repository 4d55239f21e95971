// Boxes: short messages and questions to the user. Without a display they print to standard error and return
// their default answer, so that a library call never blocks a program that has no window.
#pragma once

#include "SV/core/String.h"

#include <functional>

namespace sv {

class Window;

enum class BoxKind : int { Message, Info, Error };

/// The buttons and the default answer of a box, as the toolkit's style bits.
using WinBits = unsigned long;

inline constexpr WinBits WB_OK = 0x10;
inline constexpr WinBits WB_OK_CANCEL = 0x20;
inline constexpr WinBits WB_YES_NO = 0x40;
/// Save (answers Yes), Discard (No) and Cancel, which is the default.
inline constexpr WinBits WB_SAVE_DISCARD_CANCEL = 0x80;
inline constexpr WinBits WB_DEF_YES = 0x1000;
inline constexpr WinBits WB_DEF_NO = 0x2000;

/// The button that was pressed.
enum class BoxAnswer : short { Cancel = 0, Ok = 1, Yes = 2, No = 3 };

class MessBox {
  public:
    /// `parent` may be null. Nothing shows before `Execute`.
    MessBox(Window* parent, WinBits style, String title, String text);

    /// Shows the box, waits for the answer and returns it. Without a display: prints title and text to
    /// standard error and returns `DefaultAnswer()`.
    BoxAnswer Execute() const;  // NOLINT(modernize-use-nodiscard): often there is only one answer

    /// `Ok`, or for a question `Yes` or `No` as the style says; `No` if the style names neither.
    [[nodiscard]] BoxAnswer DefaultAnswer() const noexcept;

    [[nodiscard]] BoxKind GetKind() const noexcept { return kind_; }
    [[nodiscard]] Window* GetParent() const noexcept { return parent_; }
    [[nodiscard]] WinBits GetStyle() const noexcept { return style_; }
    [[nodiscard]] String const& GetTitle() const noexcept { return title_; }
    [[nodiscard]] String const& GetText() const noexcept { return text_; }

  protected:
    MessBox(BoxKind kind, Window* parent, WinBits style, String title, String text);

  private:
    BoxKind kind_;
    Window* parent_;
    WinBits style_;
    String title_;
    String text_;
};

/// A box that informs.
class InfoBox : public MessBox {
  public:
    InfoBox(Window* parent, String text);
};

/// A box that reports an error.
class ErrorBox : public MessBox {
  public:
    ErrorBox(Window* parent, WinBits style, String text);
};

/// Runs a box instead of printing it: installed by a backend with windows, or by a test.
using BoxHandler = std::function<BoxAnswer(MessBox const&)>;

/// Installs a handler and returns the previous one. An empty handler restores the behaviour without a
/// display.
BoxHandler SetBoxHandler(BoxHandler handler);

}  // namespace sv
