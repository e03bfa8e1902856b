/**
 * @file
 * VeskSondrel64: the hardware and system data collector.
 *
 * A host loads the library at run time (VeskSondrel64.dll on Windows, libVeskSondrel64.so against the
 * simulated machine) and calls one export per question. Each export answers with a number, a short text or a
 * document written into a buffer of the host's. What a family's exports share stands at its head; each
 * export's own comment says the rest.
 *
 * Conventions
 *
 *     Session    Exports that talk to the embedded controller (EC) or the processor need a driver session:
 *                InitializeSondrel first, ShutdownSondrel last. All others work without one.
 *     Sentinels  0x7FFFFFFF (VESK_READ_FAILED)      an EC command or a radio read failed
 *                0                                  the machine's family has no such EC reading
 *                -1 and the empty text              a WMI read failed
 *                -1000 (VESK_RADIO_NOT_READ)        a radio field that no read has set; as text "init_string"
 *                "error_string"                     a failed radio read, as text
 *     Failure    What an export gives when it could not read. Nothing else tells the host; the cause stands in
 *                the debug log, and for WMI in the event log too.
 *     Not there  What it gives when there is nothing to read.
 *     Buffers    A text goes into a buffer of the host's, whole and with its terminator. There is no size
 *                argument: the host gives enough room, and each export's comment says how much that is, the
 *                terminator included, in characters for wide text (VeskChar16, UTF-16) and in bytes for narrow
 *                text (char, UTF-8). A pointer may be null only where the comment says so.
 *     initCom    Byte argument of the exports that use COM. Not 0: the call enters the multithreaded apartment
 *                for itself and leaves it again, and fails on a thread that is in a single-threaded one. 0: the
 *                calling thread has entered an apartment, of either kind, and the call leaves it alone.
 *     Threads    Exports run on the caller's thread, and the library starts none. Calls that share state must
 *                not overlap: those of the session, GetEEPROM_Data and GetSENSOR_WMI_Data with each other or
 *                themselves, WMIGetHDDTemp with itself. The first Wi-Fi and the first Bluetooth read are
 *                guarded: threads that come at once get one complete snapshot. EC readings of several commands
 *                are not atomic: two threads that read the EC at once can spoil each other's numbers.
 *     Blocking   An EC command or another driver request takes as long as the driver takes, well below a
 *                millisecond as a rule; a WMI query as long as WMI takes, without a limit. Where an export waits
 *                on purpose, its comment gives the time. "The identity" is what chooses a machine's EC readings:
 *                up to three registry reads, or as many as four EC commands while they are not kept yet.
 *     Errors     Nothing is raised across an export. Running out of memory is a failure like any other: it
 *                gives the export's failure value, or its document with nothing in it.
 */
#ifndef VESK_SONDREL_H
#define VESK_SONDREL_H

#include <stdint.h>

#ifdef __cplusplus
#include <string>
#endif

/* Windows takes its names from the .def file; elsewhere a name has to be visible before it can be exported. */
#if defined(__GNUC__) && !defined(_WIN32)
#define VESK_API __attribute__((visibility("default")))
#else
#define VESK_API
#endif

#if defined(_WIN32)
#include <stddef.h>
/** A character of a wide text: UTF-16, 16 bits on every platform, whatever size wchar_t has there. */
typedef wchar_t VeskChar16;
#elif defined(__cplusplus)
/** A character of a wide text: UTF-16, 16 bits on every platform, whatever size wchar_t has there. */
typedef char16_t VeskChar16;
#else
#include <uchar.h>
/** A character of a wide text: UTF-16, 16 bits on every platform, whatever size wchar_t has there. */
typedef char16_t VeskChar16;
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Two exports hand out a string object of C++ under a plain name, on purpose. */
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#elif defined(_MSC_VER)
#pragma warning(push)
#pragma warning(disable : 4190)
#endif

/** An EC command or a radio read failed. */
#define VESK_READ_FAILED 0x7FFFFFFF

/** A radio field that no read has set: no adapter, or nothing connected. */
#define VESK_RADIO_NOT_READ (-1000)

/**
 * @defgroup session Session and versions
 *
 * The session is counted: each InitializeSondrel that gave 1 is matched by one ShutdownSondrel, and the last
 * of them closes the device. Opening and closing must not overlap with each other or with a reading on
 * another thread.
 * @{
 */

/**
 * Opens the driver session, or adds one reference to the one that is open.
 *
 * The device is first opened for this process alone; where that is refused it is opened shared.
 *
 * Result: 1 the session is open.
 * Failure: 0, the device is missing or refused both opens; a later call tries again.
 * Session: opens it. Blocks: as long as opening a device takes, twice at most.
 */
VESK_API int32_t InitializeSondrel(void);

/**
 * Drops one reference; the last one closes the device.
 *
 * Failure: none. Without an open session it does nothing, so one call too many does no harm.
 * Session: closes it. Blocks: as long as closing a device takes.
 */
VESK_API void ShutdownSondrel(void);

/**
 * The driver's version word, as the driver gives it.
 *
 * Failure: 0, also with no session open, in which case nothing is sent.
 * Session: needed. Blocks: one driver request.
 */
VESK_API uint32_t GetDriverVersion(void);

/**
 * The driver's own reference count.
 *
 * This is not the number of InitializeSondrel calls, which nothing shows.
 *
 * Failure: 0, also with no session open, in which case nothing is sent.
 * Session: needed. Blocks: one driver request.
 */
VESK_API uint32_t GetRefCount(void);

/**
 * The version of the I/O interface: always 65537 (0x00010001).
 *
 * Failure: none. Session: not needed. Blocks: not at all.
 */
VESK_API uint32_t GetIoDllVersion(void);

/** @} */

