// QtBackend: windows, printers and fonts by Qt. Create one before the first window and destroy it after the
// last:
//     int main(int argc, char** argv) {
//         sv::qt::QtBackend const windows(argc, argv);
//         sv::Window window(nullptr);
//         window.Show();
//         sv::Application::Execute();  // until the user closes the window
//     }
#pragma once

#include "SV/core/ForeignMacros.h"
#include "SV/core/String.h"

#include <memory>

namespace sv {
class Window;
}

namespace sv::qt {

/// Where windows are shown.
enum class Screen : int {
    Desktop,  // the platform that the environment names, usually the user's screen
    None      // nowhere: for saving pictures and pages only
};

class QtBackend {
  public:
    /// Removes Qt's own options from the arguments, and installs Qt's windows, boxes and event loop. On a
    /// computer without a screen the program exits here, unless `screen` is `None`.
    QtBackend(int& argc, char** argv, Screen screen = Screen::Desktop);
    QtBackend(QtBackend const&) = delete;
    QtBackend& operator=(QtBackend const&) = delete;
    ~QtBackend();

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

/// Writes a window, which need not be visible, and its children to a file. The extension selects the format:
/// a picture of its pixels (PNG) or scalable graphics (SVG, or PDF with a page of the window's size). Returns
/// false if the extension is another or the file cannot be written. The path is in the suite's code page.
[[nodiscard]] bool SaveAs(Window& window, String const& path);

}  // namespace sv::qt
