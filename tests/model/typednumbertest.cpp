#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "core/typednumber.h"

namespace {
struct Case {
    const char* text;
    std::optional<double> level;        // wild level: whole text, rounded down
    std::int32_t warp;                  // warp target: leading number, half to even, else 0
    std::optional<std::int32_t> event;  // event field: whole text, half to even, 32 bits
};
}  // namespace

TEST(TypedNumber, TheThreeRulesSideBySide) {
    const std::optional<double> none;
    const std::optional<std::int32_t> keep;
    const double inf = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        {"12.9", 12, 13, 13},
        {" 7 ", 7, 7, 7},
        {"-0.5", -1, 0, 0},  // -0.5 rounds to -0, the even neighbour
        {"2.5", 2, 2, 2},
        {"-2.5", -3, -2, -2},
        {"12abc", none, 12, keep},
        {"", none, 0, keep},
        {"2147483647", 2147483647.0, 2147483647, 2147483647},
        {"2147483648", 2147483648.0, 2147483647, keep},
        {"-2147483648.4", -2147483649.0, -2147483647 - 1, -2147483647 - 1},
        {"1e999", inf, 2147483647, keep},
        {"inf", none, 0, keep},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const QString text = QString::fromLatin1(c.text);
        EXPECT_EQ(TypedNumber::Level(text), c.level);
        EXPECT_EQ(TypedNumber::WarpTarget(text), c.warp);
        EXPECT_EQ(TypedNumber::EventField(text), c.event);
    }
}