/**
 * @defgroup identity Embedded controller: identity
 *
 * Read from the EC once per machine and then kept in the registry, under HKEY_LOCAL_MACHINE
 * SOFTWARE\Vesk\Vesk Kelvane\VeskTessaly, for good. A kept value answers without an EC command and without a
 * session; it is never refreshed. Where it cannot be kept, which needs an administrator's rights, each call
 * reads the EC again. A kept number above 2147483647 comes back as 2147483647.
 * @{
 */

/**
 * The firmware revision code: two ASCII letters, the first in bits 15-8. "KL" is 0x4B4C.
 *
 * Failure: VESK_READ_FAILED, and nothing is kept.
 * Session: needed while the value is not kept yet. Blocks: a registry read; at first two EC commands.
 */
VESK_API uint32_t EC_ReadEcFwRev(void);

/**
 * The chip id, 0 to 255. It tells variants within a firmware revision code apart; 0 is an id like any other.
 *
 * Failure: VESK_READ_FAILED, and nothing is kept.
 * Session: needed while the value is not kept yet. Blocks: a registry read; at first one EC command.
 */
VESK_API uint32_t EC_ReadEcChipId(void);

/**
 * The chip name: four bytes in reading order, the first in bits 31-24.
 *
 * Failure: VESK_READ_FAILED, and nothing is kept.
 * Session: needed while the value is not kept yet. Blocks: a registry read; at first four EC commands.
 */
VESK_API uint32_t EC_ReadEcChipName(void);

/** @} */

/**
 * @defgroup battery Battery: from the system's battery device
 *
 * Each call asks the first battery device, in the device's own units, as a rule milliwatt-hours and
 * millivolts; further batteries are not looked at. What a device does not give is 0: with no battery, with a
 * device that refuses, and for the present capacity and voltage with a device that is no battery of the
 * system itself.
 * @{
 */

/**
 * The capacity that the battery was designed for.
 *
 * Failure and not there: 0. Session: not needed. Blocks: opening the device and up to three requests.
 */
VESK_API uint32_t Battery_Read_DesignedCapacity(void);

/**
 * The capacity that the battery holds when it is full.
 *
 * Failure and not there: 0. Session: not needed. Blocks: opening the device and up to three requests.
 */
VESK_API uint32_t Battery_Read_FullChargedCapcity(void);

/**
 * The present capacity.
 *
 * Failure and not there: 0. Session: not needed. Blocks: opening the device and up to three requests.
 */
VESK_API uint32_t Battery_Read_Capacity(void);

/**
 * The present voltage, whatever the name says.
 *
 * Failure and not there: 0. Session: not needed. Blocks: opening the device and up to three requests.
 */
VESK_API uint32_t Battery_Read_DesignVoltage(void);

/**
 * Full-charged by designed capacity: a fraction, no percentage.
 *
 * Failure and not there: 0, also where the designed capacity is 0.
 * Session: not needed. Blocks: opening the device and up to three requests.
 */
VESK_API float Battery_Read_ASOC(void);

/**
 * The present by the full-charged capacity in per cent, rounded to a multiple of ten: 84 gives 80, 85 gives
 * 90.
 *
 * Nothing holds it at 100: a device that tells nonsense gives nonsense, up to 4294967290, the largest
 * multiple of ten in 32 bits, where the quotient is beyond them.
 *
 * Failure and not there: 0, also where the full-charged capacity is 0.
 * Session: not needed. Blocks: opening the device and up to three requests.
 */
VESK_API uint32_t Battery_Read_CapacityPercentage(void);

/** @} */

/**
 * @defgroup battery_ec Battery: from the embedded controller
 *
 * In the EC's own units, chosen by the machine's register map on every call. 0 stands for a machine without
 * a map, which includes one whose EC cannot be identified.
 * @{
 */

/**
 * Charging cycles.
 *
 * Codes CF, GL, PC and WL read them from the EC, codes AB, AR and KL take them from the battery device.
 *
 * Failure: VESK_READ_FAILED when an EC command fails, 0 from the battery device. Not there: 0.
 * Session: needed for the former codes. Blocks: the identity, then two EC commands or the device's requests.
 */
VESK_API uint32_t Battery_Read_CycleCount(void);

/**
 * The lid byte, 0 to 255. Its meaning is the firmware's.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Battery_Get_LidStatus(void);

/**
 * The voltage that the charger is asked for, 0 to 65535.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and two EC commands.
 */
VESK_API uint32_t Battery_Read_ChargingVoltage(void);

/**
 * The voltage of the whole pack, 0 to 65535.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and two EC commands.
 */
VESK_API uint32_t Battery_Read_PackageVoltage(void);

/**
 * The temperature of the pack, 0 to 65535.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and two EC commands.
 */
VESK_API uint32_t Battery_Read_Temperature(void);

/**
 * The current, -32768 to 32767, negative while discharging.
 *
 * Failure: -1, which a current can be too. Not there: 0.
 * Session: needed. Blocks: the identity and two EC commands.
 */
VESK_API int32_t Battery_Read_Current(void);

/**
 * The voltages of the four cells as "%u;%u;%u;%u", cell 0 first, 0 to 65535 each.
 *
 * out: 44 bytes; null does nothing.
 * Failure: 2147483647 in the place of a cell whose command failed. Not there: 0 in each place.
 * Session: needed. Blocks: for each cell the identity and up to seven EC commands; on KL with chip id 1 up
 * to 26 and 10 ms, and up to 20 ms more while the battery's bus is busy.
 */
VESK_API void Battery_Read_CellVoltage(char* out);

/**
 * The date of manufacture as "%4d-%02d-%02d", year first: "2017-10-28".
 *
 * The fields are not tested: month 0 or 15 is written as it is.
 *
 * out: exactly 11 bytes; null does nothing.
 * Failure and not there: "1980-01-01".
 * Session: needed. Blocks: as one cell above; on codes CF, GL, PC and WL the chip id chooses between the two
 * ways.
 */
