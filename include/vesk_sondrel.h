/**
 * @file
 * VeskSondrel64: the hardware and system data collector.
 *
 * A host loads the library at run time (VeskSondrel64.dll on Windows, libVeskSondrel64.so with the simulated
 * machine) and calls its exports. Each export returns one reading of the machine: a number, a string or a
 * JSON document, the latter two in a buffer of the host. The comment of a group says what its exports have in
 * common.
 *
 * Conventions
 *
 *     Session    Exports that use the embedded controller (EC) or the processor need a driver session: call
 *                InitializeSondrel first and ShutdownSondrel last. All others work without one.
 *     Sentinels  0x7FFFFFFF (VESK_READ_FAILED)      an EC command or a radio read failed
 *                0                                  the machine's family has no such EC reading
 *                -1 and the empty string            a WMI read failed
 *                -1000 (VESK_RADIO_NOT_READ)        a radio field that no read has set; as a string "init_string"
 *                "error_string"                     a failed radio read, as a string
 *     Failure    The result when the reading failed. The cause is only in the debug log, and for WMI also in the
 *                event log.
 *     Absent     The result when the machine has no such reading.
 *     Buffers    A string is written whole, with its terminator. There is no size argument: the comment of each
 *                export gives the buffer size that the host has to provide, terminator included, in characters
 *                for wide strings (VeskChar16, UTF-16) and in bytes for narrow strings (char, UTF-8). A pointer
 *                may be null only where the comment says so.
 *     initCom    Byte argument of the exports that use COM. Not 0: the call enters the multithreaded apartment
 *                and leaves it again, and fails on a thread that is in a single-threaded one. 0: the calling
 *                thread is in an apartment of either kind already, and the call does not leave it.
 *     Threads    Exports run on the caller's thread; the library starts none. Calls that share state must not
 *                overlap: those of the session; GetEEPROM_Data and GetSENSOR_WMI_Data with each other and with
 *                themselves; WMIGetHDDTemp with itself. The first Wi-Fi and the first Bluetooth read are locked:
 *                threads that call at the same time get one complete snapshot. EC readings of several commands
 *                are not atomic: two threads that read the EC at the same time can corrupt each other's results.
 *     Blocking   An EC command or another driver request takes as long as the driver takes, usually well below a
 *                millisecond; a WMI query takes as long as WMI takes, without a limit. Where an export waits, its
 *                comment gives the time. "The identity" selects the EC readings of a machine: up to three
 *                registry reads, or up to four EC commands while it is not stored in the registry yet. An EC that
 *                cannot be identified has no register map: those readings are then 0.
 *     Unloading  The library stays loaded from its first debug line on, which nearly every export writes: the
 *                trace provider is never unregistered, so the module is pinned. FreeLibrary then does nothing, and
 *                loading the library again gives no new Wi-Fi, Bluetooth or disk temperature record: only a new
 *                process does.
 *     Errors     No exception leaves an export. Running out of memory is a failure like any other: the result is
 *                the export's failure value, or its document without content.
 */
#ifndef VESK_SONDREL_H
#define VESK_SONDREL_H

#include <stdint.h>

#ifdef __cplusplus
#include <string>
#endif

/* On Windows the .def file lists the exports; elsewhere an exported name has to be visible. */
#if defined(__GNUC__) && !defined(_WIN32)
#define VESK_API __attribute__((visibility("default")))
#else
#define VESK_API
#endif

#if defined(_WIN32)
#include <stddef.h>
/** A character of a wide string: UTF-16, 16 bits on every platform, whatever the size of wchar_t. */
typedef wchar_t VeskChar16;
#elif defined(__cplusplus)
/** A character of a wide string: UTF-16, 16 bits on every platform, whatever the size of wchar_t. */
typedef char16_t VeskChar16;
#else
#include <uchar.h>
/** A character of a wide string: UTF-16, 16 bits on every platform, whatever the size of wchar_t. */
typedef char16_t VeskChar16;
#endif

/**
 * @defgroup strings Strings of C++
 *
 * RF_PhyMode and RF_BTConnectedType return a std::string by value. They can be called where host and library
 * agree on the layout of that object and on the heap of its block. Everywhere else a program that uses one of
 * the two does not compile, and the error names what to do; including this header always compiles.
 * @{
 */

/** Host and library are built by one compiler with the same settings. */
#define VESK_STRING_LAYOUT_SAME_COMPILER 0

/**
 * The kits windows-mingw and linux: hosts of libstdc++ with its C++11 string class (_GLIBCXX_USE_CXX11_ABI 1), on
 * Windows with the C runtime msvcrt.
 */
#define VESK_STRING_LAYOUT_LIBSTDCXX 1

/**
 * The kit windows-vc: release hosts of Visual C++ 2015 or later with its standard library, /MD or /MT.
 *
 * Debug hosts (/MDd, /MTd, _ITERATOR_DEBUG_LEVEL 1 or 2) are not supported. The block of a string above 15
 * characters comes from the process heap, where `operator delete` of these hosts returns it; a host that
 * replaces `operator delete` has to return it there too.
 */
#define VESK_STRING_LAYOUT_MSVC 2

/**
 * The layout that the library returns. The build of a kit writes it here; a project that builds the library
 * itself may define it before it includes the header.
 */
#ifndef VESK_STRING_LAYOUT
#define VESK_STRING_LAYOUT VESK_STRING_LAYOUT_LIBSTDCXX
#endif

/** @} */

/* VESK_STRING_REFUSED is defined where this host cannot call the two exports, and says why in one sentence. */
#if !defined(__cplusplus)
#define VESK_STRING_REFUSED "RF_PhyMode and RF_BTConnectedType return a std::string: call them from C++"
#elif VESK_STRING_LAYOUT == VESK_STRING_LAYOUT_MSVC
#if !defined(_MSC_VER) || _MSC_VER < 1900 || !defined(_CPPLIB_VER)
#define VESK_STRING_REFUSED                                                                                  \
    "RF_PhyMode and RF_BTConnectedType of the kit windows-vc return the std::string of "                     \
    "Visual C++ 2015 or later: MinGW-w64 hosts take the kit windows-mingw"
#elif defined(_DEBUG) || _ITERATOR_DEBUG_LEVEL != 0
#define VESK_STRING_REFUSED                                                                                  \
    "RF_PhyMode and RF_BTConnectedType return the std::string of release hosts: "                            \
    "build with /MD or /MT and _ITERATOR_DEBUG_LEVEL 0"
#endif
#elif VESK_STRING_LAYOUT == VESK_STRING_LAYOUT_LIBSTDCXX
#if !defined(__GLIBCXX__) && defined(_MSC_VER)
#define VESK_STRING_REFUSED                                                                                  \
    "RF_PhyMode and RF_BTConnectedType of this kit return the std::string of libstdc++: "                    \
    "Visual C++ hosts take the kit windows-vc"
