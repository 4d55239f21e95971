// Boxes: short messages and questions to the person at the program. With no display they print to standard
// error and return their default answer, so that a library call never hangs a program without a window.
#pragma once

#include "SV/core/String.h"

#include <functional>

namespace sv {

class Window;

enum class BoxKind : int { Message, Info, Error };

/// The box's buttons and default answer, as the toolkit's style bits give them.
using WinBits = unsigned long;

inline constexpr WinBits WB_OK = 0x10;
inline constexpr WinBits WB_OK_CANCEL = 0x20;
inline constexpr WinBits WB_YES_NO = 0x40;
inline constexpr WinBits WB_DEF_YES = 0x1000;
inline constexpr WinBits WB_DEF_NO = 0x2000;

/// What a box answers when a button is pressed.
enum class BoxAnswer : short { Cancel = 0, Ok = 1, Yes = 2, No = 3 };

class MessBox {
  public:
    /// `parent` may be null. Nothing shows before `Execute`.
    MessBox(Window* parent, WinBits style, String title, String text);

    /// Shows the box, waits for the answer and returns it. With no display: prints title and text to standard
    /// error and returns `DefaultAnswer()`.
    BoxAnswer Execute() const;  // NOLINT(modernize-use-nodiscard): often there is only one answer

    /// OK; for a question Yes or No by the style, and No where the style names neither.
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

/// A piece of news, to be taken note of.
class InfoBox : public MessBox {
  public:
    InfoBox(Window* parent, String text);
};

/// What went wrong.
class ErrorBox : public MessBox {
  public:
    ErrorBox(Window* parent, WinBits style, String text);
};

/// What runs a box in place of the printing: a backend with windows, or a test's recorder.
using BoxHandler = std::function<BoxAnswer(MessBox const&)>;

/// Installs a handler, an empty one for the behaviour without a display, and returns the one before.
BoxHandler SetBoxHandler(BoxHandler handler);

}  // namespace sv
