#include "program/json.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using program::Json;

std::string whyRefused(const std::string& text) {
    try {
        program::parseJson(text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

std::string nested(std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
}

TEST(Json, SaysInOneLineWhyATextIsNone) {
    const struct {
        std::string text;
        const char* told;
    } cases[] = {
        {"", "line 1"},
        {"[\n1,\n?]", "line 3"},
        {"[\"\xFF\"]", "line 1"},
        {"[1e999]", "too large"},
        {nested(100), "deeper than 64"},
        {std::string(200000, '['), "deeper than 64"},
        {std::string(40, '[') + std::string(60, '{'), "deeper than 64"},
        {"[\"\\\"\"" + std::string(100, '['), "deeper than 64"},
    };
    for (const auto& [text, told] : cases) {
        const std::string why = whyRefused(text);
        EXPECT_NE(why.find(told), std::string::npos) << why;
        EXPECT_EQ(why.find('\n'), std::string::npos) << why;
        EXPECT_EQ(why.find("json.exception"), std::string::npos) << why;
    }
    EXPECT_EQ(whyRefused(nested(64)), "");
    EXPECT_EQ(whyRefused("[\"" + std::string(100, '[') + "\\\"" + std::string(100, '{') + "\"]"), "");
}

TEST(Json, WritesWhatDrivesATerminalAsEscapes) {
    const std::string text = "a\x1B[0m\x7F\u009B\u202E\u2066\u00E9\u20AC\U0001F600\n";
    const std::string written = program::jsonText(Json{{"t", text}});
    EXPECT_EQ(written, "{\"t\":\"a\\u001b[0m\\u007f\\u009b\\u202e\\u2066\u00E9\u20AC\U0001F600\\n\"}");
    EXPECT_EQ(program::parseJson(written)["t"], text);
    EXPECT_EQ(program::jsonText(Json{{"t", 1}}, 1), "{\n \"t\": 1\n}");
}

}  // namespace
