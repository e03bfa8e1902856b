#include "platform/simulated/clock.h"
#include "platform/simulated/window_stack.h"
#include "usage/open_windows.h"

#include "application_test.h"

#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

json Window(const char* name, json changes = json::object()) {
    json window{{"name", name}, {"process", 100}, {"class", "Editor"}, {"title", "A title"}};
    window.merge_patch(changes);
    return window;
}

class OpenWindowsTest : public test::ApplicationTest {
protected:
    /// A machine with processes 100 (editor.exe) to 103, and windows, uppermost first.
    void StartWith(const std::vector<json>& windows, std::vector<json> processes = {}) {
        processes.push_back(
            {{"id", 100}, {"path", "C:\\Apps\\editor.exe"}, {"cpu_percent", 0.1}, {"working_set", 14356480}});
        processes.push_back({{"id", 101}, {"path", "C:\\Apps\\Calculator.exe"}});
        processes.push_back({{"id", 102},
                             {"path", "C:\\Windows\\System32\\ApplicationFrameHost.exe"},
                             {"working_set", 2048}});
        processes.push_back({{"id", 103}, {"path", "plain.exe"}});
        StartMachine(json{{"windows", windows}, {"processes", processes}}.dump());
    }

    /// The process names in the list, and nothing of the rest.
    static std::vector<std::string> Listed() {
        std::vector<std::string> names;
        for (const auto& record : json::parse(WideAnswer(AppList_OpenWindows))) {
            names.push_back(record["process_name"]);
        }
        return names;
    }

    /// Whether a desktop of these windows lists anything.
    std::vector<std::string> ListedOf(const std::vector<json>& windows) {
        StartWith(windows);
        return Listed();
    }
};

const json CoreWindow =
    Window("core", {{"class", "Windows.UI.Core.CoreWindow"}, {"title", "Calculator"}, {"process", 101}});

TEST_F(OpenWindowsTest, TellsOneWindowToTheByte) {
    EXPECT_EQ(WideAnswer(AppList_OpenWindows), "[]");
    EXPECT_THAT(DebugLines(), ElementsAre("AppList_OpenWindows start", "AppList_OpenWindows end"));
    StartWith({Window("a")});
    EXPECT_EQ(WideAnswer(AppList_OpenWindows),
              R"([{"process_name":"editor.exe","process_title":"","cpu_usage":"0.1","mem_usage":"14020",)"
              R"("z_order":"1","is_focused":"1"}])");
    EXPECT_EQ(TheMachine().clock.Now(), std::chrono::seconds(1));
    EXPECT_THAT(CallsOf("OpenProcess"),
                ElementsAre(::testing::StartsWith("OpenProcess 100 access 1024 ="),
                            ::testing::StartsWith("OpenProcess 100 access 2097151 ="),
                            ::testing::StartsWith("OpenProcess 100 access 2097151 =")));
}

TEST_F(OpenWindowsTest, AWindowThatFailsATestTakesNoPosition) {
    const json failing[] = {
        {{"enabled", false}},       {{"visible", false}}, {{"title", ""}}, {{"title_bar_state", 0x8000}},
        {{"extended_style", 0x80}}, {{"process", 999}},   {{"class", ""}}, {{"owner", "root"}},
    };
    for (const json& change : failing) {
        SCOPED_TRACE(change.dump());
        StartWith({Window("bad", change), Window("root", {{"process", 103}})});
        EXPECT_EQ(WideAnswer(AppList_OpenWindows),
                  R"([{"process_name":"plain.exe","process_title":"","cpu_usage":"0.0","mem_usage":"0",)"
                  R"("z_order":"1","is_focused":"1"}])");
    }
    // Other bits of the style and of the title bar's state do not matter.
    EXPECT_THAT(ListedOf({Window("a", {{"title_bar_state", "0x100000"}, {"extended_style", "0x40100"}})}),
                SizeIs(1));
}

TEST_F(OpenWindowsTest, AnActivePopupDoesNotHideItsOwnerUnlessItIsHiddenItself) {
    EXPECT_THAT(ListedOf({Window("popup", {{"owner", "root"}, {"process", 103}}),
                          Window("root", {{"last_active_popup", "popup"}})}),
                ElementsAre("editor.exe"));
    EXPECT_THAT(ListedOf({Window("popup", {{"owner", "root"}, {"visible", false}}),
                          Window("root", {{"last_active_popup", "popup"}})}),
                IsEmpty());
    // Two that name each other would be followed for good.
    EXPECT_THAT(ListedOf({Window("one", {{"last_active_popup", "two"}, {"owner", "two"}, {"visible", false}}),
                          Window("two", {{"last_active_popup", "one"}, {"visible", false}}),
                          Window("top", {{"owner", "two"}})}),
                IsEmpty());
}

TEST_F(OpenWindowsTest, ListsFiveAndMeasuresNoMore) {
    std::vector<json> windows;
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g"}) {
        windows.push_back(Window(name));
    }
    StartWith(windows);
    for (int walk = 0; walk < 2; ++walk) { // positions start anew
        const json list = json::parse(WideAnswer(AppList_OpenWindows));
        ASSERT_THAT(list, SizeIs(5));
        for (std::size_t place = 0; place < 5; ++place) {
            EXPECT_EQ(list[place]["z_order"], std::to_string(place + 1));
            EXPECT_EQ(list[place]["is_focused"], place == 0 ? "1" : "0");
        }
    }
    EXPECT_EQ(TheMachine().clock.Now(), std::chrono::seconds(10));
    EXPECT_THAT(CallsOf("Sleep"), SizeIs(10));
}

