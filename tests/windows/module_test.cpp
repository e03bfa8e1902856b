// The DLL as a file: what it exports and imports, and how it was linked.
#include "library.h"

#include "observer/recording/variables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <winver.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::ElementsAreArray;
using ::testing::UnorderedElementsAreArray;

class ModuleTest : public ::testing::Test {
protected:
    template <class Type>
    [[nodiscard]] const Type* At(std::size_t offset) const {
        return reinterpret_cast<const Type*>(reinterpret_cast<const std::byte*>(m_library.Module()) + offset);
    }

    [[nodiscard]] const IMAGE_NT_HEADERS& Headers() const {
        return *At<IMAGE_NT_HEADERS>(static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    }

    [[nodiscard]] const IMAGE_DATA_DIRECTORY& Directory(unsigned which) const {
        return Headers().OptionalHeader.DataDirectory[which];
    }

    [[nodiscard]] bool IsCode(DWORD address) const {
        const auto* section = IMAGE_FIRST_SECTION(&Headers());
        const auto* end = section + Headers().FileHeader.NumberOfSections;
        return std::any_of(section, end, [address](const IMAGE_SECTION_HEADER& one) {
            return address - one.VirtualAddress < one.Misc.VirtualSize &&
                   (one.Characteristics & IMAGE_SCN_MEM_EXECUTE) != 0;
        });
    }

    test::Library m_library;
};

/// The lines of a list, without blanks in front and without comments.
std::vector<std::string> Lines(const char* path, char comment) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        const std::size_t first = line.find_first_not_of(' ');
        if (first != std::string::npos && line[first] != comment) {
            lines.push_back(line.substr(first));
        }
    }
    return lines;
}

/// The names of the .def file, in the order of an export directory.
std::vector<std::string> ListedExports() {
    std::vector<std::string> names = Lines(EXPORT_LIST_FILE, ';');
    std::erase_if(names,
                  [](const std::string& line) { return line == "EXPORTS" || line.starts_with("LIBRARY "); });
    std::ranges::sort(names);
    return names;
}

TEST_F(ModuleTest, ExportsTheListedFunctionsAndNothingElse) {
    const auto& exports = *At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress);
    const DWORD* names = At<DWORD>(exports.AddressOfNames);
    const DWORD* functions = At<DWORD>(exports.AddressOfFunctions);
    const WORD* ordinals = At<WORD>(exports.AddressOfNameOrdinals);
    std::vector<std::string> exported;
    for (DWORD index = 0; index < exports.NumberOfNames; ++index) {
        exported.emplace_back(At<char>(names[index]));
        EXPECT_TRUE(IsCode(functions[ordinals[index]])) << exported.back() << " is no function";
    }
    const std::vector<std::string> listed = ListedExports();
    ASSERT_GE(listed.size(), 9u);
    EXPECT_THAT(exported, ElementsAreArray(listed));
    EXPECT_EQ(exports.NumberOfFunctions, exports.NumberOfNames) << "exported without a name";
}

/// Ends the lines of functions that the C++ runtime of only some compilers calls.
constexpr std::string_view SomeRuntimes = " (some runtimes)";

