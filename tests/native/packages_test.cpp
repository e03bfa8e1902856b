#include "application_test.h"
#include "apps/packages.h"
#include "apps/resource_names.h"
#include "platform/com.h"

#include <nlohmann/json.hpp>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* FullName = "Vendor.App_1.2.3.0_x64__abcdefghijklm";

class PackagesTest : public test::ApplicationTest {
protected:
    /// A machine with one package, the members of `package` beside its name.
    void StartWith(nlohmann::json package) {
        package["full_name"] = FullName;
        const nlohmann::json all{{"packages", {{"all", nlohmann::json::array({package})}}}};
        StartMachine(all.dump());
    }

    static std::string DisplayName() {
        const std::string all = WideAnswer(GetApplist_UWP);
        const std::string head = std::string(R"([{"application":")") + FullName + R"(","display_name":")";
        EXPECT_EQ(all.substr(0, head.size()), head);
        EXPECT_EQ(all.substr(all.size() - 3), "\"}]");
        return all.substr(head.size(), all.size() - head.size() - 3);
    }

    /// The references that the resolver was asked for.
    [[nodiscard]] std::vector<std::string> Attempts() const {
        std::vector<std::string> attempts;
        for (const std::string& call : CallsOf("SHLoadIndirectString")) {
            const std::string source = call.substr(0, call.rfind(" = "));
            const std::string head = std::string("SHLoadIndirectString @{") + FullName + "? ";
            EXPECT_EQ(source.substr(0, head.size()), head);
            attempts.push_back(source.substr(head.size(), source.size() - head.size() - 1));
        }
        return attempts;
    }
};

TEST_F(PackagesTest, ListsEveryEntryOfTheStoreInItsOrder) {
    EXPECT_EQ(WideAnswer(GetApplist_UWP), "[]");
    EXPECT_THAT(DebugLines(), ElementsAre("GetApplist_UWP Start", "GetApplist_UWP End"));
    StartMachine(R"({"packages": {"all": [
        {"full_name": "Vendor.Notes_1_x64__a", "display_name": "My \"Notes\""},
        {"full_name": "Gone_1_x64__b", "installed": false},
        {"full_name": "NoTail", "display_name": "Whole name is the family"}]}})");
    EXPECT_EQ(WideAnswer(GetApplist_UWP),
              R"([{"application":"Gone_1_x64__b","display_name":""},)"
              R"({"application":"NoTail","display_name":"Whole name is the family"},)"
              R"({"application":"Vendor.Notes_1_x64__a","display_name":"My "Notes""}])");
}

TEST_F(PackagesTest, LooksThePackageUpThroughItsFamilyAndSetsTheParserUp) {
    StartWith({{"display_name", "Notes"}});
    EXPECT_EQ(DisplayName(), "Notes");
    EXPECT_THAT(CallsOf("GetPackagesByPackageFamily"),
                ElementsAre("GetPackagesByPackageFamily Vendor.App_abcdefghijklm room 260 260 = 0"));
    const auto& calls = Calls();
    const auto first = std::ranges::find_if(
        calls, [](const std::string& call) { return call.starts_with("GetPackagePathByFullName"); });
    std::vector<std::string> names;
    for (auto call = first; call != calls.end(); ++call) {
        if (!call->starts_with("Event")) {
            names.push_back(call->substr(0, call->find(" = ")));
        }
    }
    EXPECT_THAT(
        names,
        ElementsAre(
            std::string("GetPackagePathByFullName ") + FullName + " room 260",
            "CoInitializeEx single-threaded", "CoCreateInstance context 1", "put_async false",
            "put_validateOnParse false", "put_resolveExternals false", "put_preserveWhiteSpace true",
            std::string("load C:\\Program Files\\WindowsApps\\") + FullName + "\\AppxManifest.xml", "get_xml",
            std::string("SHLoadIndirectString @{") + FullName + "? ms-resource://Vendor.App/Files/Notes}",
            "Release IXMLDOMDocument", "CoUninitialize", "RegEnumKeyExW 1", "RegCloseKey"));
    EXPECT_THAT(DebugLines(), ElementsAre("GetApplist_UWP Start", "AppxManifest.xml was successfully loaded",
                                          "GetUWPDisplayName End", "GetApplist_UWP End"));
}