TEST_F(OpenWindowsTest, AFrameGoesByTheProcessOfItsCoreWindow) {
    const json frame =
        Window("frame", {{"class", "ApplicationFrameWindow"}, {"process", 102}, {"title", "My Calculator!"}});
    const auto with = [](json window, const json& changes) {
        window.merge_patch(changes);
        return window;
    };
    // The name is that of the core window's process, the figures are those of the frame's.
    StartWith({with(frame, {{"children", json::array({CoreWindow})}})});
    const json record = json::parse(WideAnswer(AppList_OpenWindows))[0];
    EXPECT_EQ(record["process_name"], "Calculator.exe");
    EXPECT_EQ(record["mem_usage"], "2");
    // Without a child and not minimised it does not count, whatever stands elsewhere.
    EXPECT_THAT(ListedOf({frame}), IsEmpty());
    EXPECT_THAT(ListedOf({frame, with(CoreWindow, {{"visible", false}})}), IsEmpty());
    // Minimised it is known by its title; the core window itself is a hidden one.
    const json minimised = with(frame, {{"minimised", true}});
    const json hidden = with(CoreWindow, {{"visible", false}});
    EXPECT_THAT(ListedOf({minimised, hidden}), ElementsAre("Calculator.exe"));
    EXPECT_THAT(ListedOf({minimised, with(hidden, {{"title", "calculator"}})}), IsEmpty());
    EXPECT_THAT(ListedOf({minimised, with(hidden, {{"title", ""}})}), ElementsAre("Calculator.exe"));
    // Core windows of others, and one whose process cannot be named, are passed over.
    EXPECT_THAT(ListedOf({minimised, with(hidden, {{"name", "c1"}, {"title", "Mail"}, {"process", 103}}),
                          with(hidden, {{"name", "c2"}, {"process", 999}}), hidden}),
                ElementsAre("Calculator.exe"));
}

TEST_F(OpenWindowsTest, AWindowOfTheFrameHostNeedsACoreWindow) {
    const json other = Window("other", {{"process", 102}});
    EXPECT_THAT(ListedOf({other}), IsEmpty());
    json withCore = other;
    withCore["children"] = json::array({CoreWindow});
    EXPECT_THAT(ListedOf({withCore}), ElementsAre("ApplicationFrameHost.exe"));
    // The name is compared with its case.
    StartWith({Window("a", {{"process", 104}})}, {{{"id", 104}, {"path", "C:\\applicationframehost.exe"}}});
    EXPECT_THAT(Listed(), ElementsAre("applicationframehost.exe"));
}

TEST_F(OpenWindowsTest, FiguresOfProcessesThatDoNotTell) {
    StartWith({Window("a", {{"process", 200}}), Window("b", {{"process", 201}}),
               Window("c", {{"process", 202}}), Window("d", {{"process", 203}}),
               Window("e", {{"process", 204}})},
              {{{"id", 200}, {"path", "x\\queries.exe"}, {"access", "queries"}, {"working_set", 4096}},
               {{"id", 201}, {"path", "x\\secret.exe"}, {"access", "nothing"}},
               {{"id", 202}, {"path", "x\\silent.exe"}, {"tells_memory", false}},
               {{"id", 203}, {"path", "x\\huge.exe"}, {"working_set", 2147483648}, {"cpu_percent", 12.5}},
               {{"id", 204}, {"path", "x\\"}, {"working_set", 4294967296}}});
    const json list = json::parse(WideAnswer(AppList_OpenWindows));
    ASSERT_THAT(list, SizeIs(3));
    EXPECT_EQ(list[0]["process_name"], "queries.exe"); // cannot be opened for the figures: no wait either
    EXPECT_EQ(list[0]["cpu_usage"], "0.0");
    EXPECT_EQ(list[0]["mem_usage"], "0");
    EXPECT_EQ(list[1]["process_name"], "huge.exe"); // the silent one keeps its position
    EXPECT_EQ(list[1]["z_order"], "3");
    EXPECT_EQ(list[1]["mem_usage"], "-2097152");
    EXPECT_EQ(list[1]["cpu_usage"], "12.5");
    EXPECT_EQ(list[2]["process_name"], "");
    EXPECT_EQ(list[2]["mem_usage"], "0");
    EXPECT_THAT(CallsOf("Sleep"), SizeIs(3));
}

TEST_F(OpenWindowsTest, ShowsMinusOneWhenTheSystemsTimesDoNotMove) {
    StartWith({Window("a")});
    TheMachine().clock.TieToRealTime(false);
    TheMachine().gate.Transcribe([](const std::string& line) {
        if (line.starts_with("Sleep")) {
            TheMachine().clock.Advance(-std::chrono::seconds(1));
        }
    });
    EXPECT_EQ(json::parse(WideAnswer(AppList_OpenWindows))[0]["cpu_usage"], "-1.0");
}

TEST_F(OpenWindowsTest, WindowsThatCloseMeanwhileAreLeftOut) {
    const std::vector<json> windows{Window("a"), Window("b", {{"process", 103}}),
                                    Window("c", {{"process", 101}})};
    StartWith(windows);
    const auto closeAt = [](const char* call) {
        TheMachine().gate.Transcribe([call](const std::string& line) {
            if (line.starts_with(call)) {
                TheMachine().windows.Close("b");
            }
        });
    };
    closeAt("EnumWindows");
    EXPECT_THAT(Listed(), ElementsAre("editor.exe", "Calculator.exe"));
    for (const char* call : {"IsWindowVisible b", "GetAncestor b", "GetTitleBarInfo b", "GetWindowLongW b",
                             "GetWindowThreadProcessId b", "GetClassNameW b"}) {
        SCOPED_TRACE(call);
        StartWith(windows);
        closeAt(call);
        EXPECT_THAT(Listed(), ElementsAre("editor.exe", "Calculator.exe"));
    }
}

} // namespace