#elif !defined(__GLIBCXX__) || !_GLIBCXX_USE_CXX11_ABI || defined(_UCRT)
#define VESK_STRING_REFUSED                                                                                  \
    "RF_PhyMode and RF_BTConnectedType of this kit return the std::string of libstdc++: "                    \
    "build with libstdc++, _GLIBCXX_USE_CXX11_ABI 1 and, on Windows, the C runtime msvcrt"
#endif
#endif

/* VESK_STRING is what the two return: std::string, or a type that no program can use. */
#if defined(__has_attribute)
#if __has_attribute(unavailable)
#define VESK_STRING_UNAVAILABLE(reason) __attribute__((unavailable(reason)))
#endif
#endif
#if !defined(VESK_STRING_REFUSED)
#define VESK_STRING std::string
#elif defined(VESK_STRING_UNAVAILABLE) && defined(__cplusplus)
#define VESK_STRING VESK_STRING_UNAVAILABLE(VESK_STRING_REFUSED) std::string
#elif defined(VESK_STRING_UNAVAILABLE)
#define VESK_STRING VESK_STRING_UNAVAILABLE(VESK_STRING_REFUSED) void
#elif defined(__cplusplus)
template <int Never>
struct VeskStringRefused : std::string {
    static_assert(Never < 0, VESK_STRING_REFUSED);
};
#define VESK_STRING VeskStringRefused<0>
#else
#define VESK_STRING struct RF_PhyMode_and_RF_BTConnectedType_return_a_std_string_call_them_from_Cpp
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Two exports return a string object of C++ under a plain name, on purpose. */
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#elif defined(_MSC_VER)
#pragma warning(push)
#pragma warning(disable : 4190)
#endif

/** The version of the library that this header belongs to, as in the file's version resource. */
#define VESK_SONDREL_VERSION "1.0.2.0"

/** The same as a number to compare: one byte for each part, the first in bits 31-24. */
#define VESK_SONDREL_VERSION_NUMBER 0x01000200

/** An EC command or a radio read failed. */
#define VESK_READ_FAILED 0x7FFFFFFF

/** A radio field that no read has set: there is no adapter, or nothing is connected. */
#define VESK_RADIO_NOT_READ (-1000)

/**
 * @defgroup session Session and versions
 *
 * The session is reference-counted: each InitializeSondrel that returned 1 is matched by one ShutdownSondrel,
 * and the last of them closes the device. Opening and closing must not overlap with each other or with a reading
 * on another thread.
 * @{
 */

/**
 * Opens the driver session, or adds a reference to the open one.
 *
 * The device is opened exclusively; if that fails, it is opened shared.
 *
 * Result: 1 if the session is open.
 * Failure: 0, the device is missing or both attempts to open it failed. A later call tries again.
 * Session: opens it. Blocks: as long as opening a device takes, twice at most.
 */
VESK_API int32_t InitializeSondrel(void);

/**
 * Removes one reference; the last one closes the device.
 *
 * Failure: none. Without an open session the call does nothing.
 * Session: closes it. Blocks: as long as closing a device takes.
 */
VESK_API void ShutdownSondrel(void);

/**
 * The version word of the driver.
 *
 * Failure: 0, or the word as far as the driver wrote it. Without a session 0: nothing is sent after a session, and
 * before the first one the request goes to no device.
 * Session: needed. Blocks: one driver request.
 */
VESK_API uint32_t GetDriverVersion(void);

/**
 * The reference count of the driver. It is not the number of InitializeSondrel calls.
 *
 * Failure: 0, or the word as far as the driver wrote it. Without a session 0: nothing is sent after a session, and
 * before the first one the request goes to no device.
 * Session: needed. Blocks: one driver request.
 */
VESK_API uint32_t GetRefCount(void);

/**
 * The version of the I/O interface, a constant: 65537 (0x00010001).
 *
 * Failure: none. Session: not needed. Blocks: not at all.
 */
VESK_API uint32_t GetIoDllVersion(void);

/** @} */

/**
 * @defgroup identity Embedded controller: identity
 *
 * Read from the EC once and then stored in the registry, under HKEY_LOCAL_MACHINE
 * SOFTWARE\Vesk\Vesk Kelvane\VeskTessaly. A stored value is returned without an EC command and without a
 * session, and it is never refreshed, not even after an update of the EC's firmware. Storing it needs an
 * administrator's rights; without them each call reads the EC. A stored number above 2147483647 is returned as
 * 2147483647.
 * @{
 */

/**
 * The firmware revision code: two ASCII letters, the first in bits 15-8. "KL" is 0x4B4C.
 *
 * Failure: VESK_READ_FAILED, and nothing is stored.
 * Session: needed while the value is not stored. Blocks: a registry read, the first time also two EC commands.
 */
VESK_API uint32_t EC_ReadEcFwRev(void);

/**
 * The chip id, 0 to 255. It distinguishes variants of one firmware revision code; 0 is a valid id.
 *
 * Failure: VESK_READ_FAILED, and nothing is stored.
 * Session: needed while the value is not stored. Blocks: a registry read, the first time also one EC command.
 */
VESK_API uint32_t EC_ReadEcChipId(void);

/**
 * The chip name: four bytes in reading order, the first in bits 31-24.
 *
 * Failure: VESK_READ_FAILED, and nothing is stored.
 * Session: needed while the value is not stored. Blocks: a registry read, the first time also four EC commands.
 */
VESK_API uint32_t EC_ReadEcChipName(void);

/** @} */

/**
 * @defgroup battery Battery: from the system's battery device
 *
 * Each call reads the first battery device; further batteries are ignored. The values are those of the device,
 * not scaled; Windows defines milliwatt-hours and millivolts for most devices. A value that cannot be read is 0:
 * without a battery, on an error of the device, and for the present capacity and voltage of a device that is not
 * a system battery. A battery that does not know a value reports 4294967295 (0xFFFFFFFF), which is returned
 * unchanged and used in the calculations.
 * @{
 */

/**
 * The design capacity.
 *
 * Failure or absent: 0. Session: not needed. Blocks: opening the device and up to three IOCTLs.
 */
VESK_API uint32_t Battery_Read_DesignedCapacity(void);

/**
 * The full-charged capacity.
 *
 * Failure or absent: 0. Session: not needed. Blocks: opening the device and up to three IOCTLs.
 */
VESK_API uint32_t Battery_Read_FullChargedCapcity(void);

/**
 * The present capacity.
 *
 * Failure or absent: 0. Session: not needed. Blocks: opening the device and up to three IOCTLs.
 */
VESK_API uint32_t Battery_Read_Capacity(void);

