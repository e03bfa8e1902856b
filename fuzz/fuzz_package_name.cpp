// A package's full name (the input's first line) and its manifest (the others): whatever it contains, the
// package has one record, with a display name that fits its buffer.
#include "harness.h"

#include "apps/packages.h"
#include "machine/models/storage/package_store.h"
#include "unicode/utf.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text =
        unicode::WideFromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    const std::size_t line = std::min(text.find(u'\n'), text.size());
    const std::u16string fullName = text.substr(0, line).c_str();
    const std::u16string manifest = text.substr(std::min(line + 1, text.size()));

    const std::u16string_view shown = sondrel::ManifestDisplayText(manifest);
    fuzz::Demand(shown.find(u'<') == shown.npos && shown.size() <= manifest.size());

    machine::PackagesProfile packages;
    packages.all.resize(1);
    packages.all[0].fullName = fullName;
    packages.all[0].folder = u"C:\\" + fullName;
    packages.all[0].manifest = manifest;
    packages.all[0].resources[u"ms-resource://Vendor.App/resources/Name"] = std::u16string(300, u'n');
    packages.all[0].resources[u"ms-resource://Vendor.App/Files/Images/Name"] = u"file";
    fuzz::TheMachine().packages = machine::PackageStore(packages);
    const std::u16string record = sondrel::GetUWPDisplayName(fullName);
    const std::u16string head = u"{\"application\":\"" + fullName + u"\",\"display_name\":\"";
    fuzz::Demand(record.starts_with(head) && record.ends_with(u"\"}"));
    fuzz::Demand(record.size() <= head.size() + 259 + 2);
    fuzz::TheMachine().packages = machine::PackageStore({});
    fuzz::DemandNothingOpen();
    return 0;
}