TEST_F(PackagesTest, TriesTheReferencesOfAResourceInTheirOrder) {
    StartWith({{"display_name", "ms-resource:AppTitle"}});
    EXPECT_EQ(DisplayName(), "ms-resource:AppTitle");
    EXPECT_THAT(Attempts(),
                ElementsAre("ms-resource://Vendor.App/resources/AppTitle",
                            "ms-resource://Vendor.App/AppTitle", "ms-resource://Vendor.AppAppTitle"));
    StartWith({{"display_name", "ms-resource:/Strings/Title"},
               {"resources", {{"ms-resource://Vendor.App/Strings/Title", "Sketch Pad"}}}});
    EXPECT_EQ(DisplayName(), "Sketch Pad");
    EXPECT_THAT(Attempts(), SizeIs(3));
    StartWith({{"display_name", "ms-resource://Other.Package/resources/Title"},
               {"resources",
                {{"ms-resource://Vendor.App/resources/Other.Package/resources/Title", "First of three"}}}});
    EXPECT_EQ(DisplayName(), "First of three");
    EXPECT_THAT(Attempts(), SizeIs(1));
}

TEST_F(PackagesTest, ATextWithTheShortNameGoesWholeAndAnythingElseIsAFile) {
    StartWith({{"display_name", "ms-resource://Vendor.App/resources/Title"},
               {"resources", {{"ms-resource://Vendor.App/resources/Title", "Title"}}}});
    EXPECT_EQ(DisplayName(), "Title");
    EXPECT_THAT(Attempts(), SizeIs(1));
    StartWith({{"display_name", "vendor.app\\name\\x"}});
    EXPECT_EQ(DisplayName(), "vendor.app\\name\\x");
    EXPECT_THAT(Attempts(), ElementsAre("ms-resource://Vendor.App/Files/vendor.app/name/x"));
    sondrel::PackageText resolved;
    resolved.fill(u'?');
    EXPECT_FALSE(sondrel::LoadResourceDisplayName(u"_1_x64__a", u"ms-resource:Title", resolved));
    EXPECT_EQ(resolved.front(), u'\0');
    EXPECT_THAT(CallsOf("SHLoadIndirectString").back(),
                ::testing::HasSubstr("@{_1_x64__a? ms-resource:Title} = "));
}

TEST_F(PackagesTest, TextsKeepTo259Characters) {
    const std::string text(300, 't');
    StartWith({{"display_name", text}});
    EXPECT_EQ(DisplayName(), text.substr(0, 259));
    EXPECT_THAT(Attempts(), ElementsAre("ms-resource://Vendor.App/Files/" + text));
    StartWith({{"display_name", "Vendor.App"}, {"resources", {{"Vendor.App", text}}}});
    EXPECT_EQ(DisplayName(), text.substr(0, 259));
}

TEST_F(PackagesTest, SearchesTheManifestFromTheFirstPropertiesOn) {
    using sondrel::ManifestDisplayText;
    EXPECT_EQ(ManifestDisplayText(u"<DisplayName>A</DisplayName><Properties><DisplayName>B</DisplayName>"),
              u"B");
    EXPECT_EQ(ManifestDisplayText(u"<DisplayName>A</DisplayName><!-- pROPERTIES --><DisplayName>B<x>"), u"B");
    EXPECT_EQ(ManifestDisplayText(u"<DisplayName>A</DisplayName><DisplayName>B</DisplayName>"), u"A");
    EXPECT_EQ(ManifestDisplayText(u"<Properties><displayname>A<DisplayName x=''>B<uap:DisplayName>C"), u"");
    EXPECT_EQ(ManifestDisplayText(u"<DisplayName>A<Properties/>"), u"");
    EXPECT_EQ(ManifestDisplayText(u"<Properties><DisplayName></DisplayName>"), u"");
    EXPECT_EQ(ManifestDisplayText(u"<Properties><DisplayName> a &amp; b\r\n"), u" a &amp; b\r\n");
    EXPECT_EQ(ManifestDisplayText(u"Propertie"), u"");
    EXPECT_EQ(ManifestDisplayText(u""), u"");
}

TEST_F(PackagesTest, AManifestThatDoesNotLoadGivesNoName) {
    const std::vector<nlohmann::json> broken{nlohmann::json::object(),
                                             {{"manifest", ""}},
                                             {{"manifest", "no markup"}},
                                             {{"manifest", "<a><DisplayName>x</DisplayName></b>"}},
                                             {{"folder", ""}, {"display_name", "x"}},
                                             {{"folder", std::string(260, 'f')}, {"display_name", "x"}}};
    for (const nlohmann::json& package : broken) {
        StartWith(package);
        DebugLines();
        EXPECT_EQ(DisplayName(), "");
        EXPECT_THAT(DebugLines(), ElementsAre("GetApplist_UWP Start", "Unable to load AppxManifest.xml",
                                              "GetUWPDisplayName End", "GetApplist_UWP End"));
    }
    StartWith({{"installed", false}});
    EXPECT_EQ(DisplayName(), "");
    EXPECT_THAT(DebugLines(), ElementsAre("GetApplist_UWP Start", "GetApplist_UWP End"));
}

