#include "plugin-core/panel/page/PageFiles.h"

#include <gtest/gtest.h>

#include <string_view>

using plugincore::FindPageFile;
using plugincore::PageFile;

namespace {

bool Contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

}  // namespace

TEST(PageFiles, TheRootIsThePage)
{
    const PageFile* const page = FindPageFile("/");
    ASSERT_NE(nullptr, page);
    EXPECT_EQ("text/html; charset=utf-8", page->contentType);
    EXPECT_EQ(0U, page->body.find("<!DOCTYPE html>"));
    EXPECT_TRUE(Contains(page->body, "</html>"));
}

// The Content-Security-Policy forbids them, so that the page would lack what they do.
TEST(PageFiles, ThePageHasNoInlineScriptsAndStyles)
{
    const std::string_view body = FindPageFile("/")->body;
    for (const char* const forbidden :
         {"<script>", "<style", " style=", " onclick=", " onload=", "javascript:", "data:"}) {
        EXPECT_FALSE(Contains(body, forbidden)) << forbidden;
    }
}

TEST(PageFiles, EachFileHasItsType)
{
    ASSERT_NE(nullptr, FindPageFile("/panel.js"));
    EXPECT_EQ("text/javascript; charset=utf-8", FindPageFile("/panel.js")->contentType);
    ASSERT_NE(nullptr, FindPageFile("/panel.css"));
    EXPECT_EQ("text/css; charset=utf-8", FindPageFile("/panel.css")->contentType);
}

TEST(PageFiles, EachScriptThatIsImportedIsThere)
{
    const std::string_view script = FindPageFile("/panel.js")->body;
    const std::string_view from = " from \"";
    int count = 0;
    for (size_t at = script.find(from); at != std::string_view::npos; at = script.find(from, at)) {
        at += from.size();
        const std::string_view path = script.substr(at, script.find('"', at) - at);
        EXPECT_NE(nullptr, FindPageFile(path)) << path;
        ++count;
    }
    EXPECT_GE(count, 3);
}

TEST(PageFiles, OtherPathsAreNotFound)
{
    for (const char* const path : {"", "//", "/index.html", "/PANEL.JS", "/panel.js/", "panel.js",
                                   "/../panel.js", "/PageFiles.h"}) {
        EXPECT_EQ(nullptr, FindPageFile(path)) << path;
    }
}
