#include "foundation/text_format.h"

#include <gtest/gtest.h>

namespace zelkova {
namespace {

using Tokens = std::vector<std::string>;

TEST(TextFormat, TakesWhatTheItemsAllow) {
    const struct {
        const char *format, *text;
        Tokens tokens;
    } cases[] = {
        {"%04d/%02d/%02d", "2011/02/03", {"2011", "02", "03"}},
        {"%d.%d.%d", "1.20.3", {"1", "20", "3"}},
        {"%d", " -5", {" -5"}},
        {"%3d%d", "12345", {"123", "45"}},
        {"%2-4d-", "1234-", {"1234"}},
        {"%+3d", "7", {"7"}},
        {"%-3dx", "777x", {"777"}},
        {"%#d|%#s", "|", {"", ""}},
        {"%s=%s", "key=a=b", {"key", "a=b"}},
        {"%s年%02d月", "平成年12月", {"平成", "12"}},
        {"%o", "  -18", {"  -18"}},
        {"%d%%", "100%", {"100"}},
    };
    for (const auto& c : cases) {
        Tokens tokens;
        EXPECT_TRUE(scanFormat(c.format, c.text, tokens)) << c.format << " " << c.text;
        EXPECT_EQ(tokens, c.tokens) << c.format << " " << c.text;
    }
}

TEST(TextFormat, RefusesTheRest) {
    const struct {
        const char *format, *text;
    } cases[] = {
        {"%04d/%02d", "201/02"},
        {"%04d/%02d", "20111/02"},
        {"%02d", "1"},
        {"%d", ""},
        {"%s", ""},
        {"%d", "x"},
        {"%d", "-"},
        {"%d", "1x"},
        {"a%d", "b1"},
        {"%0d", "1"},
        {"%00d", "1"},
        {"%4-2d", "123"},
        {"%3-4d", "12"},
        {"%+3d", "1234"},
        {"%", "1"},
        {"%q", "1"},
        {"年", "月"},
        {"%o", "x"},
        {"%99999999999999999999d", "x"},
    };
    for (const auto& c : cases) {
        Tokens tokens = {"stale"};
        EXPECT_FALSE(scanFormat(c.format, c.text, tokens)) << c.format << " " << c.text;
        EXPECT_TRUE(tokens.empty());
        EXPECT_FALSE(matchFormat(c.format, c.text));
    }
}

} // namespace
} // namespace zelkova
