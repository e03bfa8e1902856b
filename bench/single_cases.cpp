// What is asked one thing at a time.
#include "measure.h"

#include "ec/ec_command.h"
#include "vesk_sondrel.h"

#include <benchmark/benchmark.h>

#include <array>

namespace bench {
namespace {

void EcSweep() {
    constexpr std::uint32_t (*Numbers[])() = {Thermal_Read_Cpu_Temperature,
                                              Thermal_Read_BoardTS0L_Temperature,
                                              Thermal_Read_BoardTS0R_Temperature,
                                              Thermal_Read_GpuTS1L_Temperature,
                                              Thermal_Read_GpuTS1R_Temperature,
                                              Thermal_Read_BatteryConnector_Temperature,
                                              Thermal_Read_ACFET_Temperature,
                                              Thermal_Read_ChargerChoke_Temperature,
                                              Thermal_Read_GpuVrm_Temperature,
                                              Thermal_Read_UpCpu_Temperature,
                                              Thermal_Read_GpuVram_Temperature,
                                              Battery_Get_LidStatus,
                                              Battery_Read_ChargingVoltage,
                                              Battery_Read_PackageVoltage,
                                              Battery_Read_Temperature};
    for (const auto read : Numbers) {
        benchmark::DoNotOptimize(read());
    }
    benchmark::DoNotOptimize(Battery_Read_Current());
    char text[44];
    for (const auto read : {Battery_Read_ManufactureDate, Battery_Read_ManufactureName, Thermal_Read_Fan,
                            Battery_Read_CellVoltage}) {
        read(text);
        benchmark::DoNotOptimize(text);
    }
}

template <std::size_t Count>
std::function<void()> EcCommand(std::uint8_t command, std::array<std::uint8_t, Count> data,
                                std::uint8_t readFlag) {
    return [=] {
        std::uint32_t status = 0;
        benchmark::DoNotOptimize(sondrel::RwEcCmd(Count, command, data.data(), readFlag, &status));
    };
}

Case On(const char* machine, std::string name, std::function<void()> go) {
    return {std::move(name), [machine](std::size_t) { return machine::LoadProfile(machine); }, std::move(go)};
}

Case OnDefault(std::string name, std::function<void()> go) {
    return On("default", std::move(name), std::move(go));
}

template <class Character, class... Arguments>
std::function<void()> Text(void (*read)(Character*, Arguments...), Arguments... arguments) {
    return [=] {
        std::array<Character, 4096> out;
        read(out.data(), arguments...);
        benchmark::DoNotOptimize(out);
    };
}

} // namespace

std::vector<Case> SingleCases() {
    constexpr std::uint8_t InitCom = 1;
    return {
        OnDefault("EC command, one byte read", EcCommand<1>(0xBB, {0x10}, 1)),
        OnDefault("EC command, two bytes", EcCommand<2>(0x80, {0x03, 0xA0}, 1)),
        OnDefault("EC command, eight bytes written", EcCommand<8>(0xAB, {1, 2, 3, 4, 5, 6, 7, 255}, 0)),
        On("ab", "EC sweep, map A", EcSweep),
        On("cf", "EC sweep, map B", EcSweep),
        On("default", "EC sweep, map C", EcSweep),
        On("kl-chip-1", "EC sweep, map D", EcSweep),
        OnDefault("battery device", [] { benchmark::DoNotOptimize(Battery_Read_Capacity()); }),
        OnDefault("firmware variable",
                  [] {
                      std::uint8_t uuid[16];
                      benchmark::DoNotOptimize(GPNV_Get_RandomUUID(uuid));
                  }),
        OnDefault("firmware method", [] { WMICheckBatteryHealthSupport(InitCom); }),
        OnDefault("settings file", [] { WMIGetBatteryHealth(InitCom); }),
        OnDefault("sensor document", Text(GetSENSOR_WMI_Data)),
        OnDefault("inventory, one text", Text(WMIGetSN, InitCom)),
        OnDefault("SMART temperatures", Text(WMIGetHDDTemp, InitCom)),
        OnDefault("hardware document", Text(AppList_HardwareConfig)),
    };
}

} // namespace bench
