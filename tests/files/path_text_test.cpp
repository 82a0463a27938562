// Typed directories in every shape a hand gives them.
#include "files/path_text.h"

#include <gtest/gtest.h>

TEST(PathText, TypedDirectories) {
    const struct {
        std::string typed;
        std::string normalized;  // empty: refused
    } cases[] = {
        {"c:/music/", "c:\\music\\"},
        {"c:\\music", "c:\\music\\"},
        {"c:music", "c:\\music\\"},
        {"cx\\media", "c:\\media\\"},
        {"c", "c:\\"},
        {"c:", "c:\\"},
        {"c:\\", "c:\\"},
        {"c:/a\\b/C", "c:\\a\\b\\C\\"},
        {"c://music", ""},
        {"c:\\a\\\\b", ""},
        {"c:\\a\\/", ""},
        {"C:\\music", ""},
        {"\\\\server\\share", ""},
        {"", ""},
        {" c:\\", ""},
        {"1:\\", ""},
        {"c:\\" + std::string(255, 'a'), "c:\\" + std::string(255, 'a') + "\\"},
        {"c:\\" + std::string(256, 'a'), ""},
    };
    for (const auto& c : cases) {
        std::string normalized = "untouched";
        EXPECT_EQ(NormalizeTypedPath(c.typed, normalized), !c.normalized.empty()) << c.typed;
        EXPECT_EQ(normalized, c.normalized.empty() ? "untouched" : c.normalized) << c.typed;
    }
}
