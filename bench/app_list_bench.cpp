// The application lists against the bare walk of the registry that they come down to.
#include "bench_machine.h"

#include "platform/registry.h"
#include "platform/simulated/machine.h"
#include "platform/simulated/wide_text.h"
#include "vesk_sondrel.h"

#include <benchmark/benchmark.h>

namespace {

using machine::RegistryHive;

constexpr const char16_t* UninstallKey = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
constexpr const char16_t* StoreKey =
    u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications";

std::u16string Numbered(const char* text, std::size_t number) {
    return machine::WideFromUtf8(text + std::to_string(number));
}

void SetText(std::int64_t key, const char16_t* name, std::u16string text) {
    text.push_back(u'\0');
    machine::Current().registry.Set(key, name, platform::value_type::String, std::as_bytes(std::span(text)));
}

/// The default machine with so many applications, which it forgets at the end, instead of its own.
void StartWithApplications(std::size_t count) {
    machine::Profile profile = machine::LoadProfile("default");
    profile.registry = {};
    machine::Start(std::move(profile), ":memory:");
    machine::Store::Transaction whole(machine::Current().store);
    auto& registry = machine::Current().registry;
    const std::int64_t uninstall = registry.Create(RegistryHive::LocalMachine, UninstallKey);
    for (std::size_t number = 0; number < count; ++number) {
        const std::int64_t key = registry.Create(uninstall, Numbered("{application}", number));
        SetText(key, u"DisplayName", Numbered("A usual application ", number));
        SetText(key, u"DisplayVersion", Numbered("1.0.", number));
    }
    whole.Commit();
}

void StartWithPackages(std::size_t count) {
    machine::Profile profile = machine::LoadProfile("default");
    profile.registry = {};
    profile.packages = {};
    for (std::size_t number = 0; number < count; ++number) {
        machine::PackageProfile package;
        package.fullName = Numbered("Vendor.App", number) + u"_1.2.3.0_x64__abcdefghijklm";
        package.folder = u"C:\\Program Files\\WindowsApps\\" + package.fullName;
        package.manifest = u"<Package><Properties><DisplayName>" + Numbered("Application ", number) +
                           u"</DisplayName></Properties></Package>";
        profile.registry.keys.push_back(u"HKLM\\" + (StoreKey + (u'\\' + package.fullName)));
        profile.packages.all.push_back(std::move(package));
    }
    machine::Start(std::move(profile), ":memory:");
}

/// Every call that the document needs, and nothing done with what it gives.
void BareWalk() {
    using namespace platform;
    OwnedKey uninstall;
    RegOpenKeyExW(Key::LocalMachine, UninstallKey, access::KeyRead, uninstall.Receive());
    char16_t name[1024];
    std::byte value[2048];
    for (std::uint32_t index = 0;; ++index) {
        std::uint32_t length = 1024;
        if (RegEnumKeyExW(uninstall.Get(), index, name, length) != error::Success) {
            break;
        }
        OwnedKey application;
        RegOpenKeyExW(Key::LocalMachine, (UninstallKey + (u'\\' + std::u16string(name, length))).c_str(),
                      access::KeyRead, application.Receive());
        for (const char16_t* valueName : {u"DisplayName", u"SystemComponent", u"DisplayVersion"}) {
            std::uint32_t type = 0;
            std::uint32_t size = sizeof value;
            benchmark::DoNotOptimize(RegQueryValueExW(application.Get(), valueName, type, value, size));
        }
    }
}

void ApplicationList(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    StartWithApplications(count);
    std::u16string out(200 * (count + 1), u'\0');
    bench::BestOf bare;
    bench::BestOf library;
    for ([[maybe_unused]] auto iteration : state) {
        bare.Batch(1, BareWalk);
        library.Batch(1, [&out] { GetApplist_x64(out.data()); });
    }
    state.counters["us/application"] = library.Nanoseconds() / 1000 / static_cast<double>(count);
    state.counters["times bare"] = library.Nanoseconds() / bare.Nanoseconds();
}

void PackageList(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    StartWithPackages(count);
    std::u16string out(400 * (count + 1), u'\0');
    bench::BestOf library;
    for ([[maybe_unused]] auto iteration : state) {
        library.Batch(1, [&out] { GetApplist_UWP(out.data()); });
    }
    state.counters["us/package"] = library.Nanoseconds() / 1000 / static_cast<double>(count);
}

BENCHMARK(ApplicationList)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(PackageList)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

} // namespace
