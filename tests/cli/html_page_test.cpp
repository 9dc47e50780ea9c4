// The page of an explanation: nothing of the screen is markup, and every value is marked where it was read.
#include "cli/explain/html_page.h"
#include "vantro/screen_lines.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

std::string pageOf(TextView display) {
    Explanation explanation;
    parseProfile(joinLines(display).screen, explanation);
    return htmlPage(explanation, nullptr, "A <title>");
}

TEST(HtmlPage, NothingOfTheScreenIsMarkup) {
    const std::string page = pageOf(
        u"PDR/ABC123\n------- PRIORITY\n   1 PPR/ </script><b>&\"'</b>\n------- PROFILE NOTES\nEND OF DISPLAY\n");
    EXPECT_EQ(page.find("</script><b>"), std::string::npos);
    EXPECT_NE(page.find("&lt;/script&gt;&lt;b&gt;&amp;&quot;&#39;&lt;/b&gt;"), std::string::npos);
    EXPECT_NE(page.find("<title>A &lt;title&gt;</title>"), std::string::npos);
}

}  // namespace
}  // namespace vantro