/**
 * The present voltage, not the design voltage that the name suggests.
 *
 * Failure or absent: 0. Session: not needed. Blocks: opening the device and up to three IOCTLs.
 */
VESK_API uint32_t Battery_Read_DesignVoltage(void);

/**
 * The full-charged capacity divided by the design capacity: a fraction, not a percentage.
 *
 * Failure or absent: 0, also if the design capacity is 0.
 * Session: not needed. Blocks: opening the device and up to three IOCTLs.
 */
VESK_API float Battery_Read_ASOC(void);

/**
 * The present capacity in per cent of the full-charged capacity, rounded to a multiple of ten: 84 becomes 80,
 * 85 becomes 90.
 *
 * It is not limited to 100: with invalid capacities of a device it can be up to 4294967290, the largest multiple
 * of ten in 32 bits.
 *
 * Failure or absent: 0, also if the full-charged capacity is 0.
 * Session: not needed. Blocks: opening the device and up to three IOCTLs.
 */
VESK_API uint32_t Battery_Read_CapacityPercentage(void);

/** @} */

/**
 * @defgroup battery_ec Battery: from the embedded controller
 *
 * The EC's numbers, not scaled: their units and signs are the firmware's. Each call selects the register map of
 * the machine. 0 means a machine without a map, which includes one whose EC cannot be identified.
 * @{
 */

/**
 * The cycle count.
 *
 * On codes CF, GL, PC and WL it is read from the EC, on codes AB, AR and KL from the battery device.
 *
 * Failure: VESK_READ_FAILED when an EC command fails, 0 from the battery device. Absent: 0.
 * Session: needed for the first four codes. Blocks: the identity, then two EC commands or the IOCTLs of the
 * battery device.
 */
VESK_API uint32_t Battery_Read_CycleCount(void);

/**
 * The lid state byte, 0 to 255. The firmware defines its meaning.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Battery_Get_LidStatus(void);

/**
 * The battery charging voltage, 0 to 65535.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and two EC commands.
 */
VESK_API uint32_t Battery_Read_ChargingVoltage(void);

/**
 * The battery package voltage, 0 to 65535.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and two EC commands.
 */
VESK_API uint32_t Battery_Read_PackageVoltage(void);

/**
 * The battery temperature, 0 to 65535.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and two EC commands.
 */
VESK_API uint32_t Battery_Read_Temperature(void);

/**
 * The battery current, -32768 to 32767.
 *
 * Failure: -1, which is also a valid current. Absent: 0.
 * Session: needed. Blocks: the identity and two EC commands.
 */
VESK_API int32_t Battery_Read_Current(void);

/**
 * The voltages of four cells as "%u;%u;%u;%u", cell 0 first, 0 to 65535 each.
 *
 * out: 44 bytes; with null the call does nothing.
 * Failure: 2147483647 for a cell whose command failed. Absent: 0 for each cell.
 * Session: needed. Blocks: for each cell the identity and up to seven EC commands; on code KL with chip id 1 up
 * to 26 commands and 10 ms, and up to 20 ms more while the battery bus is busy.
 */
VESK_API void Battery_Read_CellVoltage(char* out);

/**
 * The date of manufacture as "%4d-%02d-%02d", year first: "2017-10-28".
 *
 * The fields are not validated: month 0 or 15 is written unchanged.
 *
 * out: exactly 11 bytes; with null the call does nothing.
 * Failure or absent: "1980-01-01".
 * Session: needed. Blocks: as one cell of Battery_Read_CellVoltage; on codes CF, GL, PC and WL the chip id selects
 * one of the two command sequences.
 */
VESK_API void Battery_Read_ManufactureDate(char* out);

/**
 * The name of the battery's manufacturer: ten bytes of the EC and a terminator.
 *
 * A shorter name has its terminator earlier; the bytes after it are whatever the EC returned.
 *
 * out: exactly 11 bytes; with null the call does nothing.
 * Failure or absent: "0x7FFFFFFF", also for a name that begins with a zero.
 * Session: needed. Blocks: the identity and up to ten EC commands.
 */
VESK_API void Battery_Read_ManufactureName(char* out);

/** @} */

/**
 * @defgroup thermal Temperatures and fans
 *
 * Read from the EC; each call selects the register map of the machine. 0 means a machine without a map, which
 * includes one whose EC cannot be identified, and a sensor that is not ready.
 *
 * The first five temperatures are the EC's byte, unchanged. The next six come from the sensor block. There the
 * EC of codes CF, GL, PC and WL has degrees, which are returned unchanged; the EC of codes AB, AR and KL has a
 * sensor count, which a thermistor curve converts to whole degrees Celsius. A count outside the curve gives the
 * temperature at its end.
 * @{
 */

/**
 * The CPU temperature, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_Cpu_Temperature(void);

/**
 * The board temperature TS0L, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_BoardTS0L_Temperature(void);

/**
 * The board temperature TS0R, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_BoardTS0R_Temperature(void);

/**
 * The GPU temperature TS1L, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_GpuTS1L_Temperature(void);

/**
 * The GPU temperature TS1R, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_GpuTS1R_Temperature(void);

/**
 * The temperature of the battery connector: 0 to 255, or 53 to 110 with the curve.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_BatteryConnector_Temperature(void);

/**
 * The temperature of the AC FET: 0 to 255, or 53 to 110 with the curve.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_ACFET_Temperature(void);

/**
 * The temperature of the charger choke: 0 to 255, or 53 to 110 with the curve.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_ChargerChoke_Temperature(void);

/**
 * The temperature of the GPU VRM: 0 to 255, or 53 to 110 with the curve.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_GpuVrm_Temperature(void);

/**
 * The temperature of the sensor "Upper CPU": 0 to 255, or 35 to 100 with the curve.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_UpCpu_Temperature(void);

/**
 * The temperature of the GPU VRAM: 0 to 255, or 35 to 100 with the curve.
 *
 * Failure: VESK_READ_FAILED. Absent: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_GpuVram_Temperature(void);

/**
 * The speeds of fans 0 to 3 in revolutions per minute as "%d;%d;%d;%d", fan 0 first.
 *
 * On codes CF, GL, PC and WL a speed is the EC's number, on the others it is computed from a tachometer.
 *
 * out: 44 bytes; with null the call does nothing.
 * Failure: 2147483647 for a fan whose command failed. Absent: 0, which is also the speed of a stopped fan.
 * Session: needed. Blocks: for each fan the identity and up to 23 EC commands, and 10 ms for each fan with a
 * tachometer: 20 ms on codes AB and AR and on KL with chip id 1, 30 ms on KL with chip id 0, none on the
 * others.
 */
VESK_API void Thermal_Read_Fan(char* out);

/** @} */