VESK_API void Battery_Read_ManufactureDate(char* out);

/**
 * The battery maker's name: ten bytes as the EC gives them and a terminator.
 *
 * A name that ends earlier is terminated there, and the bytes behind that are the EC's too.
 *
 * out: exactly 11 bytes; null does nothing.
 * Failure and not there: "0x7FFFFFFF", also for a name that begins with a zero.
 * Session: needed. Blocks: the identity and up to ten EC commands.
 */
VESK_API void Battery_Read_ManufactureName(char* out);

/** @} */

/**
 * @defgroup thermal Temperatures and fans
 *
 * Whole degrees Celsius and revolutions per minute, from the EC, chosen by the machine's register map on
 * every call. 0 stands for a machine without a map, which includes one whose EC cannot be identified, and
 * for a sensor that is not ready.
 *
 * The first five give the EC's byte. The next six come from the sensor block: codes CF, GL, PC and WL give
 * the EC's byte there too, codes AB, AR and KL a sensor's count, which a thermistor curve turns into
 * degrees. A temperature beyond its curve comes out as the curve's end.
 * @{
 */

/**
 * The processor's temperature, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_Cpu_Temperature(void);

/**
 * The board's temperature at sensor TS0L, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_BoardTS0L_Temperature(void);

/**
 * The board's temperature at sensor TS0R, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_BoardTS0R_Temperature(void);

/**
 * The graphics processor's temperature at sensor TS1L, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_GpuTS1L_Temperature(void);

/**
 * The graphics processor's temperature at sensor TS1R, 0 to 255.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and one EC command.
 */
VESK_API uint32_t Thermal_Read_GpuTS1R_Temperature(void);

/**
 * The battery connector's temperature: 0 to 255, or 53 to 110 through the curve.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_BatteryConnector_Temperature(void);

/**
 * The temperature of the AC input's transistor: 0 to 255, or 53 to 110 through the curve.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_ACFET_Temperature(void);

/**
 * The temperature of the charger's choke: 0 to 255, or 53 to 110 through the curve.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_ChargerChoke_Temperature(void);

/**
 * The temperature of the graphics processor's voltage regulator: 0 to 255, or 53 to 110 through the curve.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_GpuVrm_Temperature(void);

/**
 * The temperature above the processor: 0 to 255, or 35 to 100 through the curve.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_UpCpu_Temperature(void);

/**
 * The temperature of the graphics memory: 0 to 255, or 35 to 100 through the curve.
 *
 * Failure: VESK_READ_FAILED. Not there: 0. Session: needed. Blocks: the identity and up to four EC commands.
 */
VESK_API uint32_t Thermal_Read_GpuVram_Temperature(void);

/**
 * The speeds of fans 0 to 3 in revolutions per minute as "%d;%d;%d;%d", fan 0 first.
 *
 * out: 44 bytes; null does nothing.
 * Failure: 2147483647 in the place of a fan whose command failed. Not there: 0, which is also the speed of a
 * fan that stands still.
 * Session: needed. Blocks: for each fan the identity and up to 23 EC commands, and 10 ms for each fan with a
 * tachometer: 20 ms on codes AB and AR and on KL with chip id 1, 30 ms on KL with chip id 0, none on the
 * others.
 */
VESK_API void Thermal_Read_Fan(char* out);

/** @} */

/**
 * @defgroup processor Processor and power
 *
 * The three power values are the driver's own, in its own units, and there on processors that call
 * themselves "GenuineIntel" only.
 * @{
 */

/**
 * The busy fraction of all processors together over one second, 0.0 to 1.0.
 *
 * Counters that stand still give 1.0. Counters that run backwards, which only a broken system has, can give
 * a number outside the range, but always a finite one.
 *
 * Failure: 0.0 when a sample fails. Session: not needed. Blocks: 1 s, and cannot be cut short.
 */
VESK_API double CPU_ReadCPUUsage(void);

/**
 * The four registers of CPUID for a leaf, as the driver gives them.
 *
 * Failure: four zeros when the driver refuses; without a session the four stay unwritten.
 * Session: needed. Blocks: one driver request.
 */
VESK_API void CPU_ReadCpuId(uint32_t leaf, uint32_t* eax, uint32_t* ebx, uint32_t* ecx, uint32_t* edx);

/**
 * The power that the processor package takes, in the driver's own units.
 *
 * Failure and not there: 0. Session: needed. Blocks: two driver requests.
 */
VESK_API uint32_t Thermal_Read_CpuPackagePower(void);

/**
 * The first limit of the package's power, in the driver's own units.
 *
 * Failure and not there: 0. Session: needed. Blocks: two driver requests and the identity.
 */
VESK_API uint32_t Thermal_Read_CpuDptf_PowerLimit1(void);

/**
 * The second limit of the package's power, in the driver's own units.
 *
 * Failure and not there: 0. Session: needed. Blocks: two driver requests and the identity.
 */
VESK_API uint32_t Thermal_Read_CpuDptf_PowerLimit2(void);

/**
 * What the machine runs on: 0 battery, 1 AC, 255 not known.
 *
 * Failure: 255. Session: not needed. Blocks: not at all.
 */
VESK_API uint32_t Power_Read_ACDCMode(void);

/** @} */

/**
 * @defgroup firmware_log Firmware: event log and sensor
 *
 * Both ask the firmware through a device of its own, which each request opens and closes; two of these calls
 * must not overlap. Numbers are "0x" and at least two lower-case hexadecimal digits.
 * @{
 */

