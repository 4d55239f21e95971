#include "SV/core/Mnemonic.h"
#include "SV/core/detail/TextPage.h"

#include <gtest/gtest.h>

namespace sv {
namespace {

TEST(Mnemonic, IsTheFirstMarkThatIsACharacter) {
    struct Row {
        TextPage page;
        char const* text;
        std::size_t place;
        char const* shown;
    };
    static constexpr Row rows[] = {
        {TextPage::Western, "Save ~as", 5, "Save as"},
        {TextPage::Western, "~~", 0, "~"},
        {TextPage::Western, "plain", String::NotFound, "plain"},
        {TextPage::Western, "\x83~", 1, "\x83"},
        {TextPage::Japanese, "\x83~(~O)", 3, "\x83~(O)"},  // a letter whose second byte is the mark's
        {TextPage::Japanese, "\xB1~O", 1, "\xB1O"},        // of one byte
        {TextPage::Chinese, "\xB1~~O", 2, "\xB1~O"},
        {TextPage::Chinese, "\xB1", String::NotFound, "\xB1"},
    };
    for (Row const& row : rows) {
        ChangeTextPage(row.page);
        EXPECT_EQ(FindMnemonic(row.text), row.place) << row.text;
        EXPECT_EQ(WithoutMnemonic(row.text), row.shown);
    }
    ChangeTextPage(TextPage::Western);
}

}  // namespace
}  // namespace sv
