// Generated from exports/exports.json by exports/generate.py.
// The groups of exports, and the ways in which exports are called.
#pragma once

#include <cstddef>
#include <cstdint>

namespace exports {

/// In the order of the header.
enum class Group : std::uint8_t {
    Session,
    Identity,
    Battery,
    BatteryEc,
    Thermal,
    Processor,
    FirmwareLog,
    FirmwareVariables,
    Features,
    Inventory,
    Adapters,
    Wifi,
    Bluetooth,
    System,
    Applications,
    Versions,
    Usage,
    Count
};

enum class Signature : std::uint8_t {
    NoResult, // void()
    Int32, // int32_t()
    Uint32, // uint32_t()
    Float, // float()
    Double, // double()
    String, // std::string()
    NarrowText, // void(char*)
    WideText, // void(VeskChar16*)
    WideTextCom, // void(VeskChar16*, uint8_t)
    Int32Com, // int32_t(uint8_t)
    SetInt32Com, // int32_t(int32_t, uint8_t)
    SetUint8Com, // int32_t(uint8_t, uint8_t)
    SetWideTextCom, // int32_t(const VeskChar16*, uint8_t)
    ReadBytes, // uint32_t(uint8_t*)
    WriteBytes, // uint32_t(const uint8_t*)
    Registers, // void(uint32_t, uint32_t*, uint32_t*, uint32_t*, uint32_t*)
    Uint32OfUint32, // uint32_t(uint32_t)
    Count
};

inline constexpr std::size_t ExportCount = 114;

} // namespace exports