TEST_F(ModuleTest, ImportsTheListedFunctionsAndNothingElse) {
    std::vector<std::string> imported;
    const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
    for (; library->Name != 0; ++library) {
        std::string name = At<char>(library->Name);
        std::ranges::transform(name, name.begin(),
                               [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        // The names stay readable in the lookup table; the loader puts addresses into the other one.
        const auto* entry = At<IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
        for (; entry->u1.AddressOfData != 0; ++entry) {
            ASSERT_FALSE(IMAGE_SNAP_BY_ORDINAL(entry->u1.Ordinal)) << name;
            const auto* function = At<IMAGE_IMPORT_BY_NAME>(entry->u1.AddressOfData);
            imported.push_back(name + ' ' + reinterpret_cast<const char*>(function->Name));
        }
    }
    std::vector<std::string> expected = Lines(IMPORT_LIST_FILE, '#');
    std::erase_if(expected, [&](std::string& line) {
        if (!line.ends_with(SomeRuntimes)) {
            return false;
        }
        line.erase(line.size() - SomeRuntimes.size());
        return std::ranges::find(imported, line) == imported.end();
    });
    EXPECT_THAT(imported, UnorderedElementsAreArray(expected));
}

/// In UTF-8 and in UTF-16.
bool Names(const wchar_t* file, std::string_view variable) {
    std::ifstream stream(std::filesystem::path(test::ProgramDirectory() + file), std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    std::string wide;
    for (const char c : variable) {
        wide.append(1, c).append(1, '\0');
    }
    return bytes.find(variable) != std::string::npos || bytes.find(wide) != std::string::npos;
}

TEST_F(ModuleTest, KnowsNoVariableOfTheEnvironment) {
    EXPECT_FALSE(Names(L"VeskSondrel64.dll", observer::variable::Prefix));
    for (const std::string_view variable : observer::variable::All) {
        EXPECT_TRUE(variable.starts_with(observer::variable::Prefix)) << variable;
        EXPECT_TRUE(Names(L"observed\\VeskSondrel64.dll", variable)) << variable;
    }
}

TEST_F(ModuleTest, IsLinkedForRandomAddressesWithoutExecutableDataOrTimeStamps) {
    constexpr WORD Wanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT | 0x20;
    const WORD flags = Headers().OptionalHeader.DllCharacteristics;
    EXPECT_EQ(flags & Wanted, Wanted) << std::hex << flags; // 0x20: 64-bit addresses
    EXPECT_NE(Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0u);
    EXPECT_EQ(Headers().FileHeader.TimeDateStamp, 0u);
    EXPECT_EQ(
        At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress)->TimeDateStamp,
        0u);
}

TEST_F(ModuleTest, HasNoSymbolsButARecordThatNamesTheBuild) {
    EXPECT_EQ(Headers().FileHeader.NumberOfSymbols, 0u);
    const IMAGE_DATA_DIRECTORY& directory = Directory(IMAGE_DIRECTORY_ENTRY_DEBUG);
    ASSERT_GE(directory.Size, sizeof(IMAGE_DEBUG_DIRECTORY));
    const auto& entry = *At<IMAGE_DEBUG_DIRECTORY>(directory.VirtualAddress);
    ASSERT_EQ(entry.Type, DWORD{IMAGE_DEBUG_TYPE_CODEVIEW});
    EXPECT_EQ(entry.TimeDateStamp, 0u);
    // "RSDS", 16 bytes of the build's own, an age and the name of a file.
    ASSERT_GE(entry.SizeOfData, 24u);
    const char* record = At<char>(entry.AddressOfRawData);
    EXPECT_EQ(std::string_view(record, 4), "RSDS");
    EXPECT_NE(std::string_view(record + 4, 16), std::string(16, '\0'));
}

TEST_F(ModuleTest, CarriesItsVersion) {
    const std::wstring path = test::ProgramDirectory() + L"VeskSondrel64.dll";
    const DWORD size = ::GetFileVersionInfoSizeW(path.c_str(), nullptr);
    ASSERT_NE(size, 0u);
    std::vector<std::byte> resource(size);
    ASSERT_TRUE(::GetFileVersionInfoW(path.c_str(), 0, size, resource.data()));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    ASSERT_TRUE(::VerQueryValueW(resource.data(), L"\\", reinterpret_cast<void**>(&info), &length));
    unsigned version[4]{};
    ASSERT_EQ(std::sscanf(PROJECT_VERSION, "%u.%u.%u.%u", &version[0], &version[1], &version[2], &version[3]),
              4);
    EXPECT_EQ(info->dwFileVersionMS, version[0] << 16 | version[1]);
    EXPECT_EQ(info->dwFileVersionLS, version[2] << 16 | version[3]);
    EXPECT_EQ(info->dwProductVersionMS, info->dwFileVersionMS);
    EXPECT_EQ(info->dwProductVersionLS, info->dwFileVersionLS);
    const std::pair<const wchar_t*, const wchar_t*> texts[] = {
        {L"FileVersion", L"" PROJECT_VERSION},    {L"ProductVersion", L"" PROJECT_VERSION},
        {L"ProductName", L"VeskSondrel64"},       {L"OriginalFilename", L"VeskSondrel64.dll"},
        {L"StringLayout", L"libstdc++"},          {L"CompanyName", L"" COMPANY_NAME},
        {L"LegalCopyright", L"" LEGAL_COPYRIGHT},
    };
    for (const auto& [name, expected] : texts) {
        const wchar_t* text = nullptr;
        const std::wstring place = std::wstring(L"\\StringFileInfo\\040904B0\\").append(name);
        ASSERT_TRUE(::VerQueryValueW(resource.data(), place.c_str(),
                                     const_cast<void**>(reinterpret_cast<const void**>(&text)), &length));
        EXPECT_STREQ(text, expected) << place;
    }
}

} // namespace
