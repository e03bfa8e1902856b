// Packages with real manifests on disk and the real parser; the package store, the resolver and the device list,
// which this Windows lacks, are the test's.
#include "import_patch.h"
#include "library.h"
#include "registry_stand.h"

#include <gtest/gtest.h>

#include <cfgmgr32.h>
#include <objbase.h>

#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

using test::TextValue;

constexpr const wchar_t* StoreKey =
    L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications";
constexpr const wchar_t* FullName = L"Vendor.App_1.2.3.0_x64__abcdefghijklm";

// What the replaced functions answer with.
std::vector<std::wstring> Installed;
std::wstring PackageFolder;
std::vector<std::wstring> Sources;
std::wstring ResolvedSource;

LONG WINAPI PackagesByFamily(PCWSTR family, UINT32* count, PWSTR* names, UINT32* length, WCHAR* buffer) {
    EXPECT_TRUE(std::wstring_view(family) == L"Vendor.App_abcdefghijklm" ||
                std::wstring_view(family) == L"F3A1C07E.VESKBrisenda_r4wkp8tz2yhnc");
    std::size_t needed = 0;
    for (const std::wstring& name : Installed) {
        needed += name.size() + 1;
    }
    const bool fits = *count >= Installed.size() && *length >= needed;
    *count = static_cast<UINT32>(Installed.size());
    *length = static_cast<UINT32>(needed);
    if (!fits) {
        return ERROR_INSUFFICIENT_BUFFER;
    }
    for (const std::wstring& name : Installed) {
        *names++ = buffer;
        buffer += name.copy(buffer, name.size());
        *buffer++ = L'\0';
    }
    return ERROR_SUCCESS;
}

LONG WINAPI PathByFullName(PCWSTR fullName, UINT32* length, PWSTR path) {
    if (fullName != Installed.front() || *length <= PackageFolder.size()) {
        return ERROR_NOT_FOUND;
    }
    path[PackageFolder.copy(path, PackageFolder.size())] = L'\0';
    return ERROR_SUCCESS;
}

HRESULT WINAPI LoadIndirectString(PCWSTR source, PWSTR out, UINT size, void**) {
    Sources.emplace_back(source);
    if (source != ResolvedSource) {
        return E_FAIL;
    }
    constexpr std::wstring_view Text = L"Sketch Pad";
    EXPECT_EQ(size, 260u);
    out[Text.copy(out, Text.size())] = L'\0';
    return S_OK;
}

class PackagesTest : public ::testing::Test {
protected:
    PackagesTest() {
        Installed = {FullName};
        PackageFolder = std::filesystem::temp_directory_path() / L"Vesk Manifest \u00FC";
        std::filesystem::create_directories(PackageFolder);
        Sources.clear();
        ResolvedSource.clear();
        m_store.Set(L"", TextValue(L""), FullName);
        m_patch.ReplaceRoutine("GetPackagesByPackageFamily", &PackagesByFamily);
        m_patch.ReplaceRoutine("GetPackagePathByFullName", &PathByFullName);
        m_patch.Replace("SHLoadIndirectString", &LoadIndirectString);
    }

    ~PackagesTest() override { std::filesystem::remove_all(PackageFolder); }

    std::wstring Answer(const char* name) {
        std::wstring buffer(1 << 12, L'?');
        m_library.Export<void(wchar_t*)>(name)(buffer.data());
        return buffer.c_str();
    }

    std::wstring DisplayNameOf(std::string_view manifest) {
        std::ofstream(std::filesystem::path(PackageFolder) / L"AppxManifest.xml", std::ios::binary)
            << manifest;
        const std::wstring all = Answer("GetApplist_UWP");
        const std::wstring head = std::wstring(LR"([{"application":")") + FullName + LR"(","display_name":")";
        EXPECT_EQ(all.substr(0, head.size()), head);
        return all.substr(head.size(), all.size() - head.size() - 3);
    }

    test::RegistryStand m_store{StoreKey};
    test::Library m_library;
    test::ImportPatch m_patch{m_library.Module()};
};

TEST_F(PackagesTest, TheParserGivesTheManifestsTextAsItStands) {
    EXPECT_EQ(
        DisplayNameOf("\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\r\n<Package>\r\n  <Properties>\r\n"
                      "    <DisplayName> Notes &amp; \xC3\xBC </DisplayName>\r\n  </Properties></Package>"),
        L" Notes &amp; \u00FC ");
    EXPECT_EQ(
        DisplayNameOf(
            "<p><DisplayName>early</DisplayName><!-- properties --><DisplayName>late</DisplayName></p>"),
        L"late");
    EXPECT_EQ(DisplayNameOf("<p><Properties/><d:DisplayName xmlns:d='u'>x</d:DisplayName></p>"), L"");
    EXPECT_EQ(DisplayNameOf("<p><Properties><DisplayName>" + std::string(300, 't') +
                            "</DisplayName></Properties></p>"),
              std::wstring(259, L't'));
    EXPECT_EQ(DisplayNameOf("<p><!-- " + std::string(3 << 20, 'x') +
                            " --><Properties><DisplayName>End</DisplayName></Properties></p>"),
              L"End");
}

