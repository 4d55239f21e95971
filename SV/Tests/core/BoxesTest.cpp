#include "SV/core/Boxes.h"

#include <gtest/gtest.h>

namespace sv::test {

TEST(Boxes, DefaultAnswerFollowsTheStyle) {
    for (auto const& [style, answer] : {std::pair{WB_OK | WB_DEF_YES, BoxAnswer::Ok},
                                        {WB_OK_CANCEL, BoxAnswer::Ok},
                                        {WB_YES_NO, BoxAnswer::No},
                                        {WB_YES_NO | WB_DEF_YES, BoxAnswer::Yes}}) {
        EXPECT_EQ(MessBox(nullptr, style, "", "").DefaultAnswer(), answer) << style;
    }
}

TEST(Boxes, PrintWithoutADisplayAndGoToTheHandlerOtherwise) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(MessBox(nullptr, WB_YES_NO | WB_DEF_YES, "HQM", "100 %s?").Execute(), BoxAnswer::Yes);
    EXPECT_EQ(ErrorBox(nullptr, WB_OK, "two\nlines").Execute(), BoxAnswer::Ok);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "HQM: 100 %s?\ntwo\nlines\n");

    BoxHandler const before = SetBoxHandler([](MessBox const& box) {
        EXPECT_EQ(box.GetKind(), BoxKind::Info);
        EXPECT_EQ(box.GetText(), "text");
        return BoxAnswer::Cancel;
    });
    EXPECT_EQ(InfoBox(nullptr, "text").Execute(), BoxAnswer::Cancel);
    EXPECT_TRUE(SetBoxHandler(before)) << "the handler comes back";
}

}  // namespace sv::test
