// sondrel report --html in a browser.
#include "tool_run.h"

#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

enum class Scheme { Dark, Light }; // Chromium's numbers

class PageTest : public test::ToolTest {
protected:
    [[nodiscard]] test::Outcome Browse(const std::string& file, Scheme scheme,
                                       const std::string& size) const {
        const test::Outcome run =
            Program("/usr/bin/env",
                    {"HOME=" + Path(""), "timeout", "120", "chromium-headless-shell", "--no-sandbox",
                     "--disable-gpu", "--disable-dev-shm-usage", "--disable-background-networking",
                     "--hide-scrollbars", "--user-data-dir=" + Path("browser"), "--enable-logging=stderr",
                     "--log-net-log=" + Path("net.json"), "--window-size=" + size,
                     "--blink-settings=preferredColorScheme=" + std::to_string(static_cast<int>(scheme)),
                     "--dump-dom", "file://" + file});
        EXPECT_EQ(run.status, 0) << "chromium-headless-shell (scripts/bootstrap.sh native): " << run.err;
        return run;
    }

    static void ExpectTidy(const json& layout) {
        EXPECT_EQ(layout["overlaps"], json::array());
        EXPECT_EQ(layout["overflows"], json::array());
        EXPECT_EQ(layout["tooWide"], 0);
    }

    /// The probe's result for a copy of the page that is allowed to run it.
    [[nodiscard]] json Probed(const std::string& file, Scheme scheme, const std::string& size) const {
        std::string page = ContentOf(file);
        const auto replace = [&](const std::string& what, const std::string& with) {
            const std::size_t at = page.find(what);
            ASSERT_NE(at, std::string::npos) << what;
            page.replace(at, what.size(), with);
        };
        replace("default-src 'none'", "default-src 'unsafe-inline'");
        replace("</body>", "<script>" + ContentOf(PAGE_PROBE) + "</script></body>");
        const std::string out = Browse(Write("probed.html", page), scheme, size).out;
        const std::size_t start = out.find("<title>") + 7;
        return json::parse(out.substr(start, out.find("</title>") - start), nullptr, false);
    }
};

TEST_F(PageTest, NeedsNoOtherFileAndDrawsTheTelemetry) {
    const std::string file = Path("page.html");
    ASSERT_EQ(
        Tool({"report", "--html", file, "--machine", "living", "--interval", "20", "--store", ":memory:"})
            .status,
        0);
    const std::string log = Browse(file, Scheme::Light, "1200,900").err;
    EXPECT_THAT(log, Not(HasSubstr("CONSOLE"))) << log;
    EXPECT_THAT(ContentOf(Path("net.json")), AllOf(HasSubstr("logEvent"), Not(HasSubstr("\"url\":\"http"))));

    const json wide = Probed(file, Scheme::Light, "1200,900");
    EXPECT_EQ(wide["sections"].size(), 18u) << wide; // telemetry and every group
    EXPECT_EQ(wide["charts"], json({"Temperatures", "Fans", "Battery", "Battery cells", "Usage and power"}));
    EXPECT_GT(wide["lines"], 10);
    EXPECT_EQ(wide["bars"], 4);
    EXPECT_EQ(wide["lines"].get<int>() + wide["steady"].get<int>(), 11 + 4 + 5 + 2);
    EXPECT_EQ(wide["rows"], 107);
    EXPECT_EQ(wide["causes"], 0);
    EXPECT_GT(wide["ground"], wide["ink"]);
    ExpectTidy(wide);
    const json narrow = Probed(file, Scheme::Dark, "360,800");
    EXPECT_LT(narrow["ground"], narrow["ink"]);
    ExpectTidy(narrow);
}

TEST_F(PageTest, GroupsFailuresByTheirCause) {
    json profile = json::parse(ContentOf(DEFAULT_MACHINE_FILE));
    profile["driver"]["present"] = false;
    const std::string machine = Write("machine.json", profile.dump());
    const std::string file = Path("page.html");
    ASSERT_EQ(Tool({"report", "--html", file, "--machine", machine, "--samples", "2", "--store", ":memory:"})
                  .status,
              0);
    EXPECT_THAT(ContentOf(file), HasSubstr("Driver session: <span class=\"bad\">"));
    const json page = Probed(file, Scheme::Light, "1600,900");
    EXPECT_LE(page["causes"], 3) << page;
    EXPECT_GE(page["causes"], 1);
    EXPECT_EQ(page["lines"], 0); // nothing changed or was read
    ExpectTidy(page);
    ExpectTidy(Probed(file, Scheme::Light, "360,800"));
}

TEST_F(PageTest, ShowsMarkupAsTextAndMarksFailures) {
    const std::string file = Write("page.html", "an older one");
    const test::Outcome run = WithDouble({"report", "--html", file, "--samples", "2", "--interval", "0.01"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, IsEmpty());
    EXPECT_THAT(ContentOf(file), HasSubstr("console.error(&#39;ran&#39;)"));
    EXPECT_THAT(Browse(file, Scheme::Light, "800,600").err, Not(HasSubstr("CONSOLE")));
    const json page = Probed(file, Scheme::Light, "800,600");
    // The browser prints its text as markup.
    EXPECT_EQ(page["title"], "&lt;script&gt;console.error('ran')&lt;/script&gt; &amp; \"中文\"");
    EXPECT_EQ(page["scripts"], 1); // the probe
    EXPECT_EQ(page["bad"], 6);     // a temperature, four fans and a cell
}

} // namespace
