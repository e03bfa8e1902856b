#include "log_capture.h"

#include <windows.h>

#include <evntprov.h>

#include <utility>

namespace test {
namespace {

// The replacements are plain functions, so this cannot be a member.
std::vector<std::wstring> Lines;

ULONG WINAPI Register(const GUID* provider, PENABLECALLBACK callback, void* context,
                      REGHANDLE* registration) {
    constexpr ULONG Enable = 1; // EVENT_CONTROL_CODE_ENABLE_PROVIDER
    constexpr UCHAR EveryLevel = 0;
    *registration = 1;
    callback(provider, Enable, EveryLevel, 0, 0, nullptr, context);
    return ERROR_SUCCESS;
}

ULONG WINAPI WriteTransfer(REGHANDLE, const EVENT_DESCRIPTOR*, const GUID*, const GUID*, ULONG count,
                           EVENT_DATA_DESCRIPTOR* data) {
    Lines.push_back(L"debug " + std::wstring(reinterpret_cast<const wchar_t*>(data[count - 1].Ptr)));
    return ERROR_SUCCESS;
}

BOOL WINAPI Report(HANDLE, WORD, WORD, DWORD, void*, WORD count, DWORD, const wchar_t** strings, void*) {
    Lines.push_back(std::wstring(L"event ") + strings[count - 1]);
    return TRUE;
}

} // namespace

LogCapture::LogCapture(ImportPatch& patch) {
    Lines.clear();
    patch.Replace("EventRegister", &Register);
    patch.Replace("EventWriteTransfer", &WriteTransfer);
    patch.Replace("ReportEventW", &Report);
}

std::vector<std::wstring> LogCapture::Take() {
    return std::exchange(Lines, {});
}

} // namespace test