/**
 * @defgroup processor Processor and power
 *
 * The three power values are those of the driver, in the driver's own units. The driver has them only for
 * processors with the vendor string "GenuineIntel".
 * @{
 */

/**
 * The busy fraction of all processors together over one second, 0.0 to 1.0.
 *
 * The result is 1.0 if the system's counters do not change. If they go backwards it can be outside the range, but
 * is always finite.
 *
 * Failure: 0.0 when a sample fails. Session: not needed. Blocks: 1 s, and cannot be interrupted.
 */
VESK_API double CPU_ReadCPUUsage(void);

/**
 * The four registers of CPUID for a leaf, read by the driver.
 *
 * Failure: four zeros when the request fails; without a session the four are unwritten.
 * Session: needed. Blocks: one driver request.
 */
VESK_API void CPU_ReadCpuId(uint32_t leaf, uint32_t* eax, uint32_t* ebx, uint32_t* ecx, uint32_t* edx);

/**
 * The package power, in the driver's own units.
 *
 * Failure or absent: 0. Session: needed. Blocks: two driver requests.
 */
VESK_API uint32_t Thermal_Read_CpuPackagePower(void);

/**
 * Power limit 1, in the driver's own units.
 *
 * Failure or absent: 0. Session: needed. Blocks: two driver requests and the identity.
 */
VESK_API uint32_t Thermal_Read_CpuDptf_PowerLimit1(void);

/**
 * Power limit 2, in the driver's own units.
 *
 * Failure or absent: 0. Session: needed. Blocks: two driver requests and the identity.
 */
VESK_API uint32_t Thermal_Read_CpuDptf_PowerLimit2(void);

/**
 * The power supply of the machine: 0 battery, 1 AC, 255 unknown.
 *
 * Failure: 255. Session: not needed. Blocks: not at all.
 */
VESK_API uint32_t Power_Read_ACDCMode(void);

/** @} */

/**
 * @defgroup firmware_log Firmware: event log and sensor
 *
 * Both use the firmware's pass-through device, which is opened and closed for each request; two of these calls
 * must not overlap. Numbers are "0x" and at least two lower-case hexadecimal digits.
 * @{
 */

/**
 * The firmware's event store as a JSON document.
 *
 *     {"version":"0x12","register_count":"0x02","register":["0x05","0xabc"],"event":["0x5a 0xa5 ..."]}
 *
 * An event is one record of the firmware's log, byte by byte. If its kind (byte 7) is 0x20, the bytes from the
 * tenth on are decoded from BCD, up to the first digit above 9. A record with a length above the 256 bytes that
 * the firmware returns ends after them. Register 255 reads as the register count: the firmware uses the same
 * number for both.
 *
 * The firmware keeps the position in the log: the walk continues where the previous call ended. It ends at the end
 * of the log, or at a record with which all values together would have more than 31500 characters; that record is
 * not in any document.
 *
 * out: at most 61 + V + 3 x (registers + events) characters and a terminator, where V, the characters of all
 * values, is at most the greater of 31500 and 20 + 10 x registers. With up to 3000 registers that is below
 * 43,000. The number of registers has no limit; if the count is above 16,777,216, which cannot be addressed, the
 * count is shown and the list is [""].
 * Failure: never as a whole. A value that cannot be read is the empty string, an unread count gives [""] and an
 * unread log [].
 * Session: not needed. Blocks: opening the device and one request for each number and each event.
 */
VESK_API void GetEEPROM_Data(VeskChar16* out);

/**
 * The P-sensor status as a JSON document: {"p_sensor":"0x05"}.
 *
 * A reply of less than four bytes is the status 0.
 *
 * out: 26 characters.
 * Failure: {"p_sensor":""}.
 * Session: not needed. Blocks: opening the device and one request.
 */
VESK_API void GetSENSOR_WMI_Data(VeskChar16* out);

/** @} */

/**
 * @defgroup firmware_variables Firmware: variables
 *
 * Three fields of two UEFI variables, as raw bytes: exactly the sizes given here, without a terminator. Each
 * call first enables the privilege SeSystemEnvironmentPrivilege, which the process must have: administrators do,
 * and a service unless its list of required privileges leaves it out.
 *
 * Error codes to expect: 1 on a system with legacy BIOS, 203 if the variable does not exist, 1314 without the
 * privilege.
 *
 * A setter reads the whole variable, replaces its field and writes the variable with its size unchanged; it
 * cannot create a variable. Two setters at the same time can lose one change. The read fails for a variable of
 * more than 256 bytes, and with ERROR_INVALID_DATA (13) for one that ends before the field does.
 * @{
 */

/**
 * The random UUID: 16 bytes of the variable "CNFG".
 *
 * Result: 0 on success.
 * Failure: the system's error code; the bytes are unchanged. Session: not needed. Blocks: one firmware call.
 */
VESK_API uint32_t GPNV_Get_RandomUUID(uint8_t* out);

/**
 * The activated time: 19 bytes of the variable "CNFG".
 *
 * Result: always 0.
 * Failure: 0 too, and the bytes are unchanged; only the debug log has the error. Clear the bytes before the call.
 * Session: not needed. Blocks: one firmware call.
 */
VESK_API uint32_t GPNV_Get_ActivatedTime(uint8_t* out);

/**
 * The time of manufacture: 23 bytes of the variable "MFG0".
 *
 * Result: 0 on success.
 * Failure: the system's error code; the bytes are unchanged. Session: not needed. Blocks: one firmware call.
 */
VESK_API uint32_t GPNV_Get_ManufacturedTime(uint8_t* out);

/**
 * Sets the random UUID: 16 bytes.
 *
 * Result: 0 on success.
 * Failure: the system's error code if the write failed; 13 (ERROR_INVALID_DATA) if the variable ends before this field,
 * which writes nothing. If the read failed, nothing is written and the result is 0 too; only the debug log has the error.
 * Session: not needed. Blocks: two firmware calls.
 */
VESK_API uint32_t GPNV_Set_RandomUUID(const uint8_t* bytes);

/**
 * Sets the activated time: 19 bytes.
 *
 * Result: 0 on success.
 * Failure: the system's error code if the write failed; 13 (ERROR_INVALID_DATA) if the variable ends before this field,
 * which writes nothing. If the read failed, nothing is written and the result is 0 too; only the debug log has the error.
 * Session: not needed. Blocks: two firmware calls.
 */
VESK_API uint32_t GPNV_Set_ActivatedTime(const uint8_t* bytes);

/**
 * Sets the time of manufacture: 23 bytes.
 *
 * Result: 0 on success.
 * Failure: the system's error code if the write failed; 13 (ERROR_INVALID_DATA) if the variable ends before this field,
 * which writes nothing. If the read failed, nothing is written and the result is 0 too; only the debug log has the error.
 * Session: not needed. Blocks: two firmware calls.
 */
