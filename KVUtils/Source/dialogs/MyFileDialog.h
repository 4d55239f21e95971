// MyFileDialog and BrowseForFolder: which file, which folder. Without a display they answer at once that
// nothing was chosen. Names are in the suite's code page; one that it cannot hold is not accepted.
#pragma once

#include "SV/ui/FileChoice.h"

namespace sv {
class Window;
}

namespace kv {

/// Asks for a file to open, or for a name to save under.
///     MyFileDialog dialog(this, MyFileDialog::Save, "Export measurements");
///     dialog.AddFilter("Tables", "*.csv");
///     if (dialog.Execute() != 0) Export(dialog.GetPath());
class MyFileDialog {
  public:
    enum PurposeType : int { Open, Save };

    /// Stands over `parent`; null for the window in front.
    MyFileDialog(sv::Window* parent, PurposeType purpose, sv::String const& title);

    /// Shows files by a pattern such as "*.txt *.csv", the first filter at first. Without a filter all files
    /// show.
    void AddFilter(sv::String const& name, sv::String const& pattern);
    /// The folder to begin in, or the whole name of a file to begin with.
    void SetPath(sv::String const& path);

    /// Asks, and returns 1 when a file was chosen, else 0. A name to save under gets the first extension of
    /// the filter in use, unless it has an extension of any filter; a file that is there is replaced only
    /// after the person has said so in a box, else the dialog asks again.
    unsigned char Execute();
    /// The file chosen last; before that, what `SetPath` was given.
    [[nodiscard]] sv::String const& GetPath() const noexcept { return question_.start; }

  private:
    sv::Window* parent_;
    sv::FileQuestion question_;
};

/// Asks for a folder.
class BrowseForFolder {
  public:
    /// Stands over `parent`; null for the window in front.
    BrowseForFolder(sv::Window* parent, sv::String title);

    /// Asks, beginning in `folder`. 1 when one was chosen, which then stands in `folder`; else 0, and
    /// `folder` stays.
    unsigned char Execute(sv::String& folder);

  private:
    sv::Window* parent_;
    sv::String title_;
};

namespace detail {

/// The name with the extension of the filter (counted from 0), unless it has one of any filter, or the filter
/// asks for none.
[[nodiscard]] sv::String WithExtension(sv::String const& path, std::vector<sv::FileFilter> const& filters,
                                       std::size_t filter);

}  // namespace detail

}  // namespace kv
