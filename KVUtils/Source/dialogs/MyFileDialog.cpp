#include "KVUtils/Source/dialogs/MyFileDialog.h"

#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "SV/core/Boxes.h"
#include "SV/core/DirEntry.h"
#include "SV/ui/Backend.h"

#include <algorithm>
#include <utility>

namespace kv {

namespace {

sv::Window* ParentOrActive(sv::Window* parent) {
    return parent != nullptr ? parent : RegisterTopWindow::GetActiveTopWindow();
}

/// The extensions of a pattern, without those that contain "*".
std::vector<sv::String> ExtensionsOf(sv::FileFilter const& filter) {
    std::vector<sv::String> extensions;
    for (std::size_t i = 0; i < filter.pattern.GetTokenCount(' '); ++i) {
        sv::String const extension = sv::DirEntry(filter.pattern.GetToken(i, ' ')).GetExtension();
        if (!extension.IsEmpty() && extension.Search('*') == sv::String::NotFound)
            extensions.push_back(extension);
    }
    return extensions;
}

bool MayReplace(sv::Window* parent, sv::String const& path) {
    sv::String const text = path + " already exists. Replace it?";
    return sv::MessBox(parent, sv::WB_YES_NO | sv::WB_DEF_NO, {}, text).Execute() == sv::BoxAnswer::Yes;
}

}  // namespace

MyFileDialog::MyFileDialog(sv::Window* parent, PurposeType purpose, sv::String const& title)
    : parent_(ParentOrActive(parent)),
      question_{.purpose = purpose == Save ? sv::FilePurpose::Save : sv::FilePurpose::Open, .title = title} {}

void MyFileDialog::AddFilter(sv::String const& name, sv::String const& pattern) {
    question_.filters.push_back({.name = name, .pattern = pattern});
}

void MyFileDialog::SetPath(sv::String const& path) { question_.start = path; }

unsigned char MyFileDialog::Execute() {
    bool const isSave = question_.purpose == sv::FilePurpose::Save;
    sv::FileQuestion question = question_;
    for (;;) {
        auto const answer = sv::detail::CurrentBackend().AskForFile(parent_, question);
        if (!answer) return 0;
        question.start =
            isSave ? detail::WithExtension(answer->path, question.filters, answer->filter) : answer->path;
        if (!isSave || !sv::DirEntry(question.start).Exists() || MayReplace(parent_, question.start)) break;
    }
    question_.start = question.start;
    return 1;
}

BrowseForFolder::BrowseForFolder(sv::Window* parent, sv::String title)
    : parent_(ParentOrActive(parent)), title_(std::move(title)) {}

unsigned char BrowseForFolder::Execute(sv::String& folder) {
    sv::FileQuestion const question{.purpose = sv::FilePurpose::Folder, .title = title_, .start = folder};
    auto const answer = sv::detail::CurrentBackend().AskForFile(parent_, question);
    if (!answer) return 0;
    folder = answer->path;
    return 1;
}

namespace detail {

sv::String WithExtension(sv::String const& path, std::vector<sv::FileFilter> const& filters,
                         std::size_t filter) {
    if (filter >= filters.size()) return path;
    sv::String const own = sv::DirEntry(path).GetExtension();
    for (sv::FileFilter const& each : filters) {
        auto const isOwn = [&own](sv::String const& other) { return own.EqualsIgnoreCase(other); };
        if (std::ranges::any_of(ExtensionsOf(each), isOwn)) return path;
    }
    std::vector<sv::String> const extensions = ExtensionsOf(filters[filter]);
    return extensions.empty() ? path : path + '.' + extensions.front();
}

}  // namespace detail

}  // namespace kv