TEST_F(PackagesTest, AManifestThatDoesNotLoadGivesNoName) {
    EXPECT_EQ(DisplayNameOf(""), L"");
    EXPECT_EQ(DisplayNameOf("no markup"), L"");
    EXPECT_EQ(DisplayNameOf("<p><DisplayName>x</DisplayName></q>"), L"");
    PackageFolder += L" (gone)";
    EXPECT_EQ(Answer("GetApplist_UWP"),
              std::wstring(LR"([{"application":")") + FullName + LR"(","display_name":""}])");
    EXPECT_TRUE(Sources.empty());
    Installed.clear();
    EXPECT_EQ(Answer("GetApplist_UWP"),
              std::wstring(LR"([{"application":")") + FullName + LR"(","display_name":""}])");
}

TEST_F(PackagesTest, ReferencesReachTheResolverInTheirOrder) {
    constexpr const char* Manifest =
        "<p><Properties><DisplayName>ms-resource:AppTitle</DisplayName></Properties></p>";
    EXPECT_EQ(DisplayNameOf(Manifest), L"ms-resource:AppTitle");
    const std::wstring head = std::wstring(L"@{") + FullName + L"? ms-resource://Vendor.App";
    EXPECT_EQ(Sources, (std::vector<std::wstring>{head + L"/resources/AppTitle}", head + L"/AppTitle}",
                                                  head + L"AppTitle}"}));
    ResolvedSource = head + L"/AppTitle}";
    EXPECT_EQ(DisplayNameOf(Manifest), L"Sketch Pad");
}

TEST_F(PackagesTest, AThreadInAMultithreadedApartmentGetsNoNames) {
    constexpr const char* Manifest = "<p><Properties><DisplayName>Notes</DisplayName></Properties></p>";
    EXPECT_EQ(DisplayNameOf(Manifest), L"Notes");
    ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK); // the library has left its own
    EXPECT_EQ(DisplayNameOf(Manifest), L"");
    ::CoUninitialize();
}

TEST_F(PackagesTest, TheAssistantsVersionIsTheSecondFieldOfTheFirstName) {
    Installed = {L"F3A1C07E.VESKBrisenda_2.3.41.0_x64__r4wkp8tz2yhnc",
                 L"F3A1C07E.VESKBrisenda_9_x64__r4wkp8tz2yhnc"};
    EXPECT_EQ(Answer("GetUWPVersion"), L"2.3.41.0");
    Installed = {L"Nameonly"};
    EXPECT_EQ(Answer("GetUWPVersion").substr(0, 2), L"??");
}

// A device list of three, of which the second vanishes before it is asked.
constexpr std::wstring_view DeviceIds{L"A\0B\0C\0", 7};

CONFIGRET WINAPI ListSize(PULONG length, PCWSTR, ULONG flags) {
    EXPECT_EQ(flags, 256u);
    *length = static_cast<ULONG>(DeviceIds.size());
    return CR_SUCCESS;
}

CONFIGRET WINAPI List(PCWSTR, PZZWSTR list, ULONG length, ULONG) {
    EXPECT_EQ(length, DeviceIds.size());
    DeviceIds.copy(list, length);
    return CR_SUCCESS;
}

CONFIGRET WINAPI Locate(PDEVINST node, DEVINSTID_W id, ULONG flags) {
    EXPECT_EQ(flags, 1u);
    *node = static_cast<DEVINST>(*id);
    return *id == L'B' ? CR_NO_SUCH_DEVNODE : CR_SUCCESS;
}

CONFIGRET WINAPI Property(DEVINST node, ULONG property, PULONG, PVOID out, PULONG size, ULONG) {
    EXPECT_EQ(*size, 8192u);
    const std::wstring text = property == 1 ? L"Vesk Kelvane" : node == 'A' ? L"{c}\\0001" : L"{c}\\0002";
    *size = static_cast<ULONG>((text.size() + 1) * sizeof(wchar_t));
    std::memcpy(out, text.c_str(), *size);
    return CR_SUCCESS;
}

TEST_F(PackagesTest, TheDriversVersionComesFromTheLastDeviceOfItsName) {
    test::RegistryStand drivers(L"SYSTEM\\ControlSet001\\Control\\Class\\{c}");
    drivers.Set(L"DriverVersion", TextValue(L"1.0"), L"0001");
    drivers.Set(L"DriverVersion", TextValue(L"1.4.0.7"), L"0002");
    EXPECT_EQ(Answer("GetInfVersion"), L""); // this Windows lists no devices
    m_patch.Replace("CM_Get_Device_ID_List_SizeW", &ListSize);
    m_patch.Replace("CM_Get_Device_ID_ListW", &List);
    m_patch.Replace("CM_Locate_DevNodeW", &Locate);
    m_patch.Replace("CM_Get_DevNode_Registry_PropertyW", &Property);
    EXPECT_EQ(Answer("GetInfVersion"), L"1.4.0.7");
}

} // namespace
