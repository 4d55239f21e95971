#include "SV/core/Link.h"

#include <gtest/gtest.h>

namespace sv::test {

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

}  // namespace sv::test