VESK_API uint32_t GPNV_Set_ManufacturedTime(const uint8_t* bytes);

/** @} */

/**
 * @defgroup features Firmware: Battery Health and Quiet Fan
 *
 * Two features of the firmware, set through its WMI class, and the directory of the files that store their last
 * settings. The class is in the namespace ROOT\WMI, which usually only administrators can access.
 *
 * A settings file is read like a formatted number of a text stream: white space is skipped, then one sign and
 * digits are read up to the first other character. An absent, empty or blank file is the default, other content
 * that does not begin with a number is 0, and a number above 32 bits is the nearest that fits.
 *
 * A settings file is written in place and keeps its owner, access list, links and streams. It has the number and a
 * line end. Readers and setters of several processes, and a process that dies, leave a number that was written. Setters
 * take turns by a lock of one byte far beyond the content; one that has waited for the lock for a second without
 * getting it stores nothing. Readers take no lock, and a file system without locks is written without one. A file that
 * is a symbolic link or a mount point counts as a file that cannot be opened.
 *
 * The app path has to be a directory that only administrators can write to, or the host has to impersonate the user
 * around these calls: a process with more rights than those who can write there otherwise writes on their behalf. For
 * Battery Health it may have 234 characters, for Quiet Fan 239; a longer one makes the file's name too long for
 * Windows, and nothing is stored.
 * @{
 */

/**
 * 1 if the firmware has Battery Health, 0 if not.
 *
 * Failure: 0. Session: not needed. Blocks: one WMI query and one firmware call.
 */
VESK_API int32_t WMICheckBatteryHealthSupport(uint8_t initCom);

/**
 * 0 if the firmware has Quiet Fan and it is off, 1 if it is on, -1 if the firmware does not have it.
 *
 * Failure: -1. Session: not needed. Blocks: one WMI query and one firmware call.
 */
VESK_API int32_t WMICheckQuietFanSupport(uint8_t initCom);

/**
 * The last Battery Health setting, from the settings file, not from the firmware. The range is not validated.
 *
 * Failure or absent: 100, the default. Session: not needed. Blocks: two WMI queries.
 */
VESK_API int32_t WMIGetBatteryHealth(uint8_t initCom);

/**
 * The last Quiet Fan setting if it was 1, 2 or 3, and 0 for every other number; from the settings file, not from
 * the firmware.
 *
 * Failure or absent: 0, the default. Session: not needed. Blocks: two WMI queries.
 */
VESK_API int32_t WMIGetQuietFan(uint8_t initCom);

/**
 * Sets Battery Health to any number and stores it in the settings file, if the directory of the app path exists.
 *
 * Result: 1 if the firmware accepted the number, even if it could not be stored: without an app path for this
 * user, without the right to write there, or while another process holds the lock.
 * Failure: 0, and nothing is stored; also if the firmware does not have Battery Health.
 * Session: not needed. Blocks: up to four WMI queries, and up to one second for the lock.
 */
VESK_API int32_t WMISetBatteryHealth(int32_t value, uint8_t initCom);

/**
 * Sets Quiet Fan: the firmware gets 0 for 0 and 1 for any other value; the settings file gets the value.
 *
 * Result: 1 if the firmware accepted it, even if it could not be stored, as above.
 * Failure: 0, and nothing is stored. Session: not needed. Blocks: up to three WMI queries, and up to one second for
 * the lock.
 */
VESK_API int32_t WMISetQuietFan(uint8_t value, uint8_t initCom);

/**
 * Sets the app path of the current user: the directory of the settings files, without a trailing backslash.
 *
 * It is stored in the registry, under HKEY_LOCAL_MACHINE SOFTWARE\Vesk\Vesk Kelvane\VeskTessaly, in a value with
 * the user's name as WMI reports it; if WMI reports none, in the unnamed value of the key. The path is stored
 * unchanged: it is not validated, and no directory is created. A path of more than 255 characters is stored but
 * cannot be read back. Null is the empty string. Writing to the key needs an administrator's rights.
 *
 * If the name cannot be read, the path goes to the unnamed value too. That happens without WMI, for an account that
 * WMI has no name for (see docs/on-windows.md), and on a thread in a single-threaded apartment that passes an
 * `initCom` other than 0: pass 0 there.
 *
 * Result: 1 if the path was stored. Failure: 0. Session: not needed. Blocks: one WMI query.
 */
VESK_API int32_t WMISetAppPath(const VeskChar16* path, uint8_t initCom);

/** @} */

/**
 * @defgroup inventory Inventory
 *
 * Each of these makes its own connection to WMI and runs one query; nothing is cached. Session: not needed.
 *
 * A string has the values of all rows, in WMI's order, joined by ";"; a row without a value gives an empty one.
 * 4096 characters are enough for all known machines; WMI sets no limit.
 *
 * The cause of a failure is in the debug log, and in the event log except for WMIGetExternMonitorNum. A query
 * without rows, which includes a class that WMI does not have, is no failure: its result is also the empty string
 * or -1, and the count 0, but no log has a failure. If the value is one property of all rows and the first rows
 * have none, both logs report that too. The namespace ROOT\WMI (displays, disk temperatures) can usually be
 * accessed only by administrators.
 * @{
 */

/**
 * The fifth OEM string of the computer system.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGet90Number(VeskChar16* out, uint8_t initCom);

/**
 * The manufacturer of the base board.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetBiosManufacture(VeskChar16* out, uint8_t initCom);

/**
 * The release date of the BIOS as year, month and day without separators: "20211231".
 *
 * out: 9 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetBiosReleaseDate(VeskChar16* out, uint8_t initCom);

/**
 * The name of the BIOS, which has its version.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetBiosVersion(VeskChar16* out, uint8_t initCom);

/**
 * The UUID of the computer system product.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetBoardUUID(VeskChar16* out, uint8_t initCom);

/**
 * The name of each processor.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetCPUInfo(VeskChar16* out, uint8_t initCom);

/**
 * The load in per cent, 0 to 100, of the last processor that reports one.
 *
 * Failure or absent: -1. Session: not needed. Blocks: one WMI query.
 */
VESK_API int32_t WMIGetCPUUsg(uint8_t initCom);

/**
 * The product family of the machine.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetComputerFamilyName(VeskChar16* out, uint8_t initCom);

/**
 * The number of connected displays that are not built in.
 *
 * Failure: -1. Absent: 0. Session: not needed. Blocks: one WMI query.
 */
VESK_API int32_t WMIGetExternMonitorNum(uint8_t initCom);

