#include "KVUtils/Source/messaging/DDE.h"
#include "KVUtils/Tests/messaging/MessagingSupport.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

namespace kv::messagingtest {
namespace {

namespace fs = std::filesystem;

std::optional<sv::String> storedDirectory;

/// Writes a script that notes in `notes` how it was started.
void WriteScript(fs::path const& script, fs::path const& notes) {
    std::ofstream(script) << "#!/bin/sh\necho \"$@\" > '" << notes.string() << ".new'\nmv '" << notes.string()
                          << ".new' '" << notes.string() << "'\n";
    fs::permissions(script, fs::perms::owner_all);
}

TEST(DDEStartTest, StartsProgramsOfAnyNameFromAnyStoredDirectory) {
    tests::RuntimeDirectory const desktop;
    tests::TemporaryDirectory const files;
    std::string const path = std::getenv("PATH");
    setenv("PATH", (files.Path().string() + ":" + path).c_str(), 1);
    DDE dde("BENCH", {.directoryOf = [](sv::String const&) { return storedDirectory; }});
    struct {
        char const* program;
        char const* file;
        std::optional<sv::String> directory;
    } const rows[] = {
        {"PLAIN", "PLAIN", sv::String(files.Path().string())},
        {"Pr\xFC"
         "fger\xE4t",
         "Pr\u00FCfger\u00E4t", sv::String(files.Path().string())},
        {"Ink Desk", "Ink Desk", sv::String(files.Path().string())},
        {"EMPTY", "EMPTY", sv::String()},
        {"GONE", "GONE", sv::String((files.Path() / "gone").string())},
        {"UNKNOWN", "UNKNOWN", std::nullopt},
    };
    for (auto const& row : rows) {
        fs::path const notes = files.Path() / "notes";
        fs::remove(notes);
        WriteScript(files.Path() / row.file, notes);
        storedDirectory = row.directory;
        EXPECT_EQ(dde.Send(row.program, "LOCK", "x", 1), 0);
        EXPECT_TRUE(PumpUntil([&] { return fs::exists(notes); }, std::chrono::seconds(5))) << row.program;
        std::string line;
        std::ifstream stream(notes);
        std::getline(stream, line);
        EXPECT_EQ(line, "-S -LNG 1") << row.program;
    }
    setenv("PATH", path.c_str(), 1);
}

}  // namespace
}  // namespace kv::messagingtest
