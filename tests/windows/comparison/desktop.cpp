#include "platform/desktop.h"

#include "shims.h"

#include <psapi.h>

#include "machine/machine.h"
#include "platform/processes.h"

#include <cstring>

namespace comparison {
namespace {

platform::Window WindowOf(HWND window) {
    return platform::Window{reinterpret_cast<std::uintptr_t>(window)};
}

HWND Native(platform::Window window) {
    return reinterpret_cast<HWND>(window);
}

WINBOOL WINAPI EnumerateWindows(WNDENUMPROC callback, LPARAM context) {
    for (const platform::Window window : platform::EnumWindows()) {
        if (callback(Native(window), context) == FALSE) {
            return FALSE;
        }
    }
    return TRUE;
}

int WINAPI TextLength(HWND window) {
    return static_cast<int>(platform::GetWindowTextLengthW(WindowOf(window)));
}

/// The questions that are answered with yes or no.
template <bool (*Ask)(platform::Window)>
WINBOOL WINAPI Whether(HWND window) {
    return Truth(Ask(WindowOf(window)));
}

HWND WINAPI Ancestor(HWND window, UINT which) {
    return Native(platform::GetAncestor(WindowOf(window), which));
}

HWND WINAPI LastActivePopup(HWND window) {
    return Native(platform::GetLastActivePopup(WindowOf(window)));
}

WINBOOL WINAPI TitleBar(HWND window, PTITLEBARINFO native) {
    platform::TitleBarInfo info{.size = native->cbSize, .rectangle = {}, .states = {}};
    if (!platform::GetTitleBarInfo(WindowOf(window), info)) {
        return FALSE;
    }
    for (std::size_t place = 0; place < info.states.size(); ++place) {
        native->rgstate[place] = info.states[place];
    }
    return TRUE;
}

LONG WINAPI WindowLong(HWND window, int index) {
    return static_cast<LONG>(platform::GetWindowLongW(WindowOf(window), index));
}

template <std::uint32_t (*Ask)(platform::Window, char16_t*, std::uint32_t)>
int WINAPI TextOf(HWND window, LPWSTR text, int size) {
    return static_cast<int>(Ask(WindowOf(window), Plain(text), static_cast<std::uint32_t>(size)));
}

HWND WINAPI FindWindowAfter(HWND parent, HWND after, LPCWSTR className, LPCWSTR) {
    return Native(platform::FindWindowExW(WindowOf(parent), WindowOf(after), Plain(className)));
}

DWORD WINAPI ThreadAndProcess(HWND window, LPDWORD process) {
    constexpr DWORD SomeThread = 0xBEEF;
    *process = platform::GetWindowThreadProcessId(WindowOf(window));
    return *process == 0 ? 0 : SomeThread;
}

HANDLE WINAPI OpenTheProcess(DWORD access, WINBOOL, DWORD id) {
    const platform::Handle process = WithLastError(platform::OpenProcess(access, id));
    return process == platform::Handle::Null ? nullptr : Marked(process);
}

DWORD WINAPI ModuleFileName(HANDLE process, HMODULE, LPWSTR path, DWORD size) {
    return WithLastError(platform::K32GetModuleFileNameExW(Unmarked(process), Plain(path), size));
}

WINBOOL WINAPI Times(HANDLE process, LPFILETIME creation, LPFILETIME exit, LPFILETIME kernel,
                     LPFILETIME user) {
    platform::ProcessTimes times{};
    if (!WithLastError(platform::GetProcessTimes(Unmarked(process), times))) {
        return FALSE;
    }
    *creation = NativeTime(times.creation);
    *exit = NativeTime(times.exit);
    *kernel = NativeTime(times.kernel);
    *user = NativeTime(times.user);
    return TRUE;
}

WINBOOL WINAPI Memory(HANDLE process, PPROCESS_MEMORY_COUNTERS native, DWORD size) {
    platform::ProcessMemoryCounters counters{};
    if (!WithLastError(platform::K32GetProcessMemoryInfo(Unmarked(process), counters, size))) {
        return FALSE;
    }
    native->WorkingSetSize = counters.workingSetSize;
    return TRUE;
}

} // namespace

void PutUpDesktop(test::ImportPatch& patch) {
    patch.Replace("EnumWindows", &EnumerateWindows);
    patch.Replace("GetWindowTextLengthW", &TextLength);
    patch.Replace("IsWindowEnabled", &Whether<platform::IsWindowEnabled>);
    patch.Replace("IsWindow", &Whether<platform::IsWindow>);
    patch.Replace("IsWindowVisible", &Whether<platform::IsWindowVisible>);
    patch.Replace("IsIconic", &Whether<platform::IsIconic>);
    patch.Replace("GetAncestor", &Ancestor);
    patch.Replace("GetLastActivePopup", &LastActivePopup);
    patch.Replace("GetTitleBarInfo", &TitleBar);
    patch.Replace("GetWindowLongW", &WindowLong);
    patch.Replace("GetClassNameW", &TextOf<platform::GetClassNameW>);
    patch.Replace("GetWindowTextW", &TextOf<platform::GetWindowTextW>);
    patch.Replace("FindWindowExW", &FindWindowAfter);
    patch.Replace("GetWindowThreadProcessId", &ThreadAndProcess);
    patch.Replace("OpenProcess", &OpenTheProcess);
    patch.Replace("K32GetModuleFileNameExW", &ModuleFileName);
    patch.Replace("GetProcessTimes", &Times);
    patch.Replace("K32GetProcessMemoryInfo", &Memory);
}

} // namespace comparison
