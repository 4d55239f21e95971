// AbortDialog: the window shown while a report is printed, with a button that aborts the job.
#pragma once

#include "KVUtils/Source/frame/TextSegment.h"
#include "SV/ui/Controls.h"
#include "SV/ui/Dialog.h"

namespace kv {

/// The record of a dialog among a program's resources.
struct DialogResource {
    unsigned short number;
    unsigned short resourceClass;

    friend constexpr bool operator==(DialogResource const&, DialogResource const&) noexcept = default;
};

inline constexpr DialogResource ABORTPRINT{3301, 256};

/// The dialog as in its resource, without texts. Its controls in order: two texts, one below the other, and a
/// button.
class ModelessDialogABORTPRINT : public sv::ModelessDialog {
  public:
    /// The desktop places it, usually over `parent`. The only known resource is `ABORTPRINT`.
    ModelessDialogABORTPRINT(sv::Window* parent, DialogResource const& resource);

    [[nodiscard]] DialogResource const& GetResource() const noexcept { return resource_; }

    /// Presses the button.
    void WasClosed() override;

  protected:
    sv::FixedText aText1;
    sv::FixedText aText2;
    sv::PushButton aButton;
    /// What the button calls.
    sv::Link aButtonLink;

  private:
    long ButtonHdl(sv::PushButton* sender);

    DialogResource resource_;
};

/// With the texts of the group "AbortDialog": the title, the line above the printer's name, the button.
class AbortDialog : public ModelessDialogABORTPRINT {
  public:
    AbortDialog(sv::Window* parent, sv::String const& printerName);

    void SetPrinterName(sv::String const& printerName);

  private:
    long AbortHdl(sv::PushButton* sender);

    TextSegment texts_;
};

}  // namespace kv
