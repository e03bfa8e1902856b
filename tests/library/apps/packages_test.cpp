#include "machine_fixture.h"

#include "apps/packages.h"
#include "apps/resource_names.h"
#include "platform/com.h"
#include "unicode/utf.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace {

using namespace testing;
using test::Lines;

const std::string FullName = "Vendor.App_1.2.3.0_x64__abcdefghijklm";
const std::string Start = "GetApplist_UWP Start";
const std::string NotLoaded = "Unable to load AppxManifest.xml";
const std::string Loaded = "AppxManifest.xml was successfully loaded";
const std::string NameEnd = "GetUWPDisplayName End";
const std::string End = "GetApplist_UWP End";

class PackagesTest : public test::MachineTest {
protected:
    PackagesTest() { StartBare(); }

    /// A machine with one package, the members of `package` with its name, and that package's display name.
    std::string NameOf(nlohmann::json package) {
        package["full_name"] = FullName;
        const nlohmann::json all{{"packages", {{"all", nlohmann::json::array({package})}}}};
        StartBare(all.dump());
        return DisplayName();
    }

    static std::string DisplayName() {
        const std::string all = Text(GetApplist_UWP);
        const std::string head = R"([{"application":")" + FullName + R"(","display_name":")";
        EXPECT_THAT(all, AllOf(StartsWith(head), EndsWith("\"}]")));
        return all.substr(head.size(), all.size() - head.size() - 3);
    }

    /// The references that the resolver was asked for.
    [[nodiscard]] std::string Attempts() const {
        std::string attempts;
        for (const CallRecord& call : RecordsOf(Operation::SHLoadIndirectString)) {
            const auto source = unicode::Utf8FromWide(std::get<std::u16string>(call.Input("source")->held));
            const std::string head = "@{" + FullName + "? ";
            EXPECT_THAT(source, AllOf(StartsWith(head), EndsWith("}")));
            attempts += source.substr(head.size(), source.size() - head.size() - 1) + ' ';
        }
        return attempts;
    }
};

TEST_F(PackagesTest, ListsEveryEntryOfTheStoreInItsOrder) {
    EXPECT_EQ(Text(GetApplist_UWP), "[]");
    EXPECT_THAT(DebugLines(), ElementsAre(Start, End));
    StartBare(R"({"packages": {"all": [
        {"full_name": "Vendor.Notes_1_x64__a", "display_name": "My \"Notes\""},
        {"full_name": "Gone_1_x64__b", "installed": false},
        {"full_name": "NoTail", "display_name": "Whole name is the family"}]}})");
    EXPECT_EQ(Text(GetApplist_UWP),
              R"([{"application":"Gone_1_x64__b","display_name":""},)"
              R"({"application":"NoTail","display_name":"Whole name is the family"},)"
              R"({"application":"Vendor.Notes_1_x64__a","display_name":"My "Notes""}])");
    StartBare(R"({"packages": {"supported": false, "all": [{"full_name": "A_1_x64__a"}]}})");
    EXPECT_EQ(Text(GetApplist_UWP), R"([{"application":"A_1_x64__a","display_name":""}])");
    EXPECT_THAT(CallsOf(Operation::CoInitializeEx), IsEmpty());
}

