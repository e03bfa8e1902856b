#include "machine/models/clock.h"
#include "machine/models/window_stack.h"
#include "usage/open_windows.h"

#include "machine_fixture.h"

#include <nlohmann/json.hpp>

namespace {

using namespace testing;
using nlohmann::json;

/// A window of the editor that passes every test, except for these members.
std::string Window(const std::string& name, const std::string& members = "") {
    return R"({"process": 100, "class": "Editor", "title": "A title", "name": ")" + name + '"' +
           (members.empty() ? "" : ", " + members) + "}";
}

/// A window that is drawn by the frame host for the process of its core window.
std::string Frame(const std::string& members = "") {
    return Window("frame", R"("class": "ApplicationFrameWindow", "process": 102, "title": "My Calculator!")" +
                               (members.empty() ? "" : ", " + members));
}

std::string Core(const std::string& members = R"("visible": false)") {
    return Window("core", R"("class": "Windows.UI.Core.CoreWindow", "title": "Calculator", "process": 101)" +
                              (members.empty() ? "" : ", " + members));
}

class OpenWindowsTest : public test::MachineTest {
protected:
    OpenWindowsTest() { StartBare(); }

    /// A machine with windows, uppermost first, and processes 100 to 104 in addition.
    void StartWith(const std::string& windows, const std::string& processes = "") {
        StartBare(R"({"windows": [)" + windows + R"(], "processes": [)" + processes + R"(
            {"id": 100, "path": "C:\\Apps\\editor.exe", "cpu_percent": 0.1, "working_set": 14356480},
            {"id": 101, "path": "C:\\Apps\\Calculator.exe"},
            {"id": 102, "path": "C:\\Windows\\System32\\ApplicationFrameHost.exe", "working_set": 2048},
            {"id": 103, "path": "plain.exe"}, {"id": 104, "path": "C:\\applicationframehost.exe"}]})");
    }

    /// One member of each record in the list.
    static std::string Listed(const char* member = "process_name") {
        std::string list;
        for (const auto& record : json::parse(Text(AppList_OpenWindows))) {
            list += record[member].get<std::string>() + ';';
        }
        return list;
    }
};

TEST_F(OpenWindowsTest, DescribesOneWindowExactly) {
    EXPECT_EQ(Text(AppList_OpenWindows), "[]");
    EXPECT_THAT(DebugLines(), ElementsAre("AppList_OpenWindows start", "AppList_OpenWindows end"));
    StartWith(Window("a"));
    EXPECT_EQ(Text(AppList_OpenWindows),
              R"([{"process_name":"editor.exe","process_title":"","cpu_usage":"0.1","mem_usage":"14020",)"
              R"("z_order":"1","is_focused":"1"}])");
    EXPECT_EQ(TheMachine()->clock.Now(), std::chrono::seconds(1));
    EXPECT_THAT(CallsOf(Operation::OpenProcess),
                ElementsAre(StartsWith("OpenProcess access=0x400 id=100 -> process#"),
                            StartsWith("OpenProcess access=0x1fffff id=100 -> process#"),
                            StartsWith("OpenProcess access=0x1fffff id=100 -> process#")));
}

TEST_F(OpenWindowsTest, AWindowThatFailsATestTakesNoPosition) {
    for (const char* failing :
         {R"("enabled": false)", R"("visible": false)", R"("title": "")", R"("title_bar_state": "0x8000")",
          R"("extended_style": "0x80")", R"("process": 999)", R"("class": "")", R"("owner": "root")"}) {
        StartWith(Window("bad", failing) + ", " + Window("root", R"("process": 103)"));
        EXPECT_EQ(Text(AppList_OpenWindows),
                  R"([{"process_name":"plain.exe","process_title":"","cpu_usage":"0.0","mem_usage":"0",)"
                  R"("z_order":"1","is_focused":"1"}])")
            << failing;
    }
}

TEST_F(OpenWindowsTest, ListsWhatTheTaskBarWouldShow) {
    struct Case {
        const char* why;
        std::string windows;
        std::string listed;
    };

    const std::string minimised = Frame(R"("minimised": true)") + ", ", calculator = "Calculator.exe;";
    const std::string withCore = R"("children": [)" + Core("") + "]";
    const Case cases[] = {
        {"other bits of style and state do not matter",
         Window("a", R"("title_bar_state": "0x100000", "extended_style": "0x40100")"), "editor.exe;"},
        {"a popup does not hide its owner",
         Window("popup", R"("owner": "root", "process": 103)") + ", " +
             Window("root", R"("last_active_popup": "popup")"),
         "editor.exe;"},
        {"unless it is hidden itself",
         Window("popup", R"("owner": "root", "visible": false)") + ", " +
             Window("root", R"("last_active_popup": "popup")"),
         ""},
        {"two that name each other are not followed permanently",
         Window("one", R"("last_active_popup": "two", "owner": "two", "visible": false)") + ", " +
             Window("two", R"("last_active_popup": "one", "visible": false)") + ", " +
             Window("top", R"("owner": "two")"),
         ""},
        {"a frame goes by its core window", Frame(withCore), calculator},
        {"without a child it does not count", Frame(), ""},
        {"other properties do not matter", Frame() + ", " + Core(), ""},
        {"minimised it is known by its title", minimised + Core(), calculator},
        {"with its case", minimised + Core(R"("visible": false, "title": "calculator")"), ""},
        {"every title holds the empty one", minimised + Core(R"("visible": false, "title": "")"), calculator},
        {"core windows of others and of no process are skipped",
         minimised + Core(R"("visible": false, "name": "c1", "title": "Mail", "process": 103)") + ", " +
             Core(R"("visible": false, "name": "c2", "process": 999)") + ", " + Core(),
         calculator},
        {"any window of the frame host needs a core window", Window("other", R"("process": 102)"), ""},
        {"and has it", Window("other", R"("process": 102, )" + withCore), "ApplicationFrameHost.exe;"},
        {"the host's name has its case", Window("a", R"("process": 104)"), "applicationframehost.exe;"},
    };
    for (const Case& each : cases) {
        StartWith(each.windows);
        EXPECT_EQ(Listed(), each.listed) << each.why;
    }
    StartWith(Frame(withCore));
    EXPECT_EQ(Listed("mem_usage"), "2;") << "the figures are those of the frame's process";
}

