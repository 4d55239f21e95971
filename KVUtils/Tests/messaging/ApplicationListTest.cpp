#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/messaging/detail/ApplicationList.h"
#include "KVUtils/Tests/messaging/MessagingSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kv::messagingtest {
namespace {

using detail::ApplicationList;

/// Slots as "directory|name", with "-" for an empty one. Separators are written as "/".
std::vector<std::string> Slots(ApplicationList const& list) {
    std::vector<std::string> slots;
    for (unsigned i = 0; i < static_cast<unsigned>(list.Count()); ++i) {
        sv::String const* const name = list.Name(i);
        std::string slot = name == nullptr ? "-" : std::string((*list.Path(i) + "|" + *name).View());
        std::ranges::replace(slot, '\\', '/');
        slots.push_back(slot);
    }
    return slots;
}

TEST(ApplicationList, TakesTheServerAndTheApplicationsFromTheSuitesFile) {
    struct {
        char const* ini;
        std::vector<std::string> slots;
    } const rows[] = {
        {"; nothing\n", {"/suite/BIN|HQMSERV", "-"}},
        {"[HQM-Server]\nPath=\n", {"/suite/BIN|HQMSERV", "-"}},
        {"[HQM-Server]\nPath=/opt/hqm/ZephyroServer.exe\n", {"/opt/hqm|ZephyroServer", "-"}},
        {"[HQM-Server]\nPath=/opt/hqm/SERVER\n"
         "[Vindara Applications]\nColour Desk=/opt/desk/DESK.EXE\nPress=/opt/press.2/PRESS\nNowhere=\n",
         {"/opt/hqm|SERVER", "-", "/opt/desk|DESK", "/opt/press.2|PRESS", "|"}},
    };
    TemporaryDirectory const files;
    AppDir::CreateAppDir("/suite/BIN/DESK.EXE");
    int number = 0;
    for (auto const& row : rows) {
        KORVELConfig::CreateKORVELConfig(files.File(std::to_string(number++) + ".INI", row.ini));
        EXPECT_EQ(Slots(ApplicationList::OfTheSuite()), row.slots) << row.ini;
    }
    Discard(KORVELConfig::Instance());
    Discard(AppDir::Instance());
}

TEST(ApplicationList, KeepsTheNumbersOfSlots) {
    ApplicationList list;
    EXPECT_EQ(list.Add("/a", "HQMSERV"), 1);
    EXPECT_EQ(list.Add("/b", "DESK"), 2);
    sv::String const* const name = list.Name(1);
    for (int i = 0; i < 100; ++i) list.Add("/c", "desk");
    EXPECT_EQ(list.Name(1), name);
    EXPECT_EQ(list.Find("hqmserv"), 0);
    EXPECT_EQ(list.Find("Desk"), 1);
    EXPECT_EQ(list.Find("PRESS"), -1);

    EXPECT_TRUE(list.Empty(1));
    EXPECT_EQ(list.Name(1), nullptr);
    EXPECT_EQ(list.Path(1), nullptr);
    EXPECT_EQ(list.Find("DESK"), 2);
    EXPECT_EQ(list.Find(""), -1);
    EXPECT_EQ(list.Count(), 102);
    EXPECT_FALSE(list.Empty(-1));
    EXPECT_FALSE(list.Empty(102));
    EXPECT_EQ(list.Name(102), nullptr);
}

}  // namespace
}  // namespace kv::messagingtest