TEST_F(PackagesTest, LooksThePackageUpThroughItsFamilyAndSetsTheParserUp) {
    EXPECT_EQ(NameOf({{"display_name", "Notes"}}), "Notes");
    EXPECT_THAT(
        CallsOf(Operation::GetPackagesByPackageFamily),
        ElementsAre(StartsWith("GetPackagesByPackageFamily family=\"Vendor.App_abcdefghijklm\" count=260 "
                               "length=260 -> 0 count=1 ")));
    const Lines all = Calls();
    const auto first = std::ranges::find_if(
        all, [](const std::string& call) { return call.starts_with("GetPackagePathByFullName "); });
    EXPECT_THAT(Lines(first, all.end()),
                ElementsAre(StartsWith("GetPackagePathByFullName name=\"" + FullName + "\" length=260 -> 0 "),
                            "CoInitializeEx kind=2 -> 0", HasSubstr(" context=1 "),
                            HasSubstr("put_async document=IXMLDOMDocument#"),
                            HasSubstr("put_validateOnParse document=IXMLDOMDocument#"),
                            HasSubstr("put_resolveExternals document=IXMLDOMDocument#"),
                            AllOf(StartsWith("put_preserveWhiteSpace document="), EndsWith(" value=-1 -> 0")),
                            HasSubstr(R"(path="C:\Program Files\WindowsApps\)" + FullName +
                                      R"(\AppxManifest.xml" -> 0 )"),
                            StartsWith("get_xml document=IXMLDOMDocument#"),
                            StartsWith("SHLoadIndirectString source=\"@{" + FullName +
                                       "? ms-resource://Vendor.App/Files/Notes}\""),
                            StartsWith("Release object=IXMLDOMDocument#"), "CoUninitialize",
                            HasSubstr(" index=1 length="), StartsWith("RegCloseKey key=key#")));
    EXPECT_THAT(Lines(first + 3, first + 6), Each(EndsWith(" value=0 -> 0"))); // async, validation, externals
    EXPECT_THAT(DebugLines(), ElementsAre(Start, Loaded, NameEnd, End));
}

TEST_F(PackagesTest, TriesTheReferencesOfAResourceInTheirOrder) {
    struct Case {
        std::string displayName;
        std::string resource; // the one reference that is known, and what it means
        std::string resolved;
        std::string attempts;
    };

    const std::string text(300, 't'); // longer than the 259 characters of a name
    const std::string title = "ms-resource://Vendor.App/resources/Title";
    const std::string other = "ms-resource://Vendor.App/resources/Other.Package/resources/Title";
    const Case cases[] = {
        {"ms-resource:Title", "", "",
         title + " ms-resource://Vendor.App/Title ms-resource://Vendor.AppTitle "},
        {"ms-resource:/Title", "ms-resource://Vendor.App/Title", "Sketch Pad",
         "ms-resource://Vendor.App/resources//Title ms-resource://Vendor.App//Title "
         "ms-resource://Vendor.App/Title "},
        {"ms-resource://Other.Package/resources/Title", other, "First", other + ' '},
        // A text with the short name goes whole, and anything else is a file.
        {title, title, "Title", title + ' '},
        {"Vendor.App", "Vendor.App", text, "Vendor.App "},
        {"vendor.app\\name\\x", "", "", "ms-resource://Vendor.App/Files/vendor.app/name/x "},
        {text, "", "", "ms-resource://Vendor.App/Files/" + text + ' '},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.displayName);
        const std::string& name = each.resolved.empty() ? each.displayName : each.resolved;
        EXPECT_EQ(
            NameOf({{"display_name", each.displayName}, {"resources", {{each.resource, each.resolved}}}}),
            name.substr(0, 259));
        EXPECT_EQ(Attempts(), each.attempts);
    }
    sondrel::PackageText resolved;
    resolved.fill(u'?');
    EXPECT_FALSE(sondrel::LoadResourceDisplayName(u"_1_x64__a", u"ms-resource:Title", resolved));
    EXPECT_EQ(resolved.front(), u'\0');
    EXPECT_THAT(CallsOf(Operation::SHLoadIndirectString).back(),
                HasSubstr("@{_1_x64__a? ms-resource:Title}\""));
}

TEST_F(PackagesTest, SearchesTheManifestFromTheFirstPropertiesOn) {
    using sondrel::ManifestDisplayText;
    EXPECT_EQ(ManifestDisplayText(u"<DisplayName>A</DisplayName><Properties><DisplayName>B</DisplayName>"),
              u"B");
    EXPECT_EQ(ManifestDisplayText(u"<DisplayName>A</DisplayName><!-- pROPERTIES --><DisplayName>B<x>"), u"B");
    EXPECT_EQ(ManifestDisplayText(u"<DisplayName>A</DisplayName><DisplayName>B</DisplayName>"), u"A");
    EXPECT_EQ(ManifestDisplayText(u"<Properties><DisplayName> a &amp; b\r\n"), u" a &amp; b\r\n");
    for (const char16_t* none :
         {u"<Properties><displayname>A<DisplayName x=''>B<uap:DisplayName>C", u"Propertie",
          u"<DisplayName>A<Properties/>", u"<Properties><DisplayName></DisplayName>", u""}) {
        EXPECT_EQ(ManifestDisplayText(none), u"");
    }
    // A long one is read to its end.
    const std::string filler(std::size_t{4} << 20, '<');
    EXPECT_EQ(NameOf({{"manifest", "\xEF\xBB\xBF<p><![CDATA[" + filler +
                                       "]]><Properties><DisplayName>End</DisplayName></Properties></p>"}}),
              "End");
}

