#include "apps/resource_names.h"

#include "platform/com.h"
#include "platform/packages.h"

#include <algorithm>

namespace sondrel {
namespace {

constexpr std::u16string_view ResourceScheme = u"ms-resource:";
constexpr std::u16string_view ResourceSchemeWithHost = u"ms-resource://";

bool Resolve(std::u16string_view fullName, std::u16string_view reference, PackageText& resolved) {
    std::u16string source(u"@{");
    source.append(fullName).append(u"? ").append(reference).append(u"}");
    resolved = {};
    if (platform::SHLoadIndirectString(source.c_str(), resolved.data(), PackageTextSize) !=
        platform::hresult::Ok) {
        resolved = {};
        return false;
    }
    resolved.back() = u'\0';
    return true;
}

std::u16string Reference(std::u16string_view shortName, std::u16string_view infix, std::u16string_view rest) {
    std::u16string reference(ResourceSchemeWithHost);
    reference.append(shortName).append(infix).append(rest);
    return reference;
}

std::u16string_view AfterScheme(std::u16string_view text) {
    if (const std::size_t place = text.find(ResourceSchemeWithHost); place != std::u16string_view::npos) {
        return text.substr(place + ResourceSchemeWithHost.size());
    }
    return text.substr(text.find(ResourceScheme) + ResourceScheme.size());
}

} // namespace

std::u16string_view ShortNameOf(std::u16string_view fullName) {
    return fullName.substr(0, fullName.find(u'_'));
}

bool LoadResourceDisplayName(std::u16string_view fullName, std::u16string_view text, PackageText& resolved) {
    const std::u16string_view shortName = ShortNameOf(fullName);
    if (text.find(shortName) != std::u16string_view::npos) { // also if the short name is empty
        return Resolve(fullName, text, resolved);
    }
    if (text.find(ResourceScheme) != std::u16string_view::npos) {
        const std::u16string_view rest = AfterScheme(text);
        return std::ranges::any_of(std::array{u"/resources/", u"/", u""}, [&](std::u16string_view infix) {
            return Resolve(fullName, Reference(shortName, infix, rest), resolved);
        });
    }
    std::u16string file(text);
    std::ranges::replace(file, u'\\', u'/');
    return Resolve(fullName, Reference(shortName, u"/Files/", file), resolved);
}

} // namespace sondrel
