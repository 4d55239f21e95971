// DeskMessages: what was noticed while files were read, saved and sent, and the window that shows it.
#pragma once

#include "KVUtils/Source/controls/TextFenster.h"

#include <memory>
#include <vector>

namespace colourdesk {

class DeskMessages {
  public:
    explicit DeskMessages(sv::Window& parent) noexcept : parent_(parent) {}

    void Add(sv::String const& line);
    /// Shows all lines and returns when the user closes the window.
    void Show();
    void Close();
    void Enable(bool enable);
    void UpdateTexts();

  private:
    sv::Window& parent_;
    std::vector<sv::String> lines_;
    std::unique_ptr<kv::TextFenster> window_;
};

}  // namespace colourdesk
