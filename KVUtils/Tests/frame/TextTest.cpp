#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Source/frame/TextAry.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "KVUtils/Source/frame/detail/TextFile.h"
#include "KVUtils/Tests/data/CaseTable.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kv::test {
namespace {

using TextTest = FrameTest;

TEST_F(TextTest, FilesMakeOneTable) {
    Text::LoadText(Write("a.lng", "{A}\n[a0]\n[a1]\n{B}\n[b0]\n"));
    Text::LoadText(Write("c49.lng", "{C}\n[c0]\n"));
    EXPECT_EQ(Text::GetGroupNr("C"), 2U);
    EXPECT_EQ(Text::GetText(2, 0), "c0");
    EXPECT_EQ(Text::GetText(0, 1), "a1");
    EXPECT_EQ(Text::GetEntryCount(0), 2U);
    EXPECT_EQ(Text::GetEntryCount(2), 1U);
    EXPECT_EQ(TextSegment("B")[0], "b0");
    EXPECT_EQ(TextSegment("A")[2], "b0") << "past the end of its group";
}

TEST_F(TextTest, AMissingTextIsEmpty) {
    EXPECT_EQ(Text::GetText(0, 0), "");
    EXPECT_EQ(Text::GetEntryCount(0), 0U);
    EXPECT_EQ(Text::GetGroupNr("A"), static_cast<unsigned>(-1));
    Text::LoadText(Write("a.lng", "{A}\n[a0]\n{B}\n[b0]\n"));
    for (unsigned const group : {2U, 3U, 200U, 201U, static_cast<unsigned>(-1)}) {
        EXPECT_EQ(Text::GetText(group, 0), "") << group;
        EXPECT_EQ(Text::GetEntryCount(group), 0U) << group;
    }
    EXPECT_EQ(Text::GetText(1, 1), "");
    EXPECT_EQ(Text::GetText(1, static_cast<unsigned long>(-1)), "");
    EXPECT_EQ(Text::GetGroupNr("a"), static_cast<unsigned>(-1)) << "case-sensitive";
    EXPECT_EQ(TextSegment("a")[0], "");
}

TEST_F(TextTest, BoxesInTheMessageLanguage) {
    std::string groups;
    for (int i = 0; i < 200; ++i) groups += "{G}\n";
    struct Row {
        std::string content;
        int language;
        sv::BoxKind kind;
        std::string text;
    };
    Row const rows[] = {
        {"{G}\n[a\n", 1, sv::BoxKind::Message, "missing ] in text group G\n\ncontinue?"},
        {"{G}\n[a\n", 49, sv::BoxKind::Message, "Fehlendes Zeichen ] in Textgruppe G\n\nweiterfahren?"},
        {"{G}\n[a\n", 33, sv::BoxKind::Message, "missing ] in text group G\n\ncontinue?"},
        {groups, 1, sv::BoxKind::Error, "more then 200 text groups"},
        {groups, 49, sv::BoxKind::Error, "Mehr als 200 Textgruppen"},
        {"", 1, sv::BoxKind::Error, "unable to open text file"},
        {"", 49, sv::BoxKind::Error, "Es ist nicht m\xF6glich die Textdatei zu \xF6\x66\x66nen"},
    };
    for (Row const& row : rows) {
        std::string const name = PathOf("app") + std::to_string(row.language) + ".lng";
        std::filesystem::remove(name);
        if (!row.content.empty()) tests::PutBytes(name, row.content);
        BoxScript const boxes;
        Text::LoadText(PathOf("app"), row.language);
        std::string const title = row.language == 49 ? "Fehler in Textdatei '" : "error in text file '";
        sv::WinBits const style = row.kind == sv::BoxKind::Message ? 64 : 16;
        EXPECT_EQ(boxes.seen,
                  std::vector<SeenBox>({{row.kind, style, nullptr, title + name + "'\n" + row.text}}));
        Text::FreeResources();
    }
}

TEST_F(TextTest, AFileThatCannotBeReadIsAnError) {
    BoxScript const boxes;
    Text::LoadText(PathOf("."));  // some systems open a directory, none reads it
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_TRUE(boxes.seen[0].text.ends_with("'\ngeneral error") ||
                boxes.seen[0].text.ends_with("'\nunable to open text file"));
}

TEST_F(TextTest, AFileWithAnErrorAddsNoTexts) {
    std::string const broken = Write("broken.lng", "{A}\n[a\n[b]\n[c]\n[d\n");
    for (auto const& [answer, boxCount, counted] :
         {std::tuple(sv::BoxAnswer::Yes, 2U, 2), {sv::BoxAnswer::No, 1U, 0}}) {
        BoxScript const boxes{answer, answer};
        Text::LoadText(broken);
        EXPECT_EQ(boxes.seen.size(), boxCount);
        EXPECT_EQ(Text::GetGroupNr("A"), 0U) << "what was counted stays counted";
        EXPECT_EQ(Text::GetText(0, 0), "");
        // The texts of the next file are stored from the first entry, but found after what was counted.
        Text::LoadText(Write("good.lng", "{B}\n[0]\n[1]\n[2]\n"));
        EXPECT_EQ(Text::GetText(0, 0), "0");
        EXPECT_EQ(TextSegment("B")[0], counted == 2 ? "2" : "0");
        Text::FreeResources();
    }
    BoxScript const boxes;
    Text::LoadText(Write("a.lng", "{A}\n[a0]\n{B}\n[b0]\n[b1]"));
    EXPECT_TRUE(boxes.seen.empty());
    EXPECT_EQ(Text::GetEntryCount(0), 1U);
    EXPECT_EQ(Text::GetEntryCount(1), 0U) << "without the last line end the group has no end";
    EXPECT_EQ(Text::GetText(1, 0), "b0");
    EXPECT_EQ(Text::GetText(1, 1), "");
}

TEST_F(TextTest, FreeResourcesResetsEverything) {
    BoxScript const boxes;
    Text::LoadText(PathOf("missing"), 49);
    Text::LoadText(Write("a.lng", "{A}\n[a0]\n"));
    Text::FreeResources();
    EXPECT_EQ(Text::GetGroupNr("A"), static_cast<unsigned>(-1));
    Text::LoadText(PathOf("missing.lng"));
    ASSERT_EQ(boxes.seen.size(), 2U);
    EXPECT_TRUE(boxes.seen[1].text.starts_with("error in text file '"));
    Text::LoadText(Write("b.lng", "{B}\n[b0]\n"));
    EXPECT_EQ(Text::GetText(0, 0), "b0");
}

TEST_F(TextTest, TheTextsOfTheSuiteAgreeBetweenTheLanguages) {
    // The number of texts that the programs read, at least.
    std::pair<char const*, unsigned long> const groups[] = {
        {"FarbTexte", 16},      {"KOBitmapButtonBar", 24}, {"MyPrinter", 1},
        {"AbortDialog", 3},     {"ColourDesk", 27},        {"ColourDeskColumns", 9},
        {"ColourDeskMenu", 18}, {"ColourDeskHelp", 15},    {"ColourDeskQuestions", 26},
        {"ChartReport", 24},    {"HQMServer", 4}};
    std::vector<unsigned long> counts;
    std::string english;
    for (int const language : {1, 49}) {
        BoxScript const boxes;
        Text::LoadText(KV_TEXTS "/colourdesk", language);
        Text::LoadText(KV_TEXTS "/hqmserv", language);
        ASSERT_TRUE(boxes.seen.empty()) << boxes.seen[0].text;
        std::string texts;
        for (std::size_t i = 0; i < std::size(groups); ++i) {
            unsigned const group = Text::GetGroupNr(groups[i].first);
            unsigned long const count = Text::GetEntryCount(group);
            EXPECT_GE(count, groups[i].second) << groups[i].first;
            if (language == 1) counts.push_back(count);
            EXPECT_EQ(count, counts[i]) << groups[i].first;
            for (unsigned long text = 0; text < count; ++text) {
                EXPECT_NE(Text::GetText(group, text), "") << groups[i].first << text << " in " << language;
                texts += Text::GetText(group, text).View();
            }
        }
        EXPECT_NE(texts, english);
        english = texts;

        std::string letters;
        unsigned const buttons = Text::GetGroupNr("KOBitmapButtonBar");
        for (unsigned long i = 0; i < Text::GetEntryCount(buttons); ++i) {
            std::string const text(Text::GetText(buttons, i).View());
            if (i == 21) continue;  // not the text of a button
            ASSERT_LT(text.find('~') + 1, text.size()) << text;
            char const letter = static_cast<char>(text[text.find('~') + 1] | 0x20);
            EXPECT_TRUE(letter >= 'a' && letter <= 'z') << text << ": not on every keyboard";
            EXPECT_EQ(letters.find(letter), std::string::npos) << text << " in " << language;
            letters += letter;
        }
        Text::FreeResources();
    }
}

using detail::TextFault;
using detail::TextGroups;

/// What both passes make of a file, as text. A fault is its missing character and the group.
struct Passes {
    std::string names, starts, texts, faults;
    TextGroups groups;
};

void Add(std::string& list, std::string const& entry, bool& isFirst) {
    list += (std::exchange(isFirst, false) ? "" : ",") + entry;
}

Passes BothPasses(std::string_view file, bool goOn) {
    Passes result;
    bool isFirst = true;
    bool const isFaultless =
        CountTexts(file, result.groups, [&](TextFault fault, char missing, sv::String const& group) {
            std::string const kind = fault == TextFault::TooManyGroups ? "groups" : std::string(1, missing);
            Add(result.faults, kind + " " + std::string(group.View()), isFirst);
            return goOn;
        });
    EXPECT_EQ(isFaultless, result.faults.empty());
    isFirst = true;
    detail::ReadTexts(file, [&](std::string_view text) { Add(result.texts, std::string(text), isFirst); });
    isFirst = true;
    for (sv::String const& name : result.groups.names) Add(result.names, std::string(name.View()), isFirst);
    isFirst = true;
    for (unsigned long const start : result.groups.starts) Add(result.starts, std::to_string(start), isFirst);
    return result;
}

TEST(TextFileTest, PassesAsTheTableSays) {
    for (auto const& [file, goOn, names, starts, count, texts, faults] :
         CaseTable<7>("frame/text-files.tsv")) {
        SCOPED_TRACE(file);
        Passes const passes = BothPasses(file, goOn == "y");
        EXPECT_EQ(passes.names, names);
        EXPECT_EQ(passes.starts, starts);
        EXPECT_EQ(std::to_string(passes.groups.entryCount), count);
        EXPECT_EQ(passes.texts, texts);
        EXPECT_EQ(passes.faults, faults);
    }
}

TEST(TextFileTest, TooManyGroups) {
    // The end of the file needs a place after the last group, too.
    for (auto const& [count, names, faults] :
         {std::tuple(199, 199U, ""), {200, 200U, "groups "}, {202, 200U, "groups ,groups ,groups "}}) {
        std::string file;
        for (int i = 0; i < count; ++i) file += "{" + std::to_string(i) + "}\n[t]\n";
        Passes const passes = BothPasses(file, false);
        EXPECT_EQ(passes.faults, faults) << count;
        EXPECT_EQ(passes.groups.names.size(), names);
        EXPECT_EQ(passes.groups.entryCount, static_cast<unsigned long>(count));
        EXPECT_LE(passes.groups.starts.size(), 200U);
    }
}

TEST(TextAryTest, EntriesAndEquality) {
    sv::String a("a");
    sv::String b("b");
    sv::String otherA("a");
    TextAry left;
    TextAry right;
    EXPECT_EQ(left.Put(0, &a), &a) << "no such entry yet: the text is returned";
    left.ChangeSize(3);
    EXPECT_TRUE(left != right);
    right.ChangeSize(3);
    EXPECT_TRUE(left == right);
    EXPECT_EQ(left.Put(1, &b), nullptr);
    EXPECT_EQ(left.Put(1, &a), &b);
    EXPECT_EQ(left.Get(1), &a);
    EXPECT_EQ(left.Get(2), nullptr);
    EXPECT_EQ(left.Get(3), nullptr);
    EXPECT_TRUE(left != right) << "a text and none";
    right.Put(1, &otherA);
    EXPECT_TRUE(left == right);
    right.Put(1, &b);
    EXPECT_TRUE(left != right);
    left.ChangeSize(2);
    EXPECT_EQ(left.Get(1), &a);
    sv::Container& container = left;
    container.Insert(&b, sv::Container::End);
    EXPECT_EQ(container.Last(), &b) << "it is a container";
    EXPECT_EQ(left.Get(2), &b);
    left.Clear();
    EXPECT_EQ(left.Count(), 0U);
}

}  // namespace
}  // namespace kv::test