/**
 * The firmware's event store as one JSON text.
 *
 *     {"version":"0x12","register_count":"0x02","register":["0x05","0xabc"],"event":["0x5a 0xa5 ..."]}
 *
 * An event is one record of the firmware's log, byte by byte; where its kind (byte 7) is 0x20, the bytes
 * from the tenth on are decoded from BCD, up to the first digit that is none. A record that claims more than
 * the 256 bytes that the firmware gives ends with the 256th. Register 255 reads as the register count: the
 * firmware knows both by the same number.
 *
 * The log is walked by the firmware, which goes on where the call before left it. It is read until it ends
 * or its next record would bring the characters of all values above 31500; that record is lost to this
 * document.
 *
 * out: at most 61 + V + 3 x (registers + events) characters and a terminator, where V, the characters of all
 * values, is at most the greater of 31500 and 20 + 10 x registers. With up to 3000 registers that is below
 * 43,000. There is no limit on registers but what can be asked for: a count above 16,777,216 is shown, and
 * its list left as if the count could not be read.
 * Failure: never as a whole. What cannot be read is an empty text, an unread count gives [""] and an unread
 * log [].
 * Session: not needed. Blocks: one opening of the device and one request for each number and each event.
 */
VESK_API void GetEEPROM_Data(VeskChar16* out);

/**
 * The firmware's P-sensor status as {"p_sensor":"0x05"}.
 *
 * out: 26 characters.
 * Failure: {"p_sensor":""}. A reply below four bytes counts as the status 0.
 * Session: not needed. Blocks: one opening of the device and one request.
 */
VESK_API void GetSENSOR_WMI_Data(VeskChar16* out);

/** @} */

/**
 * @defgroup firmware_variables Firmware: variables
 *
 * Three fields of two firmware variables, as raw bytes: exactly as many as named here, with no terminator
 * and no interpretation. Each call first asks for the privilege SeSystemEnvironmentPrivilege, which the
 * process has to hold: administrators do.
 *
 * A setter reads the whole variable, replaces its field and writes the variable back at the size it was read
 * with; it cannot create one. Two setters at once may lose one change. A variable that is larger than 256
 * bytes, or that ends before the field does, fails the read, the latter with ERROR_INVALID_DATA (13).
 * @{
 */

/**
 * The random UUID: 16 bytes of "CNFG".
 *
 * Result: 0 read.
 * Failure: the system's error code; the bytes are as they were. Session: not needed. Blocks: one call of the
 * firmware.
 */
VESK_API uint32_t GPNV_Get_RandomUUID(uint8_t* out);

/**
 * The activated time: 19 bytes of "CNFG".
 *
 * Result: always 0.
 * Failure: 0 too, and the bytes are as they were; only the debug line tells, so clear them before the call.
 * Session: not needed. Blocks: one call of the firmware.
 */
VESK_API uint32_t GPNV_Get_ActivatedTime(uint8_t* out);

/**
 * The time of manufacture: 23 bytes of "MFG0".
 *
 * Result: 0 read.
 * Failure: the system's error code; the bytes are as they were. Session: not needed. Blocks: one call of the
 * firmware.
 */
VESK_API uint32_t GPNV_Get_ManufacturedTime(uint8_t* out);

/**
 * Sets the random UUID: 16 bytes.
 *
 * Result: 0 written.
 * Failure: the system's error code when the write failed. After a failed read nothing is written and the
 * result is 0 all the same; only the debug line tells.
 * Session: not needed. Blocks: two calls of the firmware.
 */
VESK_API uint32_t GPNV_Set_RandomUUID(const uint8_t* bytes);

/**
 * Sets the activated time: 19 bytes.
 *
 * Result: 0 written.
 * Failure: the system's error code when the write failed. After a failed read nothing is written and the
 * result is 0 all the same; only the debug line tells.
 * Session: not needed. Blocks: two calls of the firmware.
 */
VESK_API uint32_t GPNV_Set_ActivatedTime(const uint8_t* bytes);

/**
 * Sets the time of manufacture: 23 bytes.
 *
 * Result: 0 written.
 * Failure: the system's error code when the write failed. After a failed read nothing is written and the
 * result is 0 all the same; only the debug line tells.
 * Session: not needed. Blocks: two calls of the firmware.
 */
VESK_API uint32_t GPNV_Set_ManufacturedTime(const uint8_t* bytes);

/** @} */

/**
 * @defgroup features Firmware: Battery Health and Quiet Fan
 *
 * Two features of the firmware, switched through its WMI class, and the directory in which their last
 * settings are remembered. The class lies in the namespace ROOT\WMI, which as a rule answers administrators
 * only.
 *
 * A settings file is read like a formatted number from a text stream: white space is passed over, then comes
 * one sign and digits up to the first other character. An absent, empty or blank file gives the default, a
 * file that begins with anything else 0, and a number beyond 32 bits the nearest number that fits.
 *
 * A settings file is replaced in one step: the number is written to a file beside it (its name with ".new"
 * behind it), brought to the disk and moved over it. Whenever a crash or a full disk ends this, the file
 * holds the number before or the new one whole; a file "....new" that is left over is used up by the next
 * setting. Only where the move is refused, as while another process keeps the file open without sharing its
 * deletion, or where no file may be made beside it, is the new text written over the old one in place, by
 * one write: a reader that shares the file then sees one or the other, but a crash at that moment may leave
 * a part of the new number.
 * @{
 */

/**
 * 1 the firmware has Battery Health; 0 it has not.
 *
 * Failure: 0. Session: not needed. Blocks: one WMI query and one call of the firmware.
 */
VESK_API int32_t WMICheckBatteryHealthSupport(uint8_t initCom);

/**
 * 0 the firmware has Quiet Fan and it is off; 1 it is on; -1 there is none.
 *
 * Failure: -1. Session: not needed. Blocks: one WMI query and one call of the firmware.
 */
VESK_API int32_t WMICheckQuietFanSupport(uint8_t initCom);

