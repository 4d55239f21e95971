// QtBackend: real windows. A program makes one before its first window and keeps it until its last is gone:
//     int main(int argc, char** argv) {
//         sv::qt::QtBackend const windows(argc, argv);
#pragma once

#include "SV/core/String.h"

#include <memory>

namespace sv {
class Window;
}

namespace sv::qt {

/// Where windows show.
enum class Screen : int {
    Desktop,  // the platform that the environment names, as a rule the user's own screen
    None      // nowhere: for pictures and pages alone
};

class QtBackend {
  public:
    /// Takes Qt's own options out of the arguments. From here on windows, boxes and the event loop are Qt's;
    /// on a computer without a screen the program ends here, unless it wants none.
    QtBackend(int& argc, char** argv, Screen screen = Screen::Desktop);
    QtBackend(QtBackend const&) = delete;
    QtBackend& operator=(QtBackend const&) = delete;
    ~QtBackend();

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

/// Paints a window, which need not be on the screen, with all windows in it into a file: a picture of its
/// pixels (PNG) or a drawing that scales (SVG, or PDF with a page of the window's size), by the ending of the
/// path. False when the ending is another or the file cannot be written. The path is in the suite's code
/// page.
[[nodiscard]] bool SaveAs(Window& window, String const& path);

}  // namespace sv::qt