TEST_F(PackagesTest, AManifestThatDoesNotLoadGivesNoName) {
    const std::vector<nlohmann::json> broken{nlohmann::json::object(),
                                             {{"manifest", ""}},
                                             {{"manifest", "<a><DisplayName>x</DisplayName></b>"}},
                                             {{"folder", ""}, {"display_name", "x"}},
                                             {{"folder", std::string(260, 'f')}, {"display_name", "x"}}};
    for (const nlohmann::json& package : broken) {
        EXPECT_EQ(NameOf(package), "");
        EXPECT_THAT(DebugLines(), ElementsAre(Start, NotLoaded, NameEnd, End));
        const bool hasFolder = package.value("folder", "some").size() - 1 < 259;
        EXPECT_THAT(CallsOf(Operation::load), SizeIs(hasFolder ? 1 : 0));
        EXPECT_THAT(CallsOf(Operation::put_preserveWhiteSpace), SizeIs(1));
    }
    EXPECT_EQ(NameOf({{"installed", false}}), "");
    EXPECT_THAT(DebugLines(), ElementsAre(Start, End));
}

TEST_F(PackagesTest, EachFailureCostsTheNameAndLeavesItsLines) {
    struct Case {
        Operation call;
        Lines lines;
        std::string name;
    };

    const std::string whole = "Notes of the resources";
    const Case cases[] = {
        {Operation::GetPackagesByPackageFamily, {NotLoaded, NameEnd}, ""},
        {Operation::GetPackagePathByFullName, {NotLoaded, NameEnd}, ""},
        {Operation::CoInitializeEx, {NameEnd}, ""},
        {Operation::CoCreateInstance, {NameEnd}, ""},
        {Operation::put_async, {Loaded, NameEnd}, ""},
        {Operation::put_preserveWhiteSpace, {Loaded, NameEnd}, whole},
        {Operation::load, {NameEnd}, ""},
        {Operation::get_xml, {Loaded, NameEnd}, ""},
        {Operation::SHLoadIndirectString, {Loaded, NameEnd}, "Notes"},
    };
    EXPECT_EQ(
        NameOf({{"display_name", "Notes"}, {"resources", {{"ms-resource://Vendor.App/Files/Notes", whole}}}}),
        whole);
    for (const Case& failing : cases) {
        SCOPED_TRACE(observer::RowOf(failing.call).name);
        std::string name;
        RunFailing(failing.call, 1, Failure::Refused, [&name] { name = DisplayName(); });
        EXPECT_EQ(name, failing.name);
        const Lines lines = DebugLines();
        EXPECT_EQ(Lines(lines.begin() + 1, lines.end() - 1), failing.lines);
    }
    // A thread in a multithreaded apartment gets no names either.
    platform::CoInitializeEx(platform::apartment::Multithreaded);
    ForgetCalls();
    EXPECT_EQ(DisplayName(), "");
    EXPECT_THAT(CallsOf(Operation::CoUninitialize), IsEmpty());
    platform::CoUninitialize();
}

TEST_F(PackagesTest, AFamilyOfAnySizeGivesItsFirstPackage) {
    nlohmann::json all = nlohmann::json::array();
    for (int version = 0; version < 300; ++version) {
        all.push_back({{"full_name", "Vendor.App_" + std::to_string(version) + "_x64__a"},
                       {"in_store", version == 7},
                       {"display_name", "Version " + std::to_string(version)}});
    }
    StartBare(nlohmann::json{{"packages", {{"all", all}}}}.dump());
    EXPECT_EQ(Text(GetApplist_UWP), R"([{"application":"Vendor.App_7_x64__a","display_name":"Version 0"}])");
    EXPECT_THAT(CallsOf(Operation::GetPackagesByPackageFamily),
                ElementsAre(HasSubstr(" count=260 length=260 -> 122 "), HasSubstr(" count=300 ")));
}

} // namespace
