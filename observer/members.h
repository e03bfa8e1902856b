// The members of the structures that cross the boundary, once: they are noted and read back by these lists.
#pragma once

#include "platform/bluetooth.h"
#include "platform/desktop.h"
#include "platform/device_interfaces.h"
#include "platform/files.h"
#include "platform/firmware_variables.h"
#include "platform/network_adapters.h"
#include "platform/processes.h"
#include "platform/system_information.h"
#include "platform/system_power.h"
#include "platform/tracing.h"
#include "platform/wlan.h"
#include "platform/wmi.h"

#include <string_view>
#include <tuple>

namespace observer {

template <class Owner, class T>
struct Member {
    constexpr Member(std::string_view itsName, T Owner::*itsPlace) : name(itsName), at(itsPlace) {}

    std::string_view name;
    T Owner::*at;
};

/// Empty for what is no structure. What a list leaves out is not observed.
template <class T>
inline constexpr auto Members = std::tuple<>();

template <class T>
concept IsStructure = std::tuple_size_v<decltype(Members<T>)>
!= 0;

template <>
inline constexpr auto Members<platform::DeviceInterfaceData> =
    std::tuple(Member("class", &platform::DeviceInterfaceData::interfaceClass),
               Member("flags", &platform::DeviceInterfaceData::flags));

template <>
inline constexpr auto Members<platform::BluetoothDeviceSearch> =
    std::tuple(Member("radio", &platform::BluetoothDeviceSearch::radio),
               Member("authenticated", &platform::BluetoothDeviceSearch::returnAuthenticated),
               Member("remembered", &platform::BluetoothDeviceSearch::returnRemembered),
               Member("unknown", &platform::BluetoothDeviceSearch::returnUnknown),
               Member("connected", &platform::BluetoothDeviceSearch::returnConnected),
               Member("inquiry", &platform::BluetoothDeviceSearch::issueInquiry),
               Member("timeout", &platform::BluetoothDeviceSearch::timeoutMultiplier));

template <>
inline constexpr auto
    Members<platform::NetworkAdapter> = std::tuple(Member("index", &platform::NetworkAdapter::index),
                                                   Member("type", &platform::NetworkAdapter::type));

template <>
inline constexpr auto Members<platform::Luid> = std::tuple(Member("low", &platform::Luid::lowPart),
                                                           Member("high", &platform::Luid::highPart));

template <>
inline constexpr auto Members<platform::OsVersion> =
    std::tuple(Member("size", &platform::OsVersion::infoSize), Member("major", &platform::OsVersion::major),
               Member("minor", &platform::OsVersion::minor), Member("build", &platform::OsVersion::build));

template <>
inline constexpr auto Members<platform::CalendarTime> = std::tuple(
    Member("year", &platform::CalendarTime::year), Member("month", &platform::CalendarTime::month),
    Member("day", &platform::CalendarTime::day), Member("hour", &platform::CalendarTime::hour),
    Member("minute", &platform::CalendarTime::minute), Member("second", &platform::CalendarTime::second));

template <>
inline constexpr auto
    Members<platform::SystemTimes> = std::tuple(Member("idle", &platform::SystemTimes::idle),
                                                Member("kernel", &platform::SystemTimes::kernel),
                                                Member("user", &platform::SystemTimes::user));

template <>
inline constexpr auto Members<platform::SystemPowerStatus> =
    std::tuple(Member("line", &platform::SystemPowerStatus::acLineStatus),
               Member("flag", &platform::SystemPowerStatus::batteryFlag),
               Member("percent", &platform::SystemPowerStatus::batteryLifePercent),
               Member("time", &platform::SystemPowerStatus::batteryLifeTime),
               Member("full_time", &platform::SystemPowerStatus::batteryFullLifeTime));

template <>
inline constexpr auto Members<platform::ProcessTimes> = std::tuple(
    Member("creation", &platform::ProcessTimes::creation), Member("exit", &platform::ProcessTimes::exit),
    Member("kernel", &platform::ProcessTimes::kernel), Member("user", &platform::ProcessTimes::user));

template <>
inline constexpr auto Members<platform::ProcessMemoryCounters> = [] {
    using Counters = platform::ProcessMemoryCounters;
    return std::tuple(Member("size", &Counters::size), Member("page_faults", &Counters::pageFaultCount),
                      Member("peak_working_set", &Counters::peakWorkingSetSize),
                      Member("working_set", &Counters::workingSetSize),
                      Member("peak_paged", &Counters::quotaPeakPagedPoolUsage),
                      Member("paged", &Counters::quotaPagedPoolUsage),
                      Member("peak_nonpaged", &Counters::quotaPeakNonPagedPoolUsage),
                      Member("nonpaged", &Counters::quotaNonPagedPoolUsage),
                      Member("pagefile", &Counters::pagefileUsage),
                      Member("peak_pagefile", &Counters::peakPagefileUsage));
}();

template <>
inline constexpr auto
    Members<platform::TitleBarInfo> = std::tuple(Member("size", &platform::TitleBarInfo::size),
                                                 Member("place", &platform::TitleBarInfo::rectangle),
                                                 Member("states", &platform::TitleBarInfo::states));

template <>
inline constexpr auto Members<platform::EventDescriptor> = std::tuple(
    Member("id", &platform::EventDescriptor::id), Member("version", &platform::EventDescriptor::version),
    Member("channel", &platform::EventDescriptor::channel),
    Member("level", &platform::EventDescriptor::level), Member("opcode", &platform::EventDescriptor::opcode),
    Member("task", &platform::EventDescriptor::task), Member("keyword", &platform::EventDescriptor::keyword));

template <>
inline constexpr auto Members<platform::FileAttributeTag> =
    std::tuple(Member("attributes", &platform::FileAttributeTag::attributes),
               Member("tag", &platform::FileAttributeTag::reparseTag));

template <>
inline constexpr auto Members<platform::ProxyBlanket> =
    std::tuple(Member("authentication", &platform::ProxyBlanket::authenticationService),
               Member("authorization", &platform::ProxyBlanket::authorizationService),
               Member("level", &platform::ProxyBlanket::authenticationLevel),
               Member("impersonation", &platform::ProxyBlanket::impersonationLevel),
               Member("capabilities", &platform::ProxyBlanket::capabilities));

template <>
inline constexpr auto Members<platform::WlanInterface> =
    std::tuple(Member("guid", &platform::WlanInterface::guid),
               Member("description", &platform::WlanInterface::description),
               Member("state", &platform::WlanInterface::state));

template <>
inline constexpr auto
    Members<platform::WlanConnection> = std::tuple(Member("ssid", &platform::WlanConnection::ssid),
                                                   Member("bssid", &platform::WlanConnection::bssid),
                                                   Member("phy", &platform::WlanConnection::phyType));

template <>
inline constexpr auto Members<platform::WlanBssEntry> =
    std::tuple(Member("ssid", &platform::WlanBssEntry::ssid), Member("bssid", &platform::WlanBssEntry::bssid),
               Member("rssi", &platform::WlanBssEntry::rssi),
               Member("elements", &platform::WlanBssEntry::informationElements));

} // namespace observer