/**
 * The name of each display adapter.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetGPUInfo(VeskChar16* out, uint8_t initCom);

/**
 * The name of each fixed disk.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDCaption(VeskChar16* out, uint8_t initCom);

/**
 * Three values for each physical disk, one disk after another: model, size in bytes, media type.
 *
 * The media type is 3 for hard disks and 4 for solid state disks, other numbers as Windows defines them; a missing
 * value is empty.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDInfo(VeskChar16* out, uint8_t initCom);

/**
 * The model of each hard disk (media type 3).
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDModel(VeskChar16* out, uint8_t initCom);

/**
 * The size of each fixed disk in bytes.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDSize(VeskChar16* out, uint8_t initCom);

/**
 * The temperature of each disk in degrees, as the disks report it, joined by ";": "38;41".
 *
 * It is the first byte of the raw data of SMART attribute 194. A disk with two such attributes adds two numbers, a
 * disk without one adds none. The table has ten disks; further disks are dropped. A disk without a name or
 * without attribute data is skipped; most NVMe disks have none in WMI. Two calls must not overlap.
 *
 * out: 1200 characters.
 * Failure: the empty string at first. The table stays in the process: after a failure, or when fewer disks are
 * read than before, the list still has the former numbers. Absent: the empty string.
 * Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDTemp(VeskChar16* out, uint8_t initCom);

/**
 * The name of each monitor, up to 13 characters.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetLCDModel(VeskChar16* out, uint8_t initCom);

/**
 * The hardware address of each physical network adapter: "02:1A:...".
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetMacAddress(VeskChar16* out, uint8_t initCom);

/**
 * The manufacturer of each memory module.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetMemManufacture(VeskChar16* out, uint8_t initCom);

/**
 * The part number of each memory module.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetMemModel(VeskChar16* out, uint8_t initCom);

/**
 * The capacity of each memory module in bytes.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetMemSize(VeskChar16* out, uint8_t initCom);

/**
 * The product name of the base board.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetModelName(VeskChar16* out, uint8_t initCom);

/**
 * The brightness in per cent, 0 to 100, of the last display that reports one.
 *
 * Failure or absent: -1. Session: not needed. Blocks: one WMI query.
 */
VESK_API int32_t WMIGetMonitorBrightness(uint8_t initCom);

/**
 * The country code of the operating system, by Windows' definition a telephone prefix: "49".
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetOSCountryCode(VeskChar16* out, uint8_t initCom);

/**
 * Caption, architecture and version of the operating system: "Windows 10 Pro 64-bit 10.0.19041".
 *
 * out: 4096 characters.
 * Failure: the empty string if both queries fail or have no value: a version alone would not say which system it
 * is. If one fails, its part is empty and the blank after it remains.
 * Session: not needed. Blocks: two WMI queries.
 */
VESK_API void WMIGetOSInfo(VeskChar16* out, uint8_t initCom);

/**
 * The product name of the machine.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetProductName(VeskChar16* out, uint8_t initCom);

/**
 * The serial number of the machine.
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetSN(VeskChar16* out, uint8_t initCom);

/**
 * The model of each solid state disk (media type 4).
 *
 * out: 4096 characters. Failure or absent: the empty string. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetSSDModel(VeskChar16* out, uint8_t initCom);

/**
 * "Desktop", "Notebook", "All in One" or "unknown": the first chassis type of the last enclosure.
 *
 * out: 11 characters.
 * Failure or absent: "unknown". Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetSystemChassisTypes(VeskChar16* out, uint8_t initCom);

/**
 * `value` + 1 in 32 bits: 4294967295 gives 0. The export reads nothing.
 *
 * Failure: none. Session: not needed. Blocks: not at all.
 */
VESK_API uint32_t wmiadd(uint32_t value);

/** @} */

/**
 * @defgroup adapters Network adapters
 *
 * The wireless adapters in the network classes of WMI.
 * @{
 */

/**
 * The names of the machine's wireless adapters in WMI, each followed by ";": "Card A;Card B;".
 *
 * Adapters without a row or a name in WMI are left out.
 *
 * out: 1024 characters: the names and one character for each.
 * Failure: `out` is unchanged if the list of adapters cannot be read, also on a machine without adapters and when
 * the list grows during the call. Clear `out` before the call. An adapter whose WMI read fails is left out.
 * Absent: the empty string.
 * Session: not needed. Blocks: one WMI query for each wireless adapter.
 */
VESK_API void WMIGetWiFiCardName(VeskChar16* out, uint8_t initCom);

/**
 * The current traffic of the card that RF_WiFiCardName returns, in bytes per second: received, ";", sent:
 * "1200;34".
 *
 * The performance counters are matched only by the length of the card's name: interfaces whose name has the same
 * length match too, and the last value that is not 0 wins. The first call in a process reads the Wi-Fi record.
 *
 * out: 64 characters.
 * Failure: the empty string, also if the query gives no rows. Absent: "0;0", if there are rows and none matches.
 * Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetWiFiBytesPersec(VeskChar16* out, uint8_t initCom);

/** @} */

/**
 * @defgroup wifi Wi-Fi
 *
 * Seven fields of one record. The first call of any of them reads the record from the system; after the first
 * successful read it does not change until the end of the process, even if the connection does. After a failed
 * read the next call tries again.
 *
 * A failed read gives VESK_READ_FAILED and "error_string"; a field for which later reads find no value keeps them.
 * A successful read that finds no value for a field leaves VESK_RADIO_NOT_READ and "init_string": without an
 * interface all fields, without a connection all except the first two, and the signal and the rate if the list of
 * access points does not have that of the connection. With several interfaces, "connected" and the card's name
 * are those of the last one. Each other field is that of the last connected interface which has a value for it, so
 * that the fields of one record can belong to different interfaces.
 *
 * A service that starts with the system can read the record before the connection exists: read it first when the
 * link is up, or in a separate process. From Windows 11 24H2 on the system refuses the read (error 5) without
 * location consent; that is a failed read, the card's name included.
 *
 * They may be called from several threads, also for the first read: the other threads wait, and all get fields of
 * one complete record. A read takes as long as the WLAN API takes; after a successful read the calls do not block.
 * @{
 */

/**
 * 1 if connected, 0 if not.
 *
 * Failure: VESK_READ_FAILED. Absent: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_WiFiIsConnected(void);

/**
 * The interface's description.
 *
 * out: 257 characters.
 * Failure: "error_string". Absent: "init_string". Session: not needed. Blocks: the first read.
 */
VESK_API void RF_WiFiCardName(VeskChar16* out);

/**
 * The signal of the access point in dBm. With several links (Wi-Fi 7) it can be absent.
 *
 * Failure: VESK_READ_FAILED. Absent: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_WiFiRssi(void);

/**
 * The channel number.
 *
 * Failure: VESK_READ_FAILED. Absent: VESK_RADIO_NOT_READ, also if the card does not report it.
 * Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_WiFiChannel(void);

/**
 * The first three octets of the access point's BSSID, its vendor prefix: "02:1A:2B".
 *
 * out: 13 bytes.
 * Failure: "error_string". Absent: "init_string". Session: not needed. Blocks: the first read.
 */
