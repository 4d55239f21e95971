#include "KVUtils/Source/messaging/detail/ApplicationList.h"

#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Check.h"

#include <algorithm>
#include <utility>

namespace kv::detail {

namespace {

sv::DirEntry MeasuringServer() {
    sv::String const missing = "no KORVEL.INI";
    sv::String const path = KORVELConfig::ReadKORVELKey(KORVELiniGroup::HqmServer, "Path", missing);
    if (path != missing) return sv::DirEntry(path);
    Check::POINTER(AppDir::Instance());
    return AppDir::Instance()->BinDirEntry() + sv::String("HQMSERV.EXE");
}

}  // namespace

ApplicationList ApplicationList::OfTheSuite() {
    ApplicationList list;
    list.AddProgram(MeasuringServer());
    list.slots_.push_back(nullptr);
    auto constexpr Group = KORVELiniGroup::VindaraApplications;
    for (int i = 0;; ++i) {
        sv::String const key = KORVELConfig::ReadVindaraApplication(i);
        if (key.IsEmpty()) return list;
        list.AddProgram(sv::DirEntry(KORVELConfig::ReadKORVELKey(Group, key)));
    }
}

void ApplicationList::AddProgram(sv::DirEntry program) {
    sv::String const directory = program.GetPath().GetFull();
    program.CutExtension();
    Add(directory, program.GetName());
}

int ApplicationList::Add(sv::String const& path, sv::String const& name) {
    slots_.push_back(std::make_unique<Application>(Application{path, name}));
    return Count();
}

bool ApplicationList::Empty(int number) {
    if (number < 0 || number >= Count()) return false;
    slots_[static_cast<std::size_t>(number)].reset();
    return true;
}

int ApplicationList::Find(sv::String const& name) const noexcept {
    auto const slot = std::ranges::find_if(slots_, [&](auto const& application) {
        return application != nullptr && application->name.EqualsIgnoreCase(name);
    });
    return slot == slots_.end() ? -1 : static_cast<int>(slot - slots_.begin());
}

ApplicationList::Application* ApplicationList::Slot(unsigned number) const noexcept {
    return number < slots_.size() ? slots_[number].get() : nullptr;
}

sv::String* ApplicationList::Name(unsigned number) const noexcept {
    Application* const slot = Slot(number);
    return slot == nullptr ? nullptr : &slot->name;
}

sv::String* ApplicationList::Path(unsigned number) const noexcept {
    Application* const slot = Slot(number);
    return slot == nullptr ? nullptr : &slot->path;
}

}  // namespace kv::detail
