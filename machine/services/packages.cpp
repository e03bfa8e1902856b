#include "platform/packages.h"

#include "machine/machine.h"
#include "machine/models/storage/package_store.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"
#include "platform/com.h"

#include <algorithm>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;
using machine::PackageProfile;
using machine::Utf8FromWide;

namespace {

constexpr SystemError NotFound = 1168; // ERROR_NOT_FOUND
constexpr HResult NoSuchResource = static_cast<HResult>(0x80073B17);

SystemError ListFamily(const char16_t* familyName, std::uint32_t& count, const char16_t** fullNames,
                       std::uint32_t& bufferLength, char16_t* buffer) {
    if (!Current().packages.Supported()) {
        count = 0;
        bufferLength = 0;
        return error::ProcedureNotFound;
    }
    const auto& family = Current().packages.Family(familyName);
    std::size_t needed = 0;
    for (const PackageProfile* package : family) {
        needed += package->fullName.size() + 1;
    }
    const bool fits = count >= family.size() && bufferLength >= needed;
    count = static_cast<std::uint32_t>(family.size());
    bufferLength = static_cast<std::uint32_t>(needed);
    if (!fits) {
        return error::InsufficientBuffer;
    }
    for (const PackageProfile* package : family) {
        *fullNames++ = buffer;
        buffer = std::ranges::copy(package->fullName, buffer).out;
        *buffer++ = u'\0';
    }
    return error::Success;
}

SystemError TellFolder(const char16_t* fullName, std::uint32_t& pathLength, char16_t* path) {
    if (!Current().packages.Supported()) {
        pathLength = 0;
        return error::ProcedureNotFound;
    }
    const PackageProfile* package = Current().packages.Package(fullName);
    if (package == nullptr || package->folder.empty()) {
        return NotFound;
    }
    const std::uint32_t room = pathLength;
    pathLength = static_cast<std::uint32_t>(package->folder.size() + 1);
    if (room < pathLength) {
        return error::InsufficientBuffer;
    }
    *std::ranges::copy(package->folder, path).out = u'\0';
    return error::Success;
}

/// What "@{full name? reference}" stands for; null when it stands for nothing.
const std::u16string* ResourceText(std::u16string_view source) {
    const std::size_t middle = source.find(u"? ");
    if (!source.starts_with(u"@{") || !source.ends_with(u'}') || middle == std::u16string_view::npos) {
        return nullptr;
    }
    const PackageProfile* package = Current().packages.Package(std::u16string(source.substr(2, middle - 2)));
    if (package == nullptr) {
        return nullptr;
    }
    const auto found =
        package->resources.find(std::u16string(source.substr(middle + 2, source.size() - middle - 3)));
    return found == package->resources.end() ? nullptr : &found->second;
}

} // namespace

SystemError GetPackagesByPackageFamily(const char16_t* familyName, std::uint32_t& count,
                                       const char16_t** fullNames, std::uint32_t& bufferLength,
                                       char16_t* buffer) {
    Call call(Operation::GetPackagesByPackageFamily);
    call.Note([&] {
        return Utf8FromWide(familyName) + " room " + std::to_string(count) + ' ' +
               std::to_string(bufferLength);
    });
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    if (call.Emptied()) {
        count = 0;
        bufferLength = 0;
        return call.Answered(error::Success);
    }
    return call.Answered(ListFamily(familyName, count, fullNames, bufferLength, buffer));
}

SystemError GetPackagePathByFullName(const char16_t* fullName, std::uint32_t& pathLength, char16_t* path) {
    Call call(Operation::GetPackagePathByFullName);
    call.Note([&] { return Utf8FromWide(fullName) + " room " + std::to_string(pathLength); });
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    return call.Answered(TellFolder(fullName, pathLength, path));
}

HResult SHLoadIndirectString(const char16_t* source, char16_t* out, std::uint32_t outSize) {
    Call call(Operation::SHLoadIndirectString);
    call.Note([&] { return Utf8FromWide(source); });
    if (call.Refused()) {
        return call.Answered(static_cast<HResult>(call.RefusalCode()));
    }
    const std::u16string* text = call.Emptied() ? nullptr : ResourceText(source);
    if (text == nullptr && !call.Emptied()) {
        return call.Answered(NoSuchResource);
    }
    const std::size_t length = text == nullptr ? 0 : std::min<std::size_t>(text->size(), outSize - 1);
    *std::copy_n(text == nullptr ? u"" : text->data(), length, out) = u'\0';
    return call.Answered(hresult::Ok);
}

} // namespace VESK_BACK_END