VESK_API void RF_AP_MAC(char* out);

/**
 * The highest rate in Mbit/s that the access point offers, by the rate tables of 802.11n and 802.11ac.
 *
 * It is computed from the information elements of the access point's beacon; the rate of the link may be lower. 0
 * without an element of either standard, and for channels of 160 and 80+80 MHz that the access point announces by
 * the widths 2 and 3. Access points of today announce 160 MHz as width 1 with a second segment: the result is then
 * the rate of 80 MHz. Elements that are truncated or too short are ignored.
 *
 * Failure: VESK_READ_FAILED. Absent: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_WiFiMaxRate(void);

/**
 * The radio standard of the connection: "FHSS", "DHSS", "IR baseband", "OFDM", "HRDSSS", "ERP", "802.11n",
 * "802.11ac", "802.11ad", "802.11ax", or "Other".
 *
 * Returns a std::string: VESK_STRING_LAYOUT says which hosts can call this export.
 *
 * Failure: "error_string". Absent: "init_string". Session: not needed. Blocks: the first read.
 */
VESK_API VESK_STRING RF_PhyMode(void);

/** @} */

/**
 * @defgroup bluetooth Bluetooth
 *
 * Three fields of one record, with the same rules for reads and threads as the Wi-Fi record. Only connected devices
 * count.
 *
 * Without a radio the fields are VESK_RADIO_NOT_READ and "init_string". With a radio but no connected device the
 * first is 0 and the others are those sentinels: the count is never 0. With several radios, the first field is that
 * of the last radio, the others those of the last radio that has devices. The first field keeps VESK_READ_FAILED of
 * a failed read if a later read finds no radio. A read takes as long as the Bluetooth API takes; no inquiry is
 * sent.
 * @{
 */

/**
 * 1 if a device is connected, 0 if none is.
 *
 * Failure: VESK_READ_FAILED. Absent: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_BTIsUsed(void);

/**
 * The number of connected devices.
 *
 * Failure: VESK_READ_FAILED. Absent: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_BTConnectedNum(void);

/**
 * The kind of each connected device by its major device class, each followed by ";", in the order of the search.
 *
 * "Computer;", "Phone;", "LAN/NetWortk Access point;", "Audio/Video;", "Peripheral;", "Imaging;",
 * "Wearable;", "Toy;", "Health;", "Uncategorized;", or "Others;".
 *
 * Returns a std::string: VESK_STRING_LAYOUT says which hosts can call this export. With the kit windows-vc the
 * list ends after the last whole word that keeps the block of the string below 4096 bytes, which is at most
 * 4094 characters, and it is "error_string" where there is no memory for that block.
 *
 * Failure: "error_string". Absent: "init_string". Session: not needed. Blocks: the first read.
 */
VESK_API VESK_STRING RF_BTConnectedType(void);

/** @} */

/**
 * @defgroup system System
 *
 * State of the running system, read by each call.
 * @{
 */

/**
 * 1 if the system is in S mode, else 0.
 *
 * Failure: 0; the debug log has the cause. Session: not needed. Blocks: loading a system library.
 */
VESK_API int32_t System_Check_S_Mode(void);

/**
 * The user's country as a two-letter ISO 3166 code: "DE".
 *
 * For a nation without such a code it is what the system has instead. Windows has at most 10 characters today; the
 * library does not limit them. In a service it is the country of the service's account.
 *
 * out: 11 characters.
 * Failure or absent: the empty string, also if the user has set no nation.
 * Session: not needed. Blocks: not at all.
 */
VESK_API void System_GetCountryCode_ISO2(VeskChar16* out);

/**
 * The local date and time as a narrow string: "2024-05-17 10:30:00".
 *
 * The time zone is read again by each call. The C runtime uses the environment variable TZ instead of the system's
 * zone if the host's environment has it: the one variable that changes an answer.
 *
 * out: exactly 20 bytes.
 * Failure: 20 zero bytes. Session: not needed. Blocks: not at all.
 */
VESK_API void System_Read_LocalTime(char* out);

/**
 * The master volume of the default audio endpoint in per cent, 0 to 100, rounded down, muted or not.
 *
 * `initCom` differs here: if it is not 0, the call enters the single-threaded apartment. Pass 0 on a thread that is
 * in the multithreaded apartment already: entering would fail without a message, and the call would leave the
 * caller's apartment, after which the COM objects of that thread are not usable any more.
 *
 * Failure or absent: -1, without an audio endpoint. Session: not needed. Blocks: as long as the audio service
 * takes.
 */
VESK_API int32_t System_Read_VolumeLevel(uint8_t initCom);

/**
 * The tablet mode byte of the EC, 0 to 255. The firmware defines its meaning.
 *
 * Failure: VESK_READ_FAILED. Session: needed. Blocks: one EC command.
 */
VESK_API uint32_t System_Read_TabletMode(void);

/** @} */

/**
 * @defgroup applications Installed applications
 *
 * Classic and packaged applications of the registry, in the order of the registry; nothing is sorted or merged.
 * The length of these strings has no upper limit; a buffer of one megabyte is enough for all known machines.
 *
 * In the three lists each entry is followed by ";", also the last one: "Editor;Player;". Entries are not cleaned: a
 * name with a ";" looks like two entries. Unlike the documents, the lists do not have the current user's
 * applications, leave out every application with a "SystemComponent" of type REG_DWORD, also with the value 0, and
 * accept a "DisplayName" only as a REG_SZ of at most 255 characters. What cannot be read is skipped.
 * @{
 */

/**
 * Classic applications in the uninstall keys of the native view, as a JSON document.
 *
 *     [{"machine":[{"name":"Editor","version":"2.1"},{"name":"Player","version":""}]},{"user":[]}]
 *
 * One object for each hive; "user" is the account that the host runs as. Applications without a "DisplayName", with
 * one of 1024 characters or more, and with a "SystemComponent" other than 0 are left out. A "DisplayVersion" that is
 * missing or too long is the empty string. Value types are not checked: the bytes are read as UTF-16 up to the first
 * zero character or their end. Double quotes are removed; nothing is escaped.
 *
 * out: 29 characters, and for each application 25 and its two strings.
 * Failure: a hive that cannot be read has no records, and a subkey that cannot be opened ends the list of its hive.
 * Session: not needed. Blocks: as long as the registry takes, about five reads for each application.
 */
VESK_API void GetApplist_x64(VeskChar16* out);