/**
 * The Battery Health number that was set last, as the settings file holds it; the firmware is not asked.
 *
 * No range is tested.
 *
 * Failure and not there: 100, the default. Session: not needed. Blocks: two WMI queries.
 */
VESK_API int32_t WMIGetBatteryHealth(uint8_t initCom);

/**
 * 1, 2 or 3 as Quiet Fan was set last, by the settings file; 0 for every other number. The firmware is not
 * asked.
 *
 * Failure and not there: 0, the default. Session: not needed. Blocks: two WMI queries.
 */
VESK_API int32_t WMIGetQuietFan(uint8_t initCom);

/**
 * Gives Battery Health a number, any number, and remembers it.
 *
 * Result: 1 the firmware took it, also where it could not be remembered: with no app path for this user, or
 * no right to write there.
 * Failure: 0, and nothing is remembered; also where the firmware has no Battery Health.
 * Session: not needed. Blocks: up to four WMI queries.
 */
VESK_API int32_t WMISetBatteryHealth(int32_t value, uint8_t initCom);

/**
 * Switches Quiet Fan: the firmware is told 0 for 0 and 1 for any other value; the value itself is
 * remembered.
 *
 * Result: 1 the firmware took it, also where it could not be remembered, as above.
 * Failure: 0, and nothing is remembered. Session: not needed. Blocks: up to three WMI queries.
 */
VESK_API int32_t WMISetQuietFan(uint8_t value, uint8_t initCom);

/**
 * Sets the app path of the present user: the directory of the settings files, without a trailing backslash.
 *
 * It is kept in the registry, under HKEY_LOCAL_MACHINE SOFTWARE\Vesk\Vesk Kelvane\VeskTessaly, in a value
 * named as WMI names the user; where WMI names none, in the key's unnamed value. The path is kept as it is:
 * it is not tested, and no directory is made. One of more than 255 characters is kept but cannot be read
 * back. Null counts as the empty text. Writing there needs an administrator's rights.
 *
 * Result: 1 kept. Failure: 0. Session: not needed. Blocks: one WMI query.
 */
VESK_API int32_t WMISetAppPath(const VeskChar16* path, uint8_t initCom);

/** @} */

/**
 * @defgroup inventory Inventory
 *
 * Each of these asks WMI one question, over a connection of its own; nothing is kept. Session: none is
 * needed.
 *
 * A text grows with what the machine has: the values of all rows stand in it, in WMI's order, joined by ";".
 * A row without a value gives an empty one. 4096 characters do for any machine known; WMI itself sets no
 * limit.
 *
 * At a failure the cause stands in the debug log, and in the event log but for WMIGetExternMonitorNum. A
 * question that finds no row, a class that WMI does not have included, is no failure: it gives the empty
 * text too, or -1, and the count 0, but no line of a failure in any log. Where a text is one property of all
 * rows and the first of them has no value, both logs tell that too. The namespace ROOT\WMI (displays, disk
 * temperatures) as a rule answers administrators only.
 * @{
 */

/**
 * The fifth OEM string of the firmware, which holds the maker's 90 number.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGet90Number(VeskChar16* out, uint8_t initCom);

/**
 * The maker of the base board.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetBiosManufacture(VeskChar16* out, uint8_t initCom);

/**
 * The firmware's release date as year, month, day without separators: "20211231".
 *
 * out: 9 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetBiosReleaseDate(VeskChar16* out, uint8_t initCom);

/**
 * The firmware's version.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetBiosVersion(VeskChar16* out, uint8_t initCom);

/**
 * The UUID of the machine as the firmware gives it.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetBoardUUID(VeskChar16* out, uint8_t initCom);

/**
 * The name of each processor.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetCPUInfo(VeskChar16* out, uint8_t initCom);

/**
 * The load in per cent, 0 to 100, of the last processor that tells one.
 *
 * Failure and not there: -1. Session: not needed. Blocks: one WMI query.
 */
VESK_API int32_t WMIGetCPUUsg(uint8_t initCom);

/**
 * The product family of the machine.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetComputerFamilyName(VeskChar16* out, uint8_t initCom);

/**
 * How many displays are connected that are not built in.
 *
 * Failure: -1. Not there: 0. Session: not needed. Blocks: one WMI query.
 */
VESK_API int32_t WMIGetExternMonitorNum(uint8_t initCom);

/**
 * The name of each display adapter.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetGPUInfo(VeskChar16* out, uint8_t initCom);

/**
 * The name of each fixed disk.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDCaption(VeskChar16* out, uint8_t initCom);

/**
 * Three values for each physical disk, one disk after another: model, size in bytes, kind.
 *
 * The kind is 0 unknown, 3 turning, 4 solid state; one that is not told is an empty value.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDInfo(VeskChar16* out, uint8_t initCom);

/**
 * The model of each turning disk.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDModel(VeskChar16* out, uint8_t initCom);

/**
 * The size of each fixed disk in bytes.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDSize(VeskChar16* out, uint8_t initCom);

/**
 * The temperature of every disk in whole degrees Celsius, joined by ";": "38;41".
 *
 * It is the first raw byte of SMART attribute 194, as the storage stack publishes it; a disk with two such
 * attributes adds two numbers, one without adds none. Ten disks are kept; further ones are dropped. A disk
 * without a name or without its block of bytes is passed over. Two calls must not overlap.
 *
 * out: 1200 characters.
 * Failure: the empty text at first. What was read stays in the process: after a failure, or while fewer
 * disks answer than before, the former numbers stay in the list. Not there: the empty text.
 * Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDTemp(VeskChar16* out, uint8_t initCom);

/**
 * The name of each monitor, up to 13 characters.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetLCDModel(VeskChar16* out, uint8_t initCom);

/**
 * The hardware address of each physical network adapter: "02:1A:...".
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetMacAddress(VeskChar16* out, uint8_t initCom);

/**
 * The maker of each memory module.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetMemManufacture(VeskChar16* out, uint8_t initCom);

/**
 * The part number of each memory module.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetMemModel(VeskChar16* out, uint8_t initCom);

/**
 * The capacity of each memory module in bytes.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetMemSize(VeskChar16* out, uint8_t initCom);

/**
 * The product name of the base board.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetModelName(VeskChar16* out, uint8_t initCom);

/**
 * The brightness in per cent, 0 to 100, of the last display that tells one.
 *
 * Failure and not there: -1. Session: not needed. Blocks: one WMI query.
 */
