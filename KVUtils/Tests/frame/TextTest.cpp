#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

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
    EXPECT_EQ(TextSegment("A")[2], "b0") << "past its end a group runs on into the next";
}

TEST_F(TextTest, WhatIsNotThere) {
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
    EXPECT_EQ(Text::GetGroupNr("a"), static_cast<unsigned>(-1)) << "exactly that name";
    EXPECT_EQ(TextSegment("a")[0], "");
}

TEST_F(TextTest, BoxesInTheMessageLanguage) {
    std::string groups;
    for (int i = 0; i < 200; ++i) groups += "{G}\n";
    struct Row {
        std::string content;
        int language;
        sv::BoxKind kind;
        std::string text;  // behind the file's name
    };
    Row const rows[] = {
        {"{G}\n[a\n", 1, sv::BoxKind::Message, "missing ] in text group G\n\ncontinue?"},
        {"{G}\n[a\n", 49, sv::BoxKind::Message, "Fehlendes Zeichen ] in Textgruppe G\n\nweiterfahren?"},
        {"{G}\n[a\n", 33, sv::BoxKind::Message, "missing ] in text group G\n\ncontinue?"},
        {groups, 1, sv::BoxKind::Error, "more then 200 text groups"},
        {groups, 49, sv::BoxKind::Error, "Mehr als 200 Textgruppen"},
        {"", 1, sv::BoxKind::Error, "unable to open text file"},
        {"", 49, sv::BoxKind::Error,
         "Es ist nicht m\xF6glich die Textdatei zu \xF6"
         "ffnen"},
    };
    for (Row const& row : rows) {
        std::string const name = PathOf("app") + std::to_string(row.language) + ".lng";
        if (row.content.empty())
            std::filesystem::remove(name);
        else
            tests::PutBytes(name, row.content);
        BoxScript const boxes;
        Text::LoadText(PathOf("app"), row.language);
        std::string const title = row.language == 49 ? "Fehler in Textdatei '" : "error in text file '";
        sv::WinBits const style = row.kind == sv::BoxKind::Message ? 64 : 16;
        std::vector<SeenBox> const expected = {{row.kind, style, nullptr, title + name + "'\n" + row.text}};
        EXPECT_EQ(boxes.seen, expected);
        Text::FreeResources();
    }
}

TEST_F(TextTest, AFileThatStopsInTheMiddleIsAGeneralError) {
    BoxScript const boxes;
    Text::LoadText(PathOf("."));  // a directory: what opens one cannot read it
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_TRUE(boxes.seen[0].text.ends_with("'\ngeneral error") ||
                boxes.seen[0].text.ends_with("'\nunable to open text file"));
}

TEST_F(TextTest, AFaultKeepsTheTextsOut) {
    std::string const broken = Write("broken.lng", "{A}\n[a\n[b]\n[c]\n[d\n");
    struct Row {
        sv::BoxAnswer answer;
        std::size_t boxes;
        unsigned long counted;
    };
    static constexpr Row rows[] = {{sv::BoxAnswer::Yes, 2, 2}, {sv::BoxAnswer::No, 1, 0}};
    for (Row const& row : rows) {
        BoxScript const boxes{row.answer, row.answer};
        Text::LoadText(broken);
        EXPECT_EQ(boxes.seen.size(), row.boxes);
        EXPECT_EQ(Text::GetGroupNr("A"), 0U) << "what was counted stays counted";
        EXPECT_EQ(Text::GetText(0, 0), "");
        // The next file's texts are stored from the first place on, and looked for behind what was counted.
        Text::LoadText(Write("good.lng", "{B}\n[0]\n[1]\n[2]\n"));
        EXPECT_EQ(Text::GetText(0, 0), "0");
        EXPECT_EQ(TextSegment("B")[0], row.counted == 2 ? "2" : "0");
        Text::FreeResources();
    }
}

TEST_F(TextTest, WithoutTheLastLineEndTheLastTextHasNoPlace) {
    BoxScript const boxes;
    Text::LoadText(Write("a.lng", "{A}\n[a0]\n{B}\n[b0]\n[b1]"));
    EXPECT_TRUE(boxes.seen.empty());
    EXPECT_EQ(Text::GetEntryCount(0), 1U);
    EXPECT_EQ(Text::GetEntryCount(1), 0U) << "its end is not known";
    EXPECT_EQ(Text::GetText(1, 0), "b0");
    EXPECT_EQ(Text::GetText(1, 1), "");
}

TEST_F(TextTest, FreeResourcesStartsAnew) {
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
    struct Group {
        char const* name;
        unsigned long count;  // what programs read by number
    };
    struct Row {
        char const* stem;
        std::vector<Group> groups;
    };
    std::vector<Row> const rows = {
        {"colourdesk",
         {{"FarbTexte", 16},
          {"KOBitmapButtonBar", 24},
          {"MyPrinter", 1},
          {"AbortDialog", 3},
          {"ChartReport", 24}}},
        {"hqmserv", {{"HQMServer", 4}}},
    };
    for (auto const& [stem, groups] : rows) {
        std::vector<std::string> first;
        for (int const language : {1, 49}) {
            BoxScript const boxes;
            Text::LoadText(KV_TEXTS "/" + std::string(stem), language);
            ASSERT_TRUE(boxes.seen.empty()) << boxes.seen[0].text;
            std::vector<std::string> texts;
            for (auto const& [name, count] : groups) {
                unsigned const group = Text::GetGroupNr(name);
                EXPECT_EQ(Text::GetEntryCount(group), count) << name << " in " << language;
                for (unsigned long i = 0; i < count; ++i) {
                    EXPECT_NE(Text::GetText(group, i), "") << name << " " << i << " in " << language;
                    texts.emplace_back(Text::GetText(group, i).View());
                }
            }
            EXPECT_EQ(Text::GetEntryCount(static_cast<unsigned>(groups.size())), 0U) << "no further group";
            EXPECT_NE(texts, first);
            first = texts;
            Text::FreeResources();
        }
    }
}

}  // namespace

}  // namespace kv::test
