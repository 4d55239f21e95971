#include "SV/core/Container.h"

#include <gtest/gtest.h>

#include <string>

namespace sv::test {

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

}  // namespace sv::test