VESK_API int32_t WMIGetMonitorBrightness(uint8_t initCom);

/**
 * The country code of the operating system, a telephone prefix: "49".
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetOSCountryCode(VeskChar16* out, uint8_t initCom);

/**
 * Caption, processor width and version of the operating system: "Windows 10 Pro 64-bit 10.0.19041".
 *
 * out: 4096 characters.
 * Failure: when both queries fail or give nothing the text is empty: a bare version would say nothing. When
 * one fails its place stays empty, and its blank stands.
 * Session: not needed. Blocks: two WMI queries.
 */
VESK_API void WMIGetOSInfo(VeskChar16* out, uint8_t initCom);

/**
 * The product name of the machine.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetProductName(VeskChar16* out, uint8_t initCom);

/**
 * The serial number of the machine.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetSN(VeskChar16* out, uint8_t initCom);

/**
 * The model of each solid state disk.
 *
 * out: 4096 characters. Failure and not there: the empty text. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetSSDModel(VeskChar16* out, uint8_t initCom);

/**
 * "Desktop", "Notebook", "All in One" or "unknown": the first kind of the last enclosure.
 *
 * out: 11 characters.
 * Failure and not there: "unknown". Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetSystemChassisTypes(VeskChar16* out, uint8_t initCom);

/**
 * `value` + 1, in 32 bits: 4294967295 gives 0. Asks nothing of anybody.
 *
 * Failure: none. Session: not needed. Blocks: not at all.
 */
VESK_API uint32_t wmiadd(uint32_t value);

/** @} */

/**
 * @defgroup adapters Network adapters
 *
 * What WMI knows of the wireless adapters, by keys other than the Wi-Fi record's.
 * @{
 */

/**
 * The names of the machine's wireless adapters in WMI, each with a ";" behind it: "Card A;Card B;".
 *
 * Adapters that WMI has no row or no name for are left out.
 *
 * out: 1024 characters: the names and one character for each.
 * Failure: `out` is left as it was without a list of adapters, which is also what a machine without any
 * gives, and when the list grows while it is being asked for; so clear it before the call. A WMI read that
 * fails leaves its adapter out. Not there: the empty text.
 * Session: not needed. Blocks: one WMI query for each wireless adapter.
 */
VESK_API void WMIGetWiFiCardName(VeskChar16* out, uint8_t initCom);

/**
 * The live traffic of the card that RF_WiFiCardName names, in bytes per second: received, ";", sent:
 * "1200;34".
 *
 * The performance counter is found by the length of the card's name alone, of which the first 150 characters
 * count: interfaces with names of the same length contribute too, and the last reading that is not 0 wins.
 * The first call of the process reads the Wi-Fi record.
 *
 * out: 64 characters.
 * Failure: the empty text. Not there: "0;0", when no counter has a name of that length.
 * Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetWiFiBytesPersec(VeskChar16* out, uint8_t initCom);

/** @} */

/**
 * @defgroup wifi Wi-Fi
 *
 * Seven fields of one record, which the first of them that is called reads from the system. From the first
 * read that goes through the record stands to the end of the process: a connection that changes later is not
 * seen. After a failed read the next call tries again.
 *
 * A failed read gives VESK_READ_FAILED and "error_string", which the fields also keep if a later read finds
 * nothing for them. A read that goes through but finds nothing for a field leaves VESK_RADIO_NOT_READ and
 * "init_string": without an interface all of them, without a connection all but the first two, and the
 * signal and the rate of a connection whose access point is not among those in reach. With several
 * interfaces, "connected" and the card's name are those of the last one, the others those of the last
 * connected one.
 *
 * They may be called from several threads, also for the first read: the others wait for it, and all get
 * fields of one complete record. A read takes as long as the WLAN API takes; a kept record answers at once.
 * @{
 */

/**
 * 1 connected, 0 not.
 *
 * Failure: VESK_READ_FAILED. Not there: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_WiFiIsConnected(void);

/**
 * The interface's description.
 *
 * out: 257 characters.
 * Failure: "error_string". Not there: "init_string". Session: not needed. Blocks: the first read.
 */
VESK_API void RF_WiFiCardName(VeskChar16* out);

/**
 * The signal of the access point, in dBm: a negative number.
 *
 * Failure: VESK_READ_FAILED. Not there: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_WiFiRssi(void);

/**
 * The channel's number.
 *
 * Failure: VESK_READ_FAILED. Not there: VESK_RADIO_NOT_READ, also where the card does not tell it.
 * Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_WiFiChannel(void);

/**
 * The first three octets of the access point's address, its vendor prefix: "02:1A:2B".
 *
 * out: 13 bytes.
 * Failure: "error_string". Not there: "init_string". Session: not needed. Blocks: the first read.
 */
VESK_API void RF_AP_MAC(char* out);

