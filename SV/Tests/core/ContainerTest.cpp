#include "SV/core/Container.h"
#include "SV/core/Link.h"
#include "SV/core/ListBox.h"

#include <gtest/gtest.h>

#include <string>

namespace sv {
namespace {

class ContainerTest : public testing::Test {
  protected:
    void Fill(std::string_view names) {
        for (char const name : names) list_.Insert(At(name), Container::End);
    }
    void* At(char name) { return &letters_.at(static_cast<std::size_t>(name - 'a')); }
    /// The entries in order, the current one as a capital.
    std::string Entries() {
        std::string text;
        for (unsigned long i = 0; i < list_.Count(); ++i) {
            char const name = *static_cast<char*>(list_.GetObject(i));
            text += i == list_.GetCurPos() ? static_cast<char>(name - 'a' + 'A') : name;
        }
        return text;
    }

    Container list_;
    std::string letters_ = "abcdefgh";
};

TEST_F(ContainerTest, InsertionsKeepTheCursorOnItsEntry) {
    Fill("abc");
    list_.Seek(1UL);
    list_.Insert(At('d'), 0UL);
    EXPECT_EQ(Entries(), "daBc");
    list_.Insert(At('e'));  // before the current entry; becomes current
    EXPECT_EQ(Entries(), "daEbc");
    list_.Insert(At('f'), At('c'));
    list_.Insert(At('g'), At('h'));  // h is not in the list
    EXPECT_EQ(Entries(), "daEbfcg");
    EXPECT_EQ(list_.Replace(At('h'), At('b')), At('b'));
    EXPECT_EQ(list_.Replace(At('b')), At('e'));
    EXPECT_EQ(list_.Replace(At('a'), 7UL), nullptr);
    EXPECT_EQ(Entries(), "daBhfcg");
}

TEST_F(ContainerTest, RemovalsMoveTheCursorToTheNextOrLast) {
    EXPECT_EQ(list_.Remove(), nullptr);
    Fill("abcde");
    list_.Seek(2UL);
    EXPECT_EQ(list_.Remove(0UL), At('a'));
    EXPECT_EQ(list_.Remove(), At('c'));
    EXPECT_EQ(Entries(), "bDe");
    EXPECT_EQ(list_.Remove(At('e')), At('e'));
    EXPECT_EQ(list_.Remove(), At('d'));
    EXPECT_EQ(Entries(), "B");
    EXPECT_EQ(list_.Remove(At('e')), nullptr);
    EXPECT_EQ(list_.Remove(), At('b'));
    EXPECT_EQ(list_.GetCurObject(), nullptr);
}

TEST_F(ContainerTest, CursorStopsAtTheEnds) {
    EXPECT_EQ(list_.First(), nullptr);
    EXPECT_EQ(list_.Last(), nullptr);
    Fill("abc");
    EXPECT_EQ(list_.Prev(), nullptr);
    EXPECT_EQ(list_.Next(), At('b'));
    EXPECT_EQ(list_.Last(), At('c'));
    EXPECT_EQ(list_.Next(), nullptr);
    EXPECT_EQ(list_.Prev(), At('b'));
    EXPECT_EQ(list_.Seek(At('h')), nullptr);
    EXPECT_EQ(list_.GetCurPos(), 1UL);
    EXPECT_EQ(list_.GetPos(At('h')), Container::End);
    list_.Clear();
    EXPECT_EQ(list_.Count() + list_.GetCurPos(), 0UL);
}

TEST(ListBox, KeepsOrderAndSelection) {
    ListBoxEntries box;
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);
    box.InsertEntry("English");
    box.InsertEntry("Suomi", 100);
    box.InsertEntry("Deutsch", 1);
    ASSERT_EQ(box.GetEntryCount(), 3);
    char const* const expected[] = {"English", "Deutsch", "Suomi", ""};
    for (unsigned short i = 0; i < 4; ++i) EXPECT_EQ(box.GetEntry(i), expected[i]);

    box.SelectEntryPos(1);
    box.InsertEntry("after", 2);
    EXPECT_EQ(box.GetSelectEntryPos(), 1);
    box.InsertEntry("at", 1);
    EXPECT_EQ(box.GetEntry(box.GetSelectEntryPos()), "Deutsch") << "a selection stays with its entry";
    box.SelectEntryPos(5);
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);
    box.SelectEntryPos(0);
    box.Clear();
    EXPECT_EQ(box.GetEntryCount(), 0);
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);

    for (int i = 0; i < 70000; ++i) box.InsertEntry("x");
    box.InsertEntry("last");
    EXPECT_EQ(box.GetEntryCount(), 70001) << "more lines than 16 bits count";
    EXPECT_EQ(box.GetEntry(70000), "last");
    box.SelectEntryPos(70000);
    box.InsertEntry("first", 0);
    EXPECT_EQ(box.GetSelectEntryPos(), 70001);
}

struct Unrelated {
    long unused = 0;
};
struct Counter {
    long Count(int* sender) { return calls += *sender; }
    long Other(int*) { return -1; }
    long calls = 0;
};
struct Panel : Unrelated, Counter {};

TEST(Link, CallsItsHandlerOnItsObject) {
    Panel panel, other;
    int sender = 5;
    Link const link = Link::To<&Counter::Count>(panel);
    EXPECT_EQ(link.Call(&sender) + link.Call(&sender), 15);
    EXPECT_EQ(panel.calls, 10);
    EXPECT_EQ(panel.unused, 0);
    EXPECT_EQ(link, Link::To<&Counter::Count>(panel));
    EXPECT_NE(link, Link::To<&Counter::Count>(other));
    EXPECT_NE(link, Link::To<&Counter::Other>(panel));
    EXPECT_FALSE(Link().IsSet());
    EXPECT_EQ(Link().Call(nullptr), 0);
}

}  // namespace
}  // namespace sv
