// The window walk over real windows and processes.
#include "import_patch.h"
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

std::vector<DWORD> Waits;

void WINAPI CountWait(DWORD milliseconds) {
    Waits.push_back(milliseconds);
}

/// What the DLL asks of other processes.
std::vector<DWORD> Rights;

// This Windows reads a process's path out of its memory, which takes a right that the real one does not ask for.
HANDLE WINAPI OpenWithMemory(DWORD access, BOOL inherit, DWORD process) {
    Rights.push_back(access);
    EXPECT_FALSE(inherit);
    return ::OpenProcess(access == PROCESS_QUERY_INFORMATION ? access | PROCESS_VM_READ : access, inherit,
                         process);
}

/// A window of the test's own, closed at the end.
class RealWindow {
public:
    explicit RealWindow(const wchar_t* className, const wchar_t* title,
                        DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, DWORD extendedStyle = 0,
                        HWND parentOrOwner = nullptr) {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = ::DefWindowProcW;
        windowClass.hInstance = ::GetModuleHandleW(nullptr);
        windowClass.lpszClassName = className;
        ::RegisterClassW(&windowClass); // a class that is there already does no harm
        m_window = ::CreateWindowExW(extendedStyle, className, title, style, 10, 10, 300, 200, parentOrOwner,
                                     nullptr, windowClass.hInstance, nullptr);
        EXPECT_NE(m_window, nullptr);
    }

    RealWindow(const RealWindow&) = delete;
    RealWindow& operator=(const RealWindow&) = delete;

    ~RealWindow() { ::DestroyWindow(m_window); }

    [[nodiscard]] HWND Get() const { return m_window; }

private:
    HWND m_window;
};

constexpr const wchar_t* Frame = L"ApplicationFrameWindow";
constexpr const wchar_t* Core = L"Windows.UI.Core.CoreWindow";

class OpenWindowsTest : public ::testing::Test {
protected:
    OpenWindowsTest() {
        Waits.clear();
        Rights.clear();
        m_patch.Replace("Sleep", &CountWait);
        m_patch.Replace("OpenProcess", &OpenWithMemory);
    }

    std::wstring Answer() {
        std::wstring buffer(1 << 12, L'?');
        VESK_CALL(m_library, AppList_OpenWindows)(buffer.data());
        return buffer.c_str();
    }

    /// How many windows of this program are listed. Other programs of this Windows show none.
    std::size_t Listed() {
        const std::wstring all = Answer();
        std::size_t count = 0;
        for (std::size_t place = all.find(L"windows_tests.exe"); place != std::wstring::npos;
             place = all.find(L"windows_tests.exe", place + 1)) {
            ++count;
        }
        return count;
    }

    test::Library m_library;
    test::ImportPatch m_patch{m_library.Module()};
};

TEST_F(OpenWindowsTest, ListsAWindowWithTheFiguresOfItsProcess) {
    EXPECT_EQ(Answer(), L"[]");
    const RealWindow window(L"VeskTest", L"A title");
    const std::wstring all = Answer();
    EXPECT_THAT(all, StartsWith(LR"([{"process_name":"windows_tests.exe","process_title":"","cpu_usage":")"));
    EXPECT_THAT(all, ::testing::EndsWith(LR"(","z_order":"1","is_focused":"1"}])"));
    const std::size_t memory = all.find(LR"("mem_usage":")") + 13;
    EXPECT_GT(std::stol(all.substr(memory)), 1000);
    EXPECT_THAT(Waits, ElementsAre(1000u));
}

TEST_F(OpenWindowsTest, AsksForTheRightsThatTheContractFixes) {
    const RealWindow window(L"VeskTest", L"A title");
    Answer();
    // The path; then the memory and the times, for which more than their documents require is asked.
    EXPECT_THAT(Rights, ElementsAre(PROCESS_QUERY_INFORMATION, PROCESS_ALL_ACCESS, PROCESS_ALL_ACCESS));
}

TEST_F(OpenWindowsTest, SkipsWhatIsNoApplicationsWindow) {
    const RealWindow untitled(L"VeskTest", L"");
    const RealWindow tool(L"VeskTest", L"Tool", WS_OVERLAPPEDWINDOW | WS_VISIBLE, WS_EX_TOOLWINDOW);
    const RealWindow hidden(L"VeskTest", L"Hidden", WS_OVERLAPPEDWINDOW);
    const RealWindow disabled(L"VeskTest", L"Disabled", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_DISABLED);
    const RealWindow bare(L"VeskTest", L"No title bar", WS_POPUP | WS_VISIBLE);
    EXPECT_EQ(Answer(), L"[]");
    const RealWindow owner(L"VeskTest", L"Owner");
    const RealWindow owned(L"VeskTest", L"Owned", WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, owner.Get());
    const RealWindow minimised(L"VeskTest", L"Minimised", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MINIMIZE);
    EXPECT_EQ(Listed(), 2u);
}

TEST_F(OpenWindowsTest, FramesCountByTheirCoreWindows) {
    const RealWindow frame(Frame, L"My Calculator!");
    EXPECT_EQ(Listed(), 0u);
    {
        const RealWindow child(Core, L"Calculator", WS_CHILD | WS_VISIBLE, 0, frame.Get());
        EXPECT_EQ(Listed(), 1u);
    }
    const RealWindow core(Core, L"Calculator", WS_POPUP);
    EXPECT_EQ(Listed(), 0u);
    ::ShowWindow(frame.Get(), SW_SHOWMINNOACTIVE);
    EXPECT_EQ(Listed(), 1u);
    ::SetWindowTextW(core.Get(), L"Mail");
    EXPECT_EQ(Listed(), 0u);
}

} // namespace