/**
 * The highest rate in Mbit/s that the access point offers by the tables of 802.11n and 802.11ac.
 *
 * It is worked out of the access point's beacon; the link's own rate may be lower. 0 without an element of
 * either standard, and for channels of 160 and 80+80 MHz. Elements that are cut short or too short are
 * passed over.
 *
 * Failure: VESK_READ_FAILED. Not there: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_WiFiMaxRate(void);

#ifdef __cplusplus

/**
 * The radio standard of the connection: "FHSS", "DHSS", "IR baseband", "OFDM", "HRDSSS", "ERP", "802.11n",
 * "802.11ac", "802.11ad", "802.11ax", or "Other".
 *
 * The text comes as a string object of C++, so that C does not see this one. Host and library must have been
 * built with the same C++ runtime and the same setting of its string class.
 *
 * Failure: "error_string". Not there: "init_string". Session: not needed. Blocks: the first read.
 */
VESK_API std::string RF_PhyMode(void);

#endif

/** @} */

/**
 * @defgroup bluetooth Bluetooth
 *
 * Three fields of one record, which is read and kept as the Wi-Fi record is, with the same rule for threads.
 * Only connected devices count.
 *
 * Without a radio all three are VESK_RADIO_NOT_READ and "init_string". With a radio but no connected device
 * the first is 0 and the others stay there: a count of 0 is never seen. With several radios, the first is
 * that of the last radio, the others those of the last radio that has devices. What a failed read wrote is
 * kept by the first alone, where a later read finds no radio. A read takes as long as the Bluetooth API takes;
 * no inquiry is sent.
 * @{
 */

/**
 * 1 a device is connected, 0 none.
 *
 * Failure: VESK_READ_FAILED. Not there: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_BTIsUsed(void);

/**
 * How many devices are connected.
 *
 * Failure: VESK_READ_FAILED. Not there: VESK_RADIO_NOT_READ. Session: not needed. Blocks: the first read.
 */
VESK_API int32_t RF_BTConnectedNum(void);

#ifdef __cplusplus

/**
 * The kind of each connected device by its major class, each with a ";" behind it, in the order of the
 * search.
 *
 * "Computer;", "Phone;", "LAN/NetWortk Access point;", "Audio/Video;", "Peripheral;", "Imaging;",
 * "Wearable;", "Toy;", "Health;", "Uncategorized;", or "Others;". A string object of C++: the rule of
 * RF_PhyMode holds.
 *
 * Failure: "error_string". Not there: "init_string". Session: not needed. Blocks: the first read.
 */
VESK_API std::string RF_BTConnectedType(void);

#endif

/** @} */

/**
 * @defgroup system System
 *
 * State of the running system, asked anew by each call.
 * @{
 */

/**
 * 1 when the system runs in S mode, else 0.
 *
 * Failure: 0; the debug log tells which. Session: not needed. Blocks: loading a system library.
 */
VESK_API int32_t System_Check_S_Mode(void);

/**
 * The user's country as two letters: "DE".
 *
 * A nation that has no such code gives what the system has for it, no more than 10 characters.
 *
 * out: 11 characters.
 * Failure and not there: the empty text, also when the user has set no nation.
 * Session: not needed. Blocks: not at all.
 */
VESK_API void System_GetCountryCode_ISO2(VeskChar16* out);

/**
 * The local date and time as narrow text: "2024-05-17 10:30:00".
 *
 * out: exactly 20 bytes.
 * Failure: 20 zero bytes. Session: not needed. Blocks: not at all.
 */
VESK_API void System_Read_LocalTime(char* out);

/**
 * The master volume of the default sound device in per cent, 0 to 100, cut to a whole number, muted or not.
 *
 * `initCom` differs here: not 0, the call enters the single-threaded apartment. On a thread that is in the
 * multithreaded one already pass 0: the entry would fail there without a word, and the call would leave the
 * caller's apartment.
 *
 * Failure and not there: -1, without a sound device. Session: not needed. Blocks: as long as the audio
 * service takes.
 */
VESK_API int32_t System_Read_VolumeLevel(uint8_t initCom);

/**
 * The tablet mode byte of the EC, 0 to 255. Its meaning is the firmware's.
 *
 * Failure: VESK_READ_FAILED. Session: needed. Blocks: one EC command.
 */
VESK_API uint32_t System_Read_TabletMode(void);

/** @} */

/**
 * @defgroup applications Installed applications
 *
 * What the registry knows of classic and packaged applications, in the registry's own order; nothing is
 * sorted and nothing merged. There is no upper limit to any of these texts; a megabyte serves every machine
 * of this kind.
 *
 * The three plain lists give each entry followed by ";", the last one too: "Editor;Player;". Their entries
 * are not cleaned, so that a ";" in a name reads as two entries. Other than in the documents, the current
 * user's hive is not read, a "SystemComponent" of type REG_DWORD leaves the application out whatever its
 * value, and "DisplayName" has to be a REG_SZ of at most 255 characters. What cannot be read is passed over.
 * @{
 */

/**
 * Classic applications that the uninstall keys of the native view know of, as JSON text.
 *
 *     [{"machine":[{"name":"Editor","version":"2.1"},{"name":"Player","version":""}]},{"user":[]}]
 *
 * One object per hive. Left out are applications without a "DisplayName", with one of 1024 characters or
 * more, and with a "SystemComponent" that reads as a number other than 0. A "DisplayVersion" that is missing
 * or too long gives the empty version. Value types are not looked at: the bytes are taken as wide text up to
 * the first zero character, or up to what came. Double quotes are dropped; nothing else is escaped.
 *
 * out: 29 characters, and for each application 25 and its two texts.
 * Failure: a hive that cannot be read has no records, and a subkey that cannot be opened ends its hive's
 * list.
 * Session: not needed. Blocks: as long as the registry takes, about five reads per application.
 */
VESK_API void GetApplist_x64(VeskChar16* out);

/**
 * The same of the 32-bit view.
 *
 * out: 29 characters, and for each application 25 and its two texts.
 * Failure: as GetApplist_x64. Session: not needed. Blocks: as GetApplist_x64.
 */
VESK_API void GetApplist_x86(VeskChar16* out);