TEST_F(OpenWindowsTest, ListsFiveAndMeasuresNoMore) {
    StartWith(Window("a") + ", " + Window("b") + ", " + Window("c") + ", " + Window("d") + ", " +
              Window("e") + ", " + Window("f"));
    EXPECT_EQ(Listed("z_order"), "1;2;3;4;5;");
    EXPECT_EQ(Listed("is_focused"), "1;0;0;0;0;") << "positions start again";
    EXPECT_EQ(TheMachine()->clock.Now(), std::chrono::seconds(10));
    EXPECT_THAT(CallsOf(Operation::Sleep), SizeIs(10));
}

TEST_F(OpenWindowsTest, FiguresOfProcessesThatCannotBeQueried) {
    StartWith(Window("a", R"("process": 200)") + ", " + Window("b", R"("process": 201)") + ", " +
                  Window("c", R"("process": 202)") + ", " + Window("d", R"("process": 203)") + ", " +
                  Window("e", R"("process": 204)"),
              R"({"id": 200, "path": "x\\queries.exe", "access": "queries", "working_set": 4096},
                 {"id": 201, "path": "x\\secret.exe", "access": "nothing"},
                 {"id": 202, "path": "x\\silent.exe", "tells_memory": false},
                 {"id": 203, "path": "x\\huge.exe", "working_set": 2147483648, "cpu_percent": 12.5},
                 {"id": 204, "path": "x\\", "working_set": 4294967296},)");
    EXPECT_EQ(Listed(), "queries.exe;huge.exe;;");
    EXPECT_THAT(CallsOf(Operation::Sleep), SizeIs(3)) << "no wait for what cannot be opened for the figures";
    EXPECT_EQ(Listed("z_order"), "1;3;4;") << "the silent one keeps its position";
    EXPECT_EQ(Listed("mem_usage"), "0;-2097152;0;");
    EXPECT_EQ(Listed("cpu_usage"), "0.0;12.5;0.0;");
    // The system's times do not move.
    StartWith(Window("a"));
    AfterCalls([](const CallRecord& call) {
        if (call.operation == Operation::Sleep) {
            TheMachine()->clock.Advance(-std::chrono::seconds(1));
        }
    });
    EXPECT_EQ(Listed("cpu_usage"), "-1.0;");
}

TEST_F(OpenWindowsTest, ATimeThatCannotBeReadCountsAsOneThatDidNotMove) {
    StartWith(Window("a"));
    TheMachine()->clock.Advance(std::chrono::minutes(1)); // times that began long before the sample
    std::string figures;
    for (const auto operation : {Operation::GetSystemTimes, Operation::GetProcessTimes}) {
        for (const std::size_t nth : {1, 2}) {
            std::string figure;
            RunFailing(operation, nth, Failure::Refused, [&] { figure = Listed("cpu_usage"); });
            figures += figure;
        }
    }
    EXPECT_EQ(figures, "-1.0;-1.0;0.0;0.0;");
}

TEST_F(OpenWindowsTest, WindowsThatCloseMeanwhileAreLeftOut) {
    // It closes when it has been listed, or after it has been asked something.
    for (const Operation last : {Operation::EnumWindows, Operation::IsWindowVisible, Operation::GetAncestor,
                                 Operation::GetTitleBarInfo, Operation::GetWindowLongW,
                                 Operation::GetWindowThreadProcessId, Operation::GetClassNameW}) {
        StartWith(Window("a") + ", " + Window("b", R"("process": 103)") + ", " +
                  Window("c", R"("process": 101)"));
        const auto closing = static_cast<std::uintptr_t>(TheMachine()->windows.Find("b")->handle);
        AfterCalls([last, closing](const CallRecord& call) {
            const auto* const window = call.Input("window");
            const bool isAsked =
                window == nullptr || std::get<observer::HandleName>(window->held).platforms == closing;
            if (call.operation == last && isAsked) {
                TheMachine()->windows.Close("b");
            }
        });
        EXPECT_EQ(Listed(), "editor.exe;Calculator.exe;") << RowOf(last).name;
    }
}

} // namespace
