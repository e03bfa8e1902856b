// The C++ binding on a library whose answers the test chooses.
//
//   bindings_test LIBRARY ANSWERS
#include "double_control.h"

#include <vesk_sondrel.hpp>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>

namespace {

int failures = 0;

void Expect(const std::string& what, const std::string& expected, const std::string& found) {
    if (expected != found) {
        std::cout << what << ": expected " << expected << ", found " << found << '\n';
        ++failures;
    }
}

/// The functions that the double has besides the exports.
struct Controls {
    decltype(&Double_Set) set = nullptr;
    decltype(&Double_SetAll) setAll = nullptr;
    decltype(&Double_Called) called = nullptr;
    decltype(&Double_All) all = nullptr;
    decltype(&Double_Size) size = nullptr;
    decltype(&Double_Argument) argument = nullptr;
    decltype(&Double_Reset) reset = nullptr;
};

Controls ControlsOf(const vesk::PathChar* path) {
    const vesk::detail::Handle handle = vesk::detail::open_library(path);
    Controls found;
    const bool all = vesk::detail::find_export(handle, "Double_Set", found.set) &&
                     vesk::detail::find_export(handle, "Double_SetAll", found.setAll) &&
                     vesk::detail::find_export(handle, "Double_Called", found.called) &&
                     vesk::detail::find_export(handle, "Double_All", found.all) &&
                     vesk::detail::find_export(handle, "Double_Size", found.size) &&
                     vesk::detail::find_export(handle, "Double_Argument", found.argument) &&
                     vesk::detail::find_export(handle, "Double_Reset", found.reset);
    if (!all) {
        std::cout << "the library is not the double\n";
        std::exit(2);
    }
    return found;
}

template <class T>
std::string Shown(const T& value);

template <class T>
std::string ShownElement(const vesk::Result<T>& element) {
    return element ? Shown(*element) : std::string("[") + to_string(element.state()) + "]";
}

template <class T>
std::string ShownElement(const T& element) {
    return Shown(element);
}

std::string ShownChoice(vesk::PowerSource value) {
    return value == vesk::PowerSource::ac ? "ac" : value == vesk::PowerSource::battery ? "battery" : "?";
}

std::string ShownChoice(vesk::QuietFanSupport value) {
    return value == vesk::QuietFanSupport::on ? "on" : value == vesk::QuietFanSupport::off ? "off" : "?";
}

template <class T>
struct IsVector : std::false_type {};

template <class T>
struct IsVector<std::vector<T>> : std::true_type {};

template <class T>
struct IsArray : std::false_type {};

template <std::size_t Size>
struct IsArray<std::array<std::uint8_t, Size>> : std::true_type {};

template <class T>
std::string Shown(const T& value) {
    std::ostringstream text;
    if constexpr (std::is_same_v<T, bool>) {
        text << (value ? "true" : "false");
    } else if constexpr (std::is_enum_v<T>) {
        text << ShownChoice(value);
    } else if constexpr (std::is_arithmetic_v<T>) {
        text << value;
    } else if constexpr (vesk::detail::IsQuantity<T>::value) {
        text << value.value;
    } else if constexpr (std::is_same_v<T, vesk::Disk>) {
        text << vesk::utf8(value.model) << ',' << ShownElement(value.size) << ','
             << ShownElement(value.media_type);
    } else if constexpr (IsVector<T>::value) {
        const char* separator = "";
        for (const auto& element : value) {
            text << separator << ShownElement(element);
            separator = "|";
        }
    } else if constexpr (IsArray<T>::value) {
        for (const std::uint8_t byte : value) {
            text << "0123456789abcdef"[byte >> 4] << "0123456789abcdef"[byte & 0xF];
        }
    } else {
        text << vesk::utf8(value);
    }
    return text.str();
}

/// State and value of one reading, by the name of its export.
std::string Read(const vesk::Readings& readings, const std::string& name) {
    std::string found = "no such reading";
    vesk::for_each_reading(readings, [&](const vesk::ReadingInfo& info, const auto& result) {
        if (info.export_name == name) {
            found = std::string(to_string(result.state())) + ' ' + (result ? Shown(*result) : "");
        }
    });
    return found;
}

void TestAnswers(const vesk::Library& library, const Controls& controls, const char* file) {
    std::ifstream rows(file, std::ios::binary);
    int count = 0;
    for (std::string row; std::getline(rows, row);) {
        if (row.empty() || row[0] == '#') {
            continue;
        }
        std::istringstream columns(row);
        std::string name, session, answer, state, value;
        std::getline(columns, name, '\t');
        std::getline(columns, session, '\t');
        std::getline(columns, answer, '\t');
        std::getline(columns, state, '\t');
        std::getline(columns, value, '\0');
        controls.reset();
        controls.set("InitializeSondrel", "number 1");
        controls.set(name.c_str(), answer.c_str());
        std::string found;
        if (session == "yes") {
            const auto opened = library.open_session();
            found = Read(opened.value(), name);
        } else {
            found = Read(library, name);
        }
        Expect(name + " <- " + answer, state + ' ' + value, found);
        ++count;
    }
    std::cout << count << " answers\n";
    Expect("rows of the table", "true", count > 80 ? "true" : "false");
}

std::set<std::string> Words(const char* text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// Each export is reached, and with the arguments that were given.
void TestEveryExport(const vesk::Library& library, const Controls& controls) {
    controls.reset();
    controls.set("InitializeSondrel", "number 1");
    {
        const auto session = library.open_session();
        vesk::for_each_reading(*session, [](const vesk::ReadingInfo&, const auto&) {});
        (void)session->processor().cpuid(0x80000002);
        (void)session->inventory().add_one(41);
        std::array<std::uint8_t, 16> uuid{1, 2};
        (void)session->firmware_variables().set_random_uuid(uuid);
        (void)session->firmware_variables().set_activated_time({});
        (void)session->firmware_variables().set_manufactured_time({});
        (void)session->features().set_battery_health(-80);
        (void)session->features().set_quiet_fan(3, vesk::Com::entered);
        const vesk::String path = {'C', ':'};
        (void)session->features().set_app_path(path.c_str());
    }
    const std::set<std::string> called = Words(controls.called()), all = Words(controls.all());
    for (const std::string& name : all) {
        Expect(name, "called", called.count(name) == 1 ? "called" : "not called");
    }
    std::cout << called.size() << " of " << all.size() << " exports\n";
    Expect("number of exports", "114", std::to_string(all.size()));
    Expect("leaf", std::to_string(0x80000002u), controls.argument("CPU_ReadCpuId", "leaf"));
    Expect("value", "41", controls.argument("wmiadd", "value"));
    Expect("bytes", "0102" + std::string(28, '0'), controls.argument("GPNV_Set_RandomUUID", "bytes"));
    Expect("number", "-80", controls.argument("WMISetBatteryHealth", "value"));
    Expect("COM entered by the call", "1", controls.argument("WMISetBatteryHealth", "initCom"));
    Expect("COM entered by the caller", "0", controls.argument("WMISetQuietFan", "initCom"));
    Expect("path", "0043003a", controls.argument("WMISetAppPath", "path"));
    Expect("COM of a reading", "1", controls.argument("WMIGetSN", "initCom"));
}

std::size_t Length(const vesk::String& text) {
    return text.size();
}

template <class T>
std::size_t Length(const std::vector<T>& list) {
    if constexpr (std::is_same_v<T, vesk::String>) {
        return list.size() == 1 ? list[0].size() : 0;
    }
    return 0;
}

/// A string that fills the buffer that the header promises arrives whole.
void TestFullBuffers(const vesk::Library& library, const Controls& controls) {
    controls.reset();
    controls.setAll("full");
    int count = 0;
    vesk::for_each_reading(library, [&](const vesk::ReadingInfo& info, const auto& result) {
        using T = typename std::decay_t<decltype(result)>::value_type;
        if constexpr (std::is_same_v<T, vesk::String> || std::is_same_v<T, std::vector<vesk::String>>) {
            const int size = controls.size(info.export_name);
            Expect(info.export_name, std::to_string(size - 1), std::to_string(result ? Length(*result) : 0));
            ++count;
        }
    });
    std::cout << count << " full buffers\n";
    Expect("full buffers", "true", count > 35 ? "true" : "false");
}

void TestResults(const vesk::Library& library, const Controls& controls) {
    controls.reset();
    Expect("session refused", "the driver's device is missing or refused to open",
           library.open_session().failure().meaning());

    controls.set("GPNV_Get_RandomUUID", "number 1314");
    const auto uuid = library.firmware_variables().random_uuid();
    Expect("code of a reading", "1314", std::to_string(uuid.failure().code()));
    controls.set("GPNV_Set_RandomUUID", "number 5");
    const auto set = library.firmware_variables().set_random_uuid({});
    Expect("code of a setter", "failed 5",
           std::string(to_string(set.state())) + ' ' + std::to_string(set.failure().code()));
    controls.set("GPNV_Set_RandomUUID", "number 0");
    Expect("setter", "ok", to_string(library.firmware_variables().set_random_uuid({}).state()));
    controls.set("WMISetBatteryHealth", "number 1");
    Expect("feature set", "ok", to_string(library.features().set_battery_health(80).state()));
    controls.set("WMISetBatteryHealth", "number 0");
    Expect("feature not set", "failed", to_string(library.features().set_battery_health(80).state()));

    controls.set("CPU_ReadCpuId", "number 1 2 3 4294967295");
    const auto leaf = library.processor().cpuid(0);
    Expect("registers", "1 4294967295", std::to_string(leaf->eax) + ' ' + std::to_string(leaf->edx));
    controls.set("CPU_ReadCpuId", "number 0 0 0 0");
    Expect("refused leaf", "failed", to_string(library.processor().cpuid(0).state()));
    controls.set("CPU_ReadCpuId", "untouched");
    Expect("leaf without a session", "no_session", to_string(library.processor().cpuid(0).state()));

    controls.set("Battery_Read_CapacityPercentage", "number 0");
    const auto charge = library.battery().charge();
    Expect("note", "empty, or no battery", charge.note());
    Expect("unit", "%", charge->unit());
    controls.set("Battery_Read_DesignedCapacity", "number 0");
    const auto capacity = library.battery().designed_capacity();
    Expect("first state", "absent", to_string(capacity.failure().state()));
    Expect("other state", "true", capacity.failure().could_be(vesk::State::failed) ? "true" : "false");
    Expect("no such state", "false", capacity.failure().could_be(vesk::State::not_read) ? "true" : "false");
    Expect("value_or", "7",
           std::to_string(
               capacity.value_or(vesk::Quantity<vesk::unit::milliwatt_hours, std::uint32_t>{7}).value));
#if VESK_SONDREL_EXCEPTIONS
    try {
        (void)capacity.value();
        Expect("value() without a value", "thrown", "returned");
    } catch (const vesk::ReadingError& error) {
        Expect("what()", "Battery_Read_DesignedCapacity: no battery, or the device does not give this value",
               error.what());
    }
    try {
        (void)vesk::Library::load(
#ifdef _WIN32
            L"C:\\nowhere\\nothing.dll"
#else
            "/nowhere/nothing.so"
#endif
        );
        Expect("load()", "thrown", "returned");
    } catch (const vesk::LoadError& error) {
        Expect("the message names the file", "true",
               std::string(error.what()).find("nothing") != std::string::npos ? "true" : "false");
    }
#endif
}

/// Each opened session is closed once, moved or not, and the library stays as long as one is there.
void TestSessions(const vesk::PathChar* path, const Controls& controls) {
    controls.reset();
    controls.set("InitializeSondrel", "number 1");
    controls.set("Thermal_Read_Cpu_Temperature", "number 50");
    {
        std::optional<vesk::Session> moved;
        {
            const vesk::Library library = vesk::Library::load(path);
            vesk::Session first = library.open_session().value();
            moved.emplace(std::move(first));
            *moved = library.open_session().value();
            Expect("a closed session", "1",
                   std::to_string(Words(controls.called()).count("ShutdownSondrel")));
        }
        Expect("reading after the library object", "50",
               std::to_string(moved->thermal().cpu_temperature()->value));
        controls.reset();
    }
    Expect("the last session is closed", "1",
           std::to_string(Words(controls.called()).count("ShutdownSondrel")));
}

int Run(const vesk::PathChar* path, const char* answers) {
    const Controls controls = ControlsOf(path);
    const vesk::Library library = vesk::Library::load(path);
    TestAnswers(library, controls, answers);
    TestEveryExport(library, controls);
    TestFullBuffers(library, controls);
    TestResults(library, controls);
    TestSessions(path, controls);
    std::cout << (failures == 0 ? "all as expected\n" : "") << failures << " failures\n";
    return failures == 0 ? 0 : 1;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cout << "usage: bindings_test LIBRARY ANSWERS\n";
        return 2;
    }
    const std::string path = arguments[1];
    return Run(std::basic_string<vesk::PathChar>(path.begin(), path.end()).c_str(), arguments[2]);
}