/**
 * Packaged applications of the machine with the names that a user sees, as JSON text.
 *
 *     [{"application":"Vendor.App_1.2.3.0_x64__abcdefghijklm","display_name":"Sketch Pad"}]
 *
 * One record per entry of the package store. The display name is the text of the first <DisplayName> in the
 * package's manifest, resolved where it refers to the package's resources and as it stands where that fails.
 * Nothing is cleaned or escaped. Of a family with several packages the first counts.
 *
 * out: 3 characters, and for each package 37, its full name and a display name of at most 259.
 * Failure: [] when the store cannot be read; an empty display name for a package that is gone, whose
 * manifest cannot be read or has no display name, and for all packages on a Windows without packages and on
 * a thread that sits in a multithreaded COM apartment: this export enters a single-threaded one for each
 * package.
 * Session: not needed. Blocks: one manifest and up to three resource look-ups per package.
 */
VESK_API void GetApplist_UWP(VeskChar16* out);

/**
 * Short names of the package store's entries as a plain list.
 *
 * One per entry: versions of one package give the same name several times.
 *
 * out: an entry takes at most 256 characters. Failure: the empty text.
 * Session: not needed. Blocks: as long as the registry takes.
 */
VESK_API void App_Get_UWPApp(VeskChar16* out);

/**
 * "DisplayName" of the native uninstall keys as a plain list.
 *
 * out: an entry takes at most 256 characters. Failure: the empty text.
 * Session: not needed. Blocks: as long as the registry takes.
 */
VESK_API void App_Get_Win32App(VeskChar16* out);

/**
 * "DisplayName" of the 32-bit uninstall keys as a plain list.
 *
 * out: an entry takes at most 256 characters. Failure: the empty text.
 * Session: not needed. Blocks: as long as the registry takes.
 */
VESK_API void App_Get_Win32WOW6432App(VeskChar16* out);

/** @} */

/**
 * @defgroup versions Versions of the maker's software
 *
 * Asked anew by each call.
 * @{
 */

/**
 * The version of the driver package of the device "Vesk Kelvane", such as "1.4.0.7".
 *
 * Among several such devices the last in the platform's list counts.
 *
 * out: 512 characters.
 * Failure and not there: the empty text. Session: not needed. Blocks: one look at each device that is
 * present.
 */
VESK_API void GetInfVersion(VeskChar16* out);

/**
 * The version of the assistant package, family F3A1C07E.VESKBrisenda_r4wkp8tz2yhnc, such as "2.3.41.0".
 *
 * Among several the first that the platform names counts.
 *
 * out: 128 characters.
 * Failure and not there: `out` is not written at all, so clear it before the call; the same for a package
 * name that has no version in it. Session: not needed. Blocks: two look-ups.
 */
VESK_API void GetUWPVersion(VeskChar16* out);

/** @} */

/**
 * @defgroup usage Usage
 *
 * What runs right now. Nothing in the documents is escaped. The exports take no `initCom`: those that use
 * WMI enter the multithreaded COM apartment for themselves and fail in a single-threaded one.
 * @{
 */

/**
 * The uppermost windows of applications, at most five, uppermost first, as JSON text (without the line
 * break).
 *
 *     [{"process_name":"editor.exe","process_title":"","cpu_usage":"0.1","mem_usage":"14020","z_order":"1",
 *       "is_focused":"1"}]
 *
 * A window counts when it is enabled, visible, titled, no tool window, not owned by another one or behind an
 * active popup of its own, has a title bar that is not invisible, and its process can be named.
 *
 *     process_name   base name of the executable; of a packaged application the one behind its frame
 *     process_title  always empty
 *     cpu_usage      per cent of all processors over one second, one digit behind the point; -1.0 when the
 *                    system's times did not move or cannot be read, 0.0 when the process's cannot
 *     mem_usage      working set in kilobytes; wraps to negative numbers from 2 GiB on
 *     z_order        position among the windows that count, starting at 1 with every call
 *     is_focused     "1" for the first of them, "0" for the others
 *
 * A process that tells its name but cannot be opened with all rights shows 0.0 and 0. The windows of one that
 * cannot be opened at all, such as an elevated one while the host is not, do not count. One that does not tell
 * its memory is left out, with its position.
 *
 * out: 2048 characters: five records of at most 135 and a process name of at most 259 each.
 * Failure and not there: [].
 * Session: not needed. Blocks: one second for each of the first five that count and whose process can be
 * opened.
 */
VESK_API void AppList_OpenWindows(VeskChar16* out);

/**
 * The five busiest processes, busiest first, as JSON text.
 *
 *     [{"process_name":"browser#2","cpu_usage":"4.3","mem_usage":"212744"}]
 *
 * A name is that of the performance counter's instance. cpu_usage is a tenth of the counter's per cent,
 * which counts all processors together, with one digit behind the point. mem_usage is the working set in
 * kilobytes, 2097151 for every process of 2 GiB or more. The list ends before the first process that has
 * none of what it is ordered by; the order of equals is open.
 *
 * out: 4096 characters: at most 84 and the name for each process.
 * Failure: the empty text. Not there: [], which says that no process weighs anything.
 * Session: not needed. Blocks: one WMI query.
 */
VESK_API void AppList_CpuUsage(VeskChar16* out);

/**
 * The ten largest processes, largest first, in the form of AppList_CpuUsage.
 *
 * out: 4096 characters: at most 84 and the name for each process.
 * Failure: the empty text. Not there: []. Session: not needed. Blocks: one WMI query.
 */
VESK_API void AppList_MemUsage(VeskChar16* out);

/**
 * Brightness and volume in per cent, as JSON text: {"brightness":"70","volume":"35"}.
 *
 * The volume is "0" while muted. The multithreaded apartment is entered twice.
 *
 * out: 64 characters.
 * Failure and not there: an empty text in the value's place; the document stands all the same.
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
