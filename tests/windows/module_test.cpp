// The DLL as a file: what it exports and imports, and how it was linked.
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <winver.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

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

/// The names of the .def file, in the order of an export directory.
std::vector<std::string> ListedExports() {
    std::ifstream file(EXPORT_LIST_FILE);
    std::vector<std::string> names;
    for (std::string line; std::getline(file, line);) {
        const std::size_t first = line.find_first_not_of(' ');
        if (first != 0 && first != std::string::npos && line[first] != ';') {
            names.push_back(line.substr(first));
        }
    }
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

TEST_F(ModuleTest, ImportsLibrariesOfTheOldestWindowsOnly) {
    // What every Windows from 7 on has in its system directory. Anything newer is looked up at run time.
    const std::set<std::string> everywhere{"advapi32.dll", "bthprops.cpl", "cfgmgr32.dll", "iphlpapi.dll",
                                           "kernel32.dll", "msvcrt.dll",   "ntdll.dll",    "ole32.dll",
                                           "oleaut32.dll", "psapi.dll",    "setupapi.dll", "shell32.dll",
                                           "shlwapi.dll",  "user32.dll",   "version.dll"};
    std::vector<std::string> others;
    const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
    ASSERT_NE(library->Name, 0u);
    for (; library->Name != 0; ++library) {
        std::string name = At<char>(library->Name);
        std::ranges::transform(name, name.begin(),
                               [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        if (!everywhere.contains(name)) {
            others.push_back(name);
        }
    }
    EXPECT_THAT(others, IsEmpty());
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

TEST_F(ModuleTest, CarriesItsVersion) {
    const std::wstring path = test::ProgramDirectory() + L"VeskSondrel64.dll";
    const DWORD size = ::GetFileVersionInfoSizeW(path.c_str(), nullptr);
    ASSERT_NE(size, 0u);
    std::vector<std::byte> resource(size);
    ASSERT_TRUE(::GetFileVersionInfoW(path.c_str(), 0, size, resource.data()));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    ASSERT_TRUE(::VerQueryValueW(resource.data(), L"\\", reinterpret_cast<void**>(&info), &length));
    EXPECT_EQ(info->dwFileVersionMS, 0x00010000u);
    EXPECT_EQ(info->dwFileVersionLS, 0x00020000u);
    EXPECT_EQ(info->dwProductVersionMS, 0x00010000u);
    EXPECT_EQ(info->dwProductVersionLS, 0x00020000u);
}

} // namespace
