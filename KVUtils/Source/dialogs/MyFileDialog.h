// MyFileDialog and BrowseForFolder: ask the user for a file or a folder. Without a display they return at
// once, as if the user had cancelled. Names are in the suite's code page; a name that it cannot represent is
// not accepted.
#pragma once

#include "SV/ui/FileChoice.h"

namespace sv {
class Window;
}

namespace kv {

/// Asks for a file to open, or for a name to save as.
///     MyFileDialog dialog(this, MyFileDialog::Save, "Export measurements");
///     dialog.AddFilter("Tables", "*.csv");
///     if (dialog.Execute() != 0) Export(dialog.GetPath());
class MyFileDialog {
  public:
    enum PurposeType : int { Open, Save };

    /// `parent` null means the active top window.
    MyFileDialog(sv::Window* parent, PurposeType purpose, sv::String const& title);

    /// Adds a filter with a pattern such as "*.txt *.csv". The first one is selected at first; without a
    /// filter all files are shown.
    void AddFilter(sv::String const& name, sv::String const& pattern);
    /// Sets the initial folder, or the full name of the initial file.
    void SetPath(sv::String const& path);

    /// Returns 1 if the user chose a file, otherwise 0. A name to save as gets the first extension of the
    /// selected filter, unless it has an extension of any filter. Asks before it returns an existing file to
    /// save as; on "no" the dialog is shown again.
    unsigned char Execute();
    /// Returns the file chosen last; before that, the argument of `SetPath`.
    [[nodiscard]] sv::String const& GetPath() const noexcept { return question_.start; }

  private:
    sv::Window* parent_;
    sv::FileQuestion question_;
};

/// Asks for a folder.
class BrowseForFolder {
  public:
    /// `parent` null means the active top window.
    BrowseForFolder(sv::Window* parent, sv::String title);

    /// Begins in `folder`. Returns 1 and stores the folder that the user chose, otherwise returns 0.
    unsigned char Execute(sv::String& folder);

  private:
    sv::Window* parent_;
    sv::String title_;
};

namespace detail {

/// Appends the first extension of the filter (counted from 0), unless the name has an extension of any
/// filter, or the filter has none.
[[nodiscard]] sv::String WithExtension(sv::String const& path, std::vector<sv::FileFilter> const& filters,
                                       std::size_t filter);

}  // namespace detail

}  // namespace kv
