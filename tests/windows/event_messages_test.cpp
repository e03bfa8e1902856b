// The DLL by which the event viewer shows the library's events.
#include "library.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(EventMessagesTest, AnEventIsShownAsItsSecondString) {
    const std::wstring path = test::ProgramDirectory() + L"VeskSondrelMessages.dll";
    const HMODULE module = ::LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(module, nullptr) << ::GetLastError();
    wchar_t source[] = L"VESKTessaly";
    wchar_t line[] = L"[tag] line";
    const DWORD_PTR strings[] = {reinterpret_cast<DWORD_PTR>(source), reinterpret_cast<DWORD_PTR>(line)};
    wchar_t text[64]{};
    constexpr DWORD Flags = FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_ARGUMENT_ARRAY;
    ::FormatMessageW(Flags, module, 0, 0, text, 64,
                     reinterpret_cast<va_list*>(const_cast<DWORD_PTR*>(strings)));
    EXPECT_STREQ(text, L"[tag] line\r\n");
    text[0] = L'\0';
    EXPECT_EQ(::FormatMessageW(Flags, module, 1, 0, text, 64, nullptr), 0u) << "another event's";
    ::FreeLibrary(module);
}

TEST(EventMessagesTest, TheFileHasNoCode) {
    const std::wstring path = test::ProgramDirectory() + L"VeskSondrelMessages.dll";
    const HMODULE module = ::LoadLibraryExW(path.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(module, nullptr);
    const auto* base = reinterpret_cast<const std::byte*>(module);
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(
        base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
    EXPECT_EQ(headers.OptionalHeader.AddressOfEntryPoint, 0u);
    ::FreeLibrary(module);
}

} // namespace