TEST_F(PackagesTest, AMegabytesLongManifestIsReadToItsEnd) {
    const std::string filler(std::size_t{4} << 20, '<');
    StartWith({{"manifest", "\xEF\xBB\xBF<p><![CDATA[" + filler +
                                "]]><Properties><DisplayName>End</DisplayName></Properties></p>"}});
    EXPECT_EQ(DisplayName(), "End");
}

TEST_F(PackagesTest, EachFailureCostsTheNameAndLeavesItsLines) {
    struct Case {
        const char* call;
        std::vector<std::string> lines;
        std::string name;
    };

    const std::string loaded = "AppxManifest.xml was successfully loaded";
    const std::string end = "GetUWPDisplayName End";
    const std::vector<Case> cases{
        {"GetPackagesByPackageFamily", {"Unable to load AppxManifest.xml", end}, ""},
        {"GetPackagePathByFullName", {"Unable to load AppxManifest.xml", end}, ""},
        {"CoInitializeEx", {end}, ""},
        {"CoCreateInstance", {end}, ""},
        {"put_async", {loaded, end}, ""},
        {"put_preserveWhiteSpace", {loaded, end}, "Notes of the resources"},
        {"load", {end}, ""},
        {"get_xml", {loaded, end}, ""},
        {"SHLoadIndirectString", {loaded, end}, "Notes"},
    };
    for (const Case& failing : cases) {
        SCOPED_TRACE(failing.call);
        StartWith({{"display_name", "Notes"},
                   {"resources", {{"ms-resource://Vendor.App/Files/Notes", "Notes of the resources"}}}});
        TheMachine().gate.KeepHistory(true);
        EXPECT_EQ(DisplayName(), "Notes of the resources");
        std::uint64_t nth = 0;
        for (const machine::Operation operation : TheMachine().gate.History()) {
            ++nth;
            if (machine::RowOf(operation).name == failing.call) {
                break;
            }
        }
        DebugLines();
        TheMachine().gate.Restart({.nth = nth});
        EXPECT_EQ(DisplayName(), failing.name);
        EXPECT_EQ(TheMachine().gate.Injected(), 1u);
        std::vector<std::string> lines = DebugLines();
        EXPECT_THAT(std::vector(lines.begin() + 1, lines.end() - 1), failing.lines);
    }
}

TEST_F(PackagesTest, RunningOutOfMemoryCostsOnePackageItsName) {
    StartWith({{"display_name", "Notes"}, {"manifest_exhausts_memory", true}});
    EXPECT_EQ(DisplayName(), "");
    EXPECT_THAT(DebugLines(),
                ElementsAre("GetApplist_UWP Start", "AppxManifest.xml was successfully loaded",
                            "====================  Exception in Appxmanifest !! ===========================",
                            "GetApplist_UWP End"));
    // Parser and apartment go in this order; then the line, the end of the store, its key and the last line.
    EXPECT_EQ(Calls()[Calls().size() - 6], "Release IXMLDOMDocument");
    EXPECT_EQ(Calls()[Calls().size() - 5], "CoUninitialize");
}

TEST_F(PackagesTest, AThreadInAMultithreadedApartmentGetsNoNames) {
    StartWith({{"display_name", "Notes"}});
    platform::CoInitializeEx(platform::apartment::Multithreaded);
    EXPECT_EQ(DisplayName(), "");
    EXPECT_THAT(CallsOf("CoUninitialize"), IsEmpty());
    platform::CoUninitialize();
    EXPECT_EQ(DisplayName(), "Notes");
}

TEST_F(PackagesTest, AFamilyOfAnySizeGivesItsFirstPackage) {
    nlohmann::json all = nlohmann::json::array();
    for (int version = 0; version < 300; ++version) {
        all.push_back({{"full_name", "Vendor.App_" + std::to_string(version) + "_x64__a"},
                       {"in_store", version == 7},
                       {"display_name", "Version " + std::to_string(version)}});
    }
    StartMachine(nlohmann::json{{"packages", {{"all", all}}}}.dump());
    EXPECT_EQ(WideAnswer(GetApplist_UWP),
              R"([{"application":"Vendor.App_7_x64__a","display_name":"Version 0"}])");
    EXPECT_THAT(CallsOf("GetPackagesByPackageFamily"),
                ElementsAre(::testing::HasSubstr("room 260 260 = 122"), ::testing::HasSubstr("room 300 ")));
}

TEST_F(PackagesTest, AWindowsWithoutPackagesHasEmptyNames) {
    StartMachine(R"({"packages": {"supported": false, "all": [{"full_name": "A_1_x64__a"}]}})");
    EXPECT_EQ(WideAnswer(GetApplist_UWP), R"([{"application":"A_1_x64__a","display_name":""}])");
    EXPECT_THAT(CallsOf("CoInitializeEx"), IsEmpty());
}

} // namespace
