// sondrel report --html in a browser.
#include "tool_run.h"

#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// Replaces the page's content by a description of its layout.
constexpr const char* Probe = R"(<script>
const all = (what) => [...document.querySelectorAll(what)];
const light = (colour) => colour.match(/\d+/g).slice(0, 3).reduce((sum, part) => sum + Number(part), 0);
const style = getComputedStyle(document.body);
const drawn = (what) => all(what).filter((path) => path.getBoundingClientRect().width > 0).length;
const layout = { title: document.querySelector("h1").textContent, sections: all("h2").map((h) => h.textContent),
    charts: all("h3").map((h) => h.textContent), lines: drawn("svg .line"), bars: drawn("svg .fill"),
    bad: all(".card .bad").length, rows: all("table.readings > tbody > tr").length,
    ground: light(style.backgroundColor), ink: light(style.color),
    tooWide: document.documentElement.scrollWidth - innerWidth, scripts: all("script").length };
document.body.textContent = "";
document.title = JSON.stringify(layout);
</script></body>)";

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

    /// The probe's result for a copy of the page that is allowed to run it.
    [[nodiscard]] json Probed(const std::string& file, Scheme scheme, const std::string& size) const {
        std::string page = ContentOf(file);
        const auto replace = [&](const std::string& what, const std::string& with) {
            const std::size_t at = page.find(what);
            ASSERT_NE(at, std::string::npos) << what;
            page.replace(at, what.size(), with);
        };
        replace("default-src 'none'", "default-src 'unsafe-inline'");
        replace("</body>", Probe);
        const std::string out = Browse(Write("probed.html", page), scheme, size).out;
        const std::size_t start = out.find("<title>") + 7;
        return json::parse(out.substr(start, out.find("</title>") - start), nullptr, false);
    }
};

TEST_F(PageTest, NeedsNoOtherFileAndDrawsTheTelemetry) {
    const std::string file = Path("page.html");
    ASSERT_EQ(Tool({"report", "--html", file, "--samples", "5", "--store", ":memory:"}).status, 0);
    const std::string log = Browse(file, Scheme::Light, "1200,900").err;
    EXPECT_THAT(log, Not(HasSubstr("CONSOLE"))) << log;
    EXPECT_THAT(ContentOf(Path("net.json")), AllOf(HasSubstr("logEvent"), Not(HasSubstr("\"url\":\"http"))));

    const json wide = Probed(file, Scheme::Light, "1200,900");
    EXPECT_EQ(wide["title"], "Kelvane 14 KL") << wide;
    EXPECT_EQ(wide["sections"].size(), 18u); // telemetry and every group
    EXPECT_EQ(wide["charts"], json({"Temperatures", "Fans", "Battery cells", "Usage and power"}));
    EXPECT_EQ(wide["lines"], 11 + 4 + 4);
    EXPECT_EQ(wide["bars"], 4);
    EXPECT_EQ(wide["rows"], 107);
    EXPECT_GT(wide["ground"], wide["ink"]);
    const json narrow = Probed(file, Scheme::Dark, "360,800");
    EXPECT_LT(narrow["ground"], narrow["ink"]);
    EXPECT_EQ(wide["tooWide"], 0);
    EXPECT_EQ(narrow["tooWide"], 0);
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
    EXPECT_EQ(page["bad"], 5);     // a temperature and four fans
}

} // namespace