/**
 * The same for the 32-bit view.
 *
 * out: 29 characters, and for each application 25 and its two strings.
 * Failure: as GetApplist_x64. Session: not needed. Blocks: as GetApplist_x64.
 */
VESK_API void GetApplist_x86(VeskChar16* out);

/**
 * Packaged applications of the machine with their display names, as a JSON document.
 *
 *     [{"application":"Vendor.App_1.2.3.0_x64__abcdefghijklm","display_name":"Sketch Pad"}]
 *
 * One record for each entry of the package store. The display name is the content of the first <DisplayName> in the
 * manifest of the package. A reference to the package's resources is resolved; if that fails the content is
 * unchanged. Nothing is cleaned or escaped. Of a family with several packages the first counts.
 *
 * out: 3 characters, and for each package 37, its full name and a display name of at most 259.
 * Failure: [] if the store cannot be read. The display name is empty for a package that is not installed any more
 * or whose manifest cannot be read or has no display name; for all packages on a Windows without packages, and on a
 * thread in a multithreaded COM apartment, because this export enters a single-threaded one for each package.
 * Session: not needed. Blocks: one manifest and up to three resource lookups for each package.
 */
VESK_API void GetApplist_UWP(VeskChar16* out);

/**
 * Short names of the entries of the package store, as a list.
 *
 * One name for each entry: several versions of one package have the same name.
 *
 * out: at most 256 characters for each entry, and a terminator. Failure: the empty string.
 * Session: not needed. Blocks: as long as the registry takes.
 */
VESK_API void App_Get_UWPApp(VeskChar16* out);

/**
 * "DisplayName" of the native uninstall keys, as a list.
 *
 * out: at most 256 characters for each entry, and a terminator. Failure: the empty string.
 * Session: not needed. Blocks: as long as the registry takes.
 */
VESK_API void App_Get_Win32App(VeskChar16* out);

/**
 * "DisplayName" of the 32-bit uninstall keys, as a list.
 *
 * out: at most 256 characters for each entry, and a terminator. Failure: the empty string.
 * Session: not needed. Blocks: as long as the registry takes.
 */
VESK_API void App_Get_Win32WOW6432App(VeskChar16* out);

/** @} */

/**
 * @defgroup versions Versions of the maker's software
 *
 * Read by each call.
 * @{
 */

/**
 * The version of the driver package of the device "Vesk Kelvane", such as "1.4.0.7".
 *
 * Of several such devices the last in the device list counts. The version is read from ControlSet001, which need
 * not be the control set that the system runs with.
 *
 * out: 512 characters.
 * Failure or absent: the empty string. Session: not needed. Blocks: one query for each present device.
 */
VESK_API void GetInfVersion(VeskChar16* out);

/**
 * The version of the assistant package, family F3A1C07E.VESKBrisenda_r4wkp8tz2yhnc, such as "2.3.41.0".
 *
 * Of several packages the first that the system reports counts.
 *
 * out: 128 characters.
 * Failure or absent: `out` is not written, also for a package name without a version. Clear `out` before the call.
 * Session: not needed. Blocks: two lookups.
 */
VESK_API void GetUWPVersion(VeskChar16* out);

/** @} */

/**
 * @defgroup usage Usage
 *
 * What runs at the moment. Nothing in the documents is escaped. The exports have no `initCom`: those that use COM
 * enter and leave the multithreaded apartment and fail on a thread in a single-threaded one.
 * @{
 */

/**
 * The topmost windows of applications, at most five, topmost first, as a JSON document (without the line break).
 *
 *     [{"process_name":"editor.exe","process_title":"","cpu_usage":"0.1","mem_usage":"14020","z_order":"1",
 *       "is_focused":"1"}]
 *
 * A window counts if it is enabled and visible, has a title and a visible title bar, is not a tool window, is the
 * one that represents its root owner, and the name of its process can be read. Windows that the system hides
 * (cloaked) count too. A service in session 0 has no windows. On Windows 7 and 8 the names cannot be read with the
 * access that is asked for. The result is [] in both cases. Security software can report that processes are opened
 * with all access.
 *
 *     process_name   base name of the executable; for a packaged application that of the process in its frame
 *     process_title  always empty
 *     cpu_usage      per cent of all processors over one second, one digit after the point; -1.0 if the times of
 *                    the system do not change or cannot be read, 0.0 if those of the process cannot be read
 *     mem_usage      working set in kilobytes; negative from 2 GiB on (32 bits)
 *     z_order        position among the windows that count, from 1 in every call
 *     is_focused     "1" for the first of them, "0" for the others
 *
 * A process whose name can be read but that cannot be opened with all access has 0.0 and 0. The windows of a process
 * that cannot be opened at all, such as an elevated one if the host is not, do not count. If the memory of a
 * process cannot be read, its record is missing and its position is used.
 *
 * out: 2048 characters: five records of at most 135 and a process name of at most 259 each.
 * Failure or absent: [].
 * Session: not needed. Blocks: one second for each of the first five windows that count and whose process can be
 * opened.
 */
VESK_API void AppList_OpenWindows(VeskChar16* out);

/**
 * The five busiest processes, busiest first, as a JSON document.
 *
 *     [{"process_name":"browser#2","cpu_usage":"4.3","mem_usage":"212744"}]
 *
 * The name is that of the performance counter's instance. cpu_usage is a tenth of the counter's per cent, which is
 * the sum over all processors, with one digit after the point. mem_usage is the working set in kilobytes, 2097151
 * for every process of 2 GiB or more. Processes with a sort key of 0 are not listed; the order of equal ones is
 * undefined.
 *
 * out: 4096 characters: at most 84 and the name for each process.
 * Failure: the empty string. Absent: [], if all sort keys are 0.
 * Session: not needed. Blocks: one WMI query.
 */
VESK_API void AppList_CpuUsage(VeskChar16* out);

/**
 * The ten largest processes, largest first, in the form of AppList_CpuUsage.
 *
 * out: 4096 characters: at most 84 and the name for each process.
 * Failure: the empty string. Absent: []. Session: not needed. Blocks: one WMI query.
 */
VESK_API void AppList_MemUsage(VeskChar16* out);

/**
 * Brightness and volume in per cent, as a JSON document: {"brightness":"70","volume":"35"}.
 *
 * The volume is "0" while muted. The multithreaded apartment is entered twice.
 *
 * out: 64 characters.
 * Failure or absent: the empty string as the value; the document is complete.
 * Session: not needed. Blocks: one WMI query, then as long as the audio service takes.
 */
VESK_API void AppList_HardwareConfig(VeskChar16* out);

/** @} */

#if defined(__clang__)
#pragma clang diagnostic pop
#elif defined(_MSC_VER)
#pragma warning(pop)
#endif

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VESK_SONDREL_H */
