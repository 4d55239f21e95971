// DeskReporting: the report of the open measurements on paper, as a PDF file and by mail.
#pragma once

#include "Apps/ColourDesk/DeskFile.h"
#include "Apps/ColourDesk/SampleView.h"

namespace colourdesk {

/// Reports all samples, with the spectra of the selected ones. What fails is shown in a box.
class DeskReporting {
  public:
    /// All must outlive the object.
    DeskReporting(sv::Window& window, DeskFile const& file, SampleView const& samples,
                  DeskMessages& messages) noexcept
        : window_(window), file_(file), samples_(samples), messages_(messages) {}

    /// Prints on the queue of this name, the default one for an empty name, or into a PDF file. The name is
    /// in the suite's code page. False when the job failed.
    [[nodiscard]] bool Print(sv::String const& printer) const;
    /// Sends the report by mail.
    [[nodiscard]] bool Send(sv::String const& recipients) const;

    /// Empty when the user cancels.
    [[nodiscard]] sv::String AskForPath() const;
    /// Empty when the user cancels or no mail program is available.
    [[nodiscard]] sv::String AskForRecipients() const;

  private:
    sv::Window& window_;
    DeskFile const& file_;
    SampleView const& samples_;
    DeskMessages& messages_;
};

}  // namespace colourdesk
