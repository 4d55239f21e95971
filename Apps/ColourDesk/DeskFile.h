// DeskFile: the measurements that are open, how they are read and saved.
#pragma once

#include "Apps/ColourDesk/DeskMessages.h"
#include "Apps/evaluation/ColourSheet.h"

#include <optional>
#include <string>

namespace colourdesk {

/// What fails is shown in a box. Paths are UTF-8.
class DeskFile {
  public:
    /// Names `window` as the parent of boxes and dialogs. Both must outlive the object.
    DeskFile(sv::Window& window, DeskMessages& messages) noexcept : window_(window), messages_(messages) {}

    /// Null when nothing is open.
    [[nodiscard]] evaluation::ColourSheet* GetSheet() noexcept { return sheet_ ? &*sheet_ : nullptr; }
    [[nodiscard]] evaluation::ColourSheet const* GetSheet() const noexcept {
        return sheet_ ? &*sheet_ : nullptr;
    }
    /// Whether the measurements are in no file.
    [[nodiscard]] bool IsUnsaved() const noexcept { return isUnsaved_; }
    /// The sample's name in the suite's code page; empty for none.
    [[nodiscard]] sv::String SampleName(std::optional<std::size_t> sample) const;

    /// Reads a file and adds the reader's remarks to the messages; empty when it cannot be read.
    [[nodiscard]] std::optional<files::MeasurementFile> Read(std::string const& path);
    /// Shows the reader's warnings about the open file in a box, if there are any.
    void ShowWarnings() const;
    /// Replaces the measurements that are open.
    void Set(files::MeasurementFile file, bool isUnsaved);
    bool Save(std::string const& path);

    /// Empty when the user cancels.
    [[nodiscard]] std::optional<std::string> AskForPath();
    /// Asks for a path and saves there. False when the user cancels or saving fails.
    bool AskAndSave();
    /// Offers to save unsaved measurements. False when they must be kept open.
    [[nodiscard]] bool MayDiscard();

  private:
    sv::Window& window_;
    DeskMessages& messages_;
    std::optional<evaluation::ColourSheet> sheet_;
    bool isUnsaved_ = false;
};

}  // namespace colourdesk
