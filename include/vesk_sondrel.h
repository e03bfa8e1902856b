/*
 * VeskSondrel64: the hardware and system data collector.
 *
 * A host loads the library at run time (VeskSondrel64.dll on Windows, libVeskSondrel64.so against the
 * simulated machine) and calls one export per question. Each export answers with a number, a short text or a
 * document written into a buffer of the host's.
 *
 * Conventions
 *
 *   Session    Exports that talk to the embedded controller or the processor need a driver session:
 *              InitializeSondrel first, ShutdownSondrel last. All others work without one. Each export's
 *              comment says so.
 *   Sentinels  0x7FFFFFFF (VESK_READ_FAILED)  an EC command or a radio read failed
 *              0                              the machine's family has no such EC reading
 *              -1 and the empty text          a WMI read failed
 *              -1000 and "init_string"        a radio field that no read has set
 *              "error_string"                 a failed radio read, as text
 *   Buffers    A text goes into a buffer of the host's, whole and with its terminator. There is no size
 *              argument: the host gives enough room, and each export's comment says how much that is, in
 *              characters for wide text (VeskChar16, UTF-16) and in bytes for narrow text (char, UTF-8).
 *   initCom    Byte argument of the exports that use COM. Not 0: the call enters a COM apartment for itself
 *              and leaves it again. 0: the calling thread has entered one already.
 *   Threads    Exports run on the caller's thread, and the library starts none. Calls that share state (the
 *              session, the disk table) must not overlap. The first Wi-Fi and the first Bluetooth read are
 *              guarded: threads that come at once get one complete snapshot.
 *   Blocking   An EC command takes as long as the driver takes, well below a millisecond as a rule; a WMI
 *              reading as long as WMI takes. Where an export waits on purpose, its comment gives the time.
 *   Errors     Nothing is raised across an export. Running out of memory is a failure like any other: it
 *              gives the export's failure value, or its document with nothing in it.
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

/* A character of a wide text: UTF-16, 16 bits on every platform. */
#if defined(_WIN32)
#include <stddef.h>
typedef wchar_t VeskChar16;
#elif defined(__cplusplus)
typedef char16_t VeskChar16;
#else
#include <uchar.h>
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

/* An EC command or a radio read failed. */
#define VESK_READ_FAILED 0x7FFFFFFF

/* ---- Session and versions ------------------------------------------------------------------------------ */

/*
 * Opens the driver session, or adds one reference to the one that is open.
 * The device is first opened for this process alone; where that is refused it is opened shared.
 * Result: 1 the session is open; 0 the device is missing or refused both opens, and a later call tries again.
 * Blocks: as long as opening a device takes.
 */
VESK_API int32_t InitializeSondrel(void);

/*
 * Drops one reference; the last one closes the device. Without an open session it does nothing, so one call
 * too many does no harm.
 */
VESK_API void ShutdownSondrel(void);

/*
 * The driver's version word, as the driver gives it.
 * Failure: 0, also with no session open, in which case nothing is sent.
 * Session: needed. Blocks: one driver request.
 */
VESK_API uint32_t GetDriverVersion(void);

/*
 * The driver's own reference count. This is not the number of InitializeSondrel calls, which nothing shows.
 * Failure: 0, also with no session open, in which case nothing is sent.
 * Session: needed. Blocks: one driver request.
 */
VESK_API uint32_t GetRefCount(void);

/* The version of the I/O interface: always 65537 (0x00010001). Session: not needed. */
VESK_API uint32_t GetIoDllVersion(void);

/* ---- Embedded controller: identity --------------------------------------------------------------------- */

/*
 * These three are read from the EC once per machine and then kept in the registry, under HKEY_LOCAL_MACHINE
 * SOFTWARE\Vesk\Vesk Kelvane\VeskTessaly, for good. A kept value answers without an EC command and without a
 * session; it is never refreshed. Where it cannot be kept, each call reads the EC again.
 * Failure: 0x7FFFFFFF, and nothing is kept. A kept number above 2147483647 comes back as 2147483647.
 * Session: needed while the value is not kept yet. Blocks: a registry read; at first up to four EC commands.
 */

/* The firmware revision code: two ASCII letters, the first in bits 15-8. "KL" is 0x4B4C. */
VESK_API uint32_t EC_ReadEcFwRev(void);

/* The chip id, 0 to 255. It tells variants within a firmware revision code apart; 0 is an id like any other. */
VESK_API uint32_t EC_ReadEcChipId(void);

/* The chip name: four bytes in reading order, the first in bits 31-24. */
VESK_API uint32_t EC_ReadEcChipName(void);

/* ---- Battery ------------------------------------------------------------------------------------------- */

/*
 * From the operating system's battery device. Each call asks the first battery device, in the device's own
 * units; further batteries are not looked at.
 * Not there: a value that the device does not give is 0: no battery, a device that refuses, and for the
 * present capacity and voltage a device that is no battery of the system itself.
 * Session: not needed. Blocks: opening the device and up to three requests.
 */

/* The capacity that the battery was designed for. */
VESK_API uint32_t Battery_Read_DesignedCapacity(void);

/* The capacity that the battery holds when it is full. */
VESK_API uint32_t Battery_Read_FullChargedCapcity(void);

/* The present capacity. */
VESK_API uint32_t Battery_Read_Capacity(void);

/* The present voltage, whatever the name says. */
VESK_API uint32_t Battery_Read_DesignVoltage(void);

/* Full-charged by designed capacity: a fraction, no percentage. 0 where the designed capacity is 0. */
VESK_API float Battery_Read_ASOC(void);

/*
 * The present by the full-charged capacity in percent, rounded to a multiple of ten: 84 gives 80, 85 gives 90.
 * 0 where the full-charged capacity is 0. Nothing holds it at 100: a device that tells nonsense gives nonsense,
 * up to 4294967290, the largest multiple of ten in 32 bits, where the quotient is beyond them.
 */
VESK_API uint32_t Battery_Read_CapacityPercentage(void);

/*
 * Charging cycles. Codes CF, GL, PC and WL read them from the EC: 0x7FFFFFFF when a command fails, and a session
 * is needed. Codes AB, AR and KL take them from the battery device, as above. Any other machine: 0.
 */
VESK_API uint32_t Battery_Read_CycleCount(void);

/*
 * From the EC, in the EC's own units, chosen by the machine's register map on every call.
 * Failure: 0x7FFFFFFF when a command fails. Not there: 0, for a machine without a map, which includes one whose
 * EC cannot be identified. Session: needed. Blocks: the identity, then one or two EC commands.
 */

/* The lid byte, 0 to 255. Its meaning is the firmware's. */
VESK_API uint32_t Battery_Get_LidStatus(void);

/* The voltage that the charger is asked for, 0 to 65535. */
VESK_API uint32_t Battery_Read_ChargingVoltage(void);

/* The voltage of the whole pack, 0 to 65535. */
VESK_API uint32_t Battery_Read_PackageVoltage(void);

/* The temperature of the pack, 0 to 65535. */
VESK_API uint32_t Battery_Read_Temperature(void);

/* The current, -32768 to 32767, negative while discharging. Failure: -1, which a current can be too. */
VESK_API int32_t Battery_Read_Current(void);

/*
 * The voltages of the four cells as "%u;%u;%u;%u", cell 0 first.
 * `out`: at most 44 bytes with the terminator; null does nothing.
 * Failure: 2147483647 in the place of a cell whose command failed. Not there: 0 in each place.
 * Session: needed. Blocks: up to seven EC commands a cell; on maps whose battery bus tells when it is busy 10 ms
 * a cell, and 20 ms more while it is.
 */
VESK_API void Battery_Read_CellVoltage(char* out);

/*
 * The date of manufacture as "%4d-%02d-%02d", year first: "2017-10-28". The fields are not tested: month 0 or 15
 * is written as it is.
 * `out`: exactly 11 bytes; null does nothing. Failure and not there: "1980-01-01".
 * Session: needed. Blocks: as one cell above.
 */
VESK_API void Battery_Read_ManufactureDate(char* out);

/*
 * The battery maker's name: ten bytes as the EC gives them and a terminator. A name that ends earlier is
 * terminated there, and the bytes behind that are the EC's too.
 * `out`: exactly 11 bytes; null does nothing. Failure and not there, or a name that begins with a zero:
 * "0x7FFFFFFF".
 * Session: needed. Blocks: up to ten EC commands.
 */
VESK_API void Battery_Read_ManufactureName(char* out);

/* ---- Temperatures and fans ----------------------------------------------------------------------------- */

/*
 * Degrees Celsius, from the EC, chosen by the machine's register map on every call.
 * Failure: 0x7FFFFFFF when a command fails. Not there: 0, for a machine without a map, which includes one whose
 * EC cannot be identified, and for a sensor that is not ready.
 * Session: needed. Blocks: the identity, then up to four EC commands.
 */

/* These give the EC's byte, 0 to 255. */
VESK_API uint32_t Thermal_Read_Cpu_Temperature(void);
VESK_API uint32_t Thermal_Read_BoardTS0L_Temperature(void);
VESK_API uint32_t Thermal_Read_BoardTS0R_Temperature(void);
VESK_API uint32_t Thermal_Read_GpuTS1L_Temperature(void);
VESK_API uint32_t Thermal_Read_GpuTS1R_Temperature(void);

/*
 * These come from the sensor block. Codes CF, GL, PC and WL give the EC's byte; codes AB, AR and KL give a
 * sensor's count, which a thermistor curve turns into degrees: 53 to 110 for the first four, 35 to 100 for the
 * last two. A temperature beyond its curve comes out as the curve's end.
 */
VESK_API uint32_t Thermal_Read_BatteryConnector_Temperature(void);
VESK_API uint32_t Thermal_Read_ACFET_Temperature(void);
VESK_API uint32_t Thermal_Read_ChargerChoke_Temperature(void);
VESK_API uint32_t Thermal_Read_GpuVrm_Temperature(void);
VESK_API uint32_t Thermal_Read_UpCpu_Temperature(void);
VESK_API uint32_t Thermal_Read_GpuVram_Temperature(void);

/*
 * The speeds of fans 0 to 3 in revolutions per minute as "%d;%d;%d;%d", fan 0 first.
 * `out`: at most 44 bytes with the terminator; null does nothing.
 * Failure: 2147483647 in the place of a fan whose command failed. Not there: 0, which is also the speed of a fan
 * that stands still.
 * Session: needed. Blocks: up to 23 EC commands a fan, and 10 ms for each fan with a tachometer: 20 ms on codes
 * AB and AR and on KL with chip id 1, 30 ms on KL with chip id 0, none on the others.
 */
VESK_API void Thermal_Read_Fan(char* out);

/* ---- Processor and power ------------------------------------------------------------------------------- */

/*
 * The busy fraction of all processors together over one second, 0.0 to 1.0.
 * Failure: 0.0 when a sample fails. Counters that stand still give 1.0. Counters that run backwards, which only a
 * broken system has, can give a number outside the range, but always a finite one.
 * Session: not needed. Blocks: 1 s, and cannot be cut short.
 */
VESK_API double CPU_ReadCPUUsage(void);

/*
 * The four registers of CPUID for a leaf, as the driver gives them. None of the pointers may be null.
 * Failure: four zeros when the driver refuses; without a session the four stay unwritten.
 * Session: needed. Blocks: one driver request.
 */
VESK_API void CPU_ReadCpuId(uint32_t leaf, uint32_t* eax, uint32_t* ebx, uint32_t* ecx, uint32_t* edx);

/*
 * The power the processor package takes, and its two limits, in the driver's own units.
 * Not there: 0 on processors that are not "GenuineIntel". Failure: 0, also when the driver refuses a limit.
 * Session: needed. Blocks: two driver requests; the limits also the identity.
 */
VESK_API uint32_t Thermal_Read_CpuPackagePower(void);
VESK_API uint32_t Thermal_Read_CpuDptf_PowerLimit1(void);
VESK_API uint32_t Thermal_Read_CpuDptf_PowerLimit2(void);

/* What the machine runs on: 0 battery, 1 AC, 255 not known. Session: not needed. */
VESK_API uint32_t Power_Read_ACDCMode(void);

/* ---- Firmware: event log and sensors ------------------------------------------------------------------- */

/*
 * The firmware's event store as one JSON text:
 *
 *   {"version":"0x12","register_count":"0x02","register":["0x05","0xabc"],"event":["0x5a 0xa5 ..."]}
 *
 * Numbers are "0x" and at least two lower-case hexadecimal digits. An event is one record of the firmware's
 * log, byte by byte; where its kind (byte 7) is 0x20, the bytes from the tenth on are decoded from BCD, up to
 * the first digit that is none. A record that claims more than the 256 bytes that the firmware gives ends
 * with the 256th. Register 255 reads as the register count: the firmware knows both by the same number.
 *
 * The log is walked by the firmware, which goes on where the call before left it. It is read until it ends or
 * its next record would bring the characters of all values above 31500; that record is lost to this document.
 *
 * out: at most 61 + V + 3 x (registers + events) characters and a terminator, where V, the characters of all
 *   values, is at most the greater of 31500 and 20 + 10 x registers. With up to 3000 registers that is below
 *   43,000. There is no limit on registers but what can be asked for: a count above 16,777,216 is shown, and
 *   its list left as if the count could not be read.
 * Failure: never as a whole. What cannot be read is an empty text, an unread count gives [""] and an unread
 * log [].
 * Session: not needed. Blocks: one opening of the device and one request for each number and each event.
 */
VESK_API void GetEEPROM_Data(VeskChar16* out);

/*
 * The firmware's P-sensor status as {"p_sensor":"0x05"}, in the same number form.
 * out: at most 25 characters and a terminator.
 * Failure: {"p_sensor":""}. A reply below four bytes counts as the status 0.
 * Session: not needed. Blocks: one opening of the device and one request.
 */
VESK_API void GetSENSOR_WMI_Data(VeskChar16* out);

/* ---- Firmware: variables ------------------------------------------------------------------------------- */

/*
 * Three fields of two firmware variables, as raw bytes: exactly as many as named here, with no terminator and
 * no interpretation. Each call first asks for the privilege SeSystemEnvironmentPrivilege, which the process
 * has to hold. A setter reads the whole variable, replaces its field and writes the variable back at the size
 * it was read with; it cannot create one. A variable that is larger than 256 bytes, or that ends before the
 * field does, fails the read, the latter with ERROR_INVALID_DATA (13). After a failure a getter's bytes are
 * as they were.
 * Session: not needed. Blocks: one or two calls of the firmware. Two setters at once may lose one change.
 */

/* 16 bytes of "CNFG". Failure: the system's error code. */
VESK_API uint32_t GPNV_Get_RandomUUID(uint8_t* out);

/* 19 bytes of "CNFG". The result is 0 also after a failed read, which only the debug line tells. */
VESK_API uint32_t GPNV_Get_ActivatedTime(uint8_t* out);

/* 23 bytes of "MFG0". Failure: the system's error code. */
VESK_API uint32_t GPNV_Get_ManufacturedTime(uint8_t* out);

/* The setters give 0, or the system's error code when the write failed. After a failed read nothing is written
 * and the result is 0 all the same. */
VESK_API uint32_t GPNV_Set_RandomUUID(const uint8_t* bytes);
VESK_API uint32_t GPNV_Set_ActivatedTime(const uint8_t* bytes);
VESK_API uint32_t GPNV_Set_ManufacturedTime(const uint8_t* bytes);

/* ---- Firmware: Battery Health and Quiet Fan ------------------------------------------------------------ */

/*
 * Two features of the firmware, switched through its WMI class, and the directory in which their last
 * settings are remembered.
 *
 * initCom: not 0, the call enters the multithreaded apartment for itself and leaves it; 0, the calling thread
 *   has entered one. Where the thread is in another kind of apartment already, a value other than 0 makes the
 *   call fail.
 * Session: not needed. Blocks: as long as WMI takes, for one query and up to three more.
 */

/* 1 the firmware has Battery Health; 0 it has not, or does not answer. */
VESK_API int32_t WMICheckBatteryHealthSupport(uint8_t initCom);

/* 0 the firmware has Quiet Fan and it is off; 1 it is on; -1 there is none, or no answer. */
VESK_API int32_t WMICheckQuietFanSupport(uint8_t initCom);

/*
 * What was set last, as the settings file in the app path holds it; the firmware is not asked.
 *
 * A settings file is read like a formatted number from a text stream: white space is passed over, then comes
 * one sign and digits up to the first other character. An absent, empty or blank file gives the default, a
 * file that begins with anything else 0, and a number beyond 32 bits the nearest number that fits.
 */

/* The number set last. Default: 100. No range is tested. */
VESK_API int32_t WMIGetBatteryHealth(uint8_t initCom);

/* 1, 2 or 3 as set last. Default, and for every other number: 0. */
VESK_API int32_t WMIGetQuietFan(uint8_t initCom);

/*
 * Give a setting to the firmware and remember it. Result: 1 the firmware took it; 0 not, and nothing is
 * remembered. The result is 1 also where it could not be remembered: with no app path for this user, or no
 * right to write.
 *
 * A settings file is replaced in one step: the number is written to a file beside it (its name with ".new"
 * behind it), brought to the disk and moved over it. Whenever a crash or a full disk ends this, the file
 * holds the number before or the new one whole; a file "....new" that is left over is used up by the next
 * setting. Only where the move is refused, as while another process keeps the file open without sharing its
 * deletion, or where no file may be made beside it, is the new text written over the old one in place, by one
 * write: a reader that shares the file then sees one or the other, but a crash at that moment may leave a
 * part of the new number.
 */

/* Any number; 0 without asking further where the firmware has no Battery Health. */
VESK_API int32_t WMISetBatteryHealth(int32_t value, uint8_t initCom);

/* The firmware is told 0 for 0 and 1 for any other value; the value itself is remembered. */
VESK_API int32_t WMISetQuietFan(uint8_t value, uint8_t initCom);

/*
 * Sets the app path of the present user: the directory of the settings files, without a trailing backslash.
 * It is kept in the registry, under HKEY_LOCAL_MACHINE SOFTWARE\Vesk\Vesk Kelvane\VeskTessaly, in a value
 * named as WMI names the user; where WMI names none, in the key's unnamed value. The path is kept as it is:
 * it is not tested, and no directory is made. One of more than 255 characters is kept but cannot be read
 * back.
 * Result: 1 kept; 0 not. Writing there needs an administrator's rights.
 */
VESK_API int32_t WMISetAppPath(const VeskChar16* path, uint8_t initCom);

/* ---- Disks --------------------------------------------------------------------------------------------- */

/*
 * The temperature of every disk in whole degrees Celsius, decimal, joined by ";": "38;41". It is the first
 * raw byte of SMART attribute 194, as the storage stack publishes it; a disk with two such attributes adds
 * two numbers, one without adds none.
 * `out`: at most 1200 characters with the zero. Ten disks are kept; further ones are dropped. A disk
 * without a name or without its block of bytes is passed over.
 * Failure: the empty text at first. What was read stays in the process: after a failure, or while fewer disks
 * answer than before, the former numbers stay in the list.
 * `initCom`: see Inventory. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetHDDTemp(VeskChar16* out, uint8_t initCom);

/* ---- Inventory ----------------------------------------------------------------------------------------- */

/*
 * Each of these asks WMI one question, over a connection of its own; nothing is kept. They block as long as
 * WMI takes, without a limit. Session: not needed.
 *
 * `initCom`  Not 0: the call enters the multithreaded COM apartment and leaves it again. A thread that is
 *            in a single-threaded apartment already fails with that. 0: the thread has entered an
 *            apartment, of either kind, and the call leaves it alone.
 * `out`      Takes the whole text and its zero. A text grows with what the machine has: the values of all
 *            rows stand in it, in WMI's order, joined by ";". A row without a value gives an empty one.
 *            4096 characters do for any machine known; WMI itself sets no limit.
 * Failure    The empty text, and -1 for a number. The cause stands in the debug log, and in the event log but
 *            for WMIGetExternMonitorNum. A question that finds no row, a class that WMI does not have
 *            included, is no failure: it gives the empty text too, or -1, and the count 0, but no line in any log.
 */

/* Text: the fifth OEM string of the firmware, which holds the maker's 90 number. */
VESK_API void WMIGet90Number(VeskChar16* out, uint8_t initCom);

/* Text: the maker of the base board. */
VESK_API void WMIGetBiosManufacture(VeskChar16* out, uint8_t initCom);

/* Text: the firmware's release date as year, month, day without separators, "20211231": 8 characters. */
VESK_API void WMIGetBiosReleaseDate(VeskChar16* out, uint8_t initCom);

/* Text: the firmware's version. */
VESK_API void WMIGetBiosVersion(VeskChar16* out, uint8_t initCom);

/* Text: the UUID of the machine as the firmware gives it. */
VESK_API void WMIGetBoardUUID(VeskChar16* out, uint8_t initCom);

/* Text: the name of each processor. */
VESK_API void WMIGetCPUInfo(VeskChar16* out, uint8_t initCom);

/* Number: the load in per cent, 0 to 100, of the last processor that tells one; -1 when none does. */
VESK_API int32_t WMIGetCPUUsg(uint8_t initCom);

/* Text: the product family of the machine. */
VESK_API void WMIGetComputerFamilyName(VeskChar16* out, uint8_t initCom);

/* Number: how many displays are connected that are not built in; -1 at failure. */
VESK_API int32_t WMIGetExternMonitorNum(uint8_t initCom);

/* Text: the name of each display adapter. */
VESK_API void WMIGetGPUInfo(VeskChar16* out, uint8_t initCom);

/* Text: the name of each fixed disk. */
VESK_API void WMIGetHDDCaption(VeskChar16* out, uint8_t initCom);

/*
 * Text: three values for each physical disk, one disk after another: model, size in bytes, kind (0 unknown, 3
 * turning, 4 solid state). A kind that is not told is an empty value.
 */
VESK_API void WMIGetHDDInfo(VeskChar16* out, uint8_t initCom);

/* Text: the model of each turning disk. */
VESK_API void WMIGetHDDModel(VeskChar16* out, uint8_t initCom);

/* Text: the size of each fixed disk in bytes. */
VESK_API void WMIGetHDDSize(VeskChar16* out, uint8_t initCom);

/* Text: the name of each monitor, up to 13 characters. */
VESK_API void WMIGetLCDModel(VeskChar16* out, uint8_t initCom);

/* Text: the hardware address of each physical network adapter, "02:1A:..." */
VESK_API void WMIGetMacAddress(VeskChar16* out, uint8_t initCom);

/* Text: the maker of each memory module. */
VESK_API void WMIGetMemManufacture(VeskChar16* out, uint8_t initCom);

/* Text: the part number of each memory module. */
VESK_API void WMIGetMemModel(VeskChar16* out, uint8_t initCom);

/* Text: the capacity of each memory module in bytes. */
VESK_API void WMIGetMemSize(VeskChar16* out, uint8_t initCom);

/* Text: the product name of the base board. */
VESK_API void WMIGetModelName(VeskChar16* out, uint8_t initCom);

/* Number: the brightness in per cent of the last display that tells one; -1 when none does. */
VESK_API int32_t WMIGetMonitorBrightness(uint8_t initCom);

/* Text: the country code of the operating system, a telephone prefix: "49". */
VESK_API void WMIGetOSCountryCode(VeskChar16* out, uint8_t initCom);

/*
 * Text: caption, processor width and version of the operating system: "Windows 10 Pro 64-bit 10.0.19041". Two
 * queries, one after the other. When both fail or give nothing the text is empty: a bare version would say
 * nothing. When one fails its place stays empty, its blank stands.
 */
VESK_API void WMIGetOSInfo(VeskChar16* out, uint8_t initCom);

/* Text: the product name of the machine. */
VESK_API void WMIGetProductName(VeskChar16* out, uint8_t initCom);

/* Text: the serial number of the machine. */
VESK_API void WMIGetSN(VeskChar16* out, uint8_t initCom);

/* Text: the model of each solid state disk. */
VESK_API void WMIGetSSDModel(VeskChar16* out, uint8_t initCom);

/* Text: "Desktop", "Notebook", "All in One" or "unknown", which is also what a failure gives. */
VESK_API void WMIGetSystemChassisTypes(VeskChar16* out, uint8_t initCom);

/* `value` + 1, in 32 bits: 4294967295 gives 0. Asks nothing of anybody. */
VESK_API uint32_t wmiadd(uint32_t value);

/* ---- Network adapters ---------------------------------------------------------------------------------- */

/*
 * The names of the machine's wireless adapters in WMI, each with a ";" behind it: "Card A;Card B;". Adapters that
 * WMI has no row or no name for are left out; without any the text is empty.
 * `out`: the names and one character for each, 1024 characters for the whole do.
 * Failure: without a list of adapters, which is also what a machine without any gives, `out` is left as it was.
 * So is it when the list grows while it is being asked for. A WMI read that fails leaves its adapter out.
 * `initCom`: as above. Session: not needed. Blocks: one WMI query for each wireless adapter.
 */
VESK_API void WMIGetWiFiCardName(VeskChar16* out, uint8_t initCom);

/*
 * The live traffic of the card that RF_WiFiCardName names, in bytes per second: received, ";", sent: "1200;34".
 * The performance counter is found by the length of the card's name alone, of which the first 150 characters
 * count: interfaces with names of the same length contribute too, and the last reading that is not 0 wins.
 * "0;0" when no counter has a name of that length. The first call of the process reads the Wi-Fi record.
 * `out`: 64 characters.
 * Failure: the empty text. `initCom`: as above. Session: not needed. Blocks: one WMI query.
 */
VESK_API void WMIGetWiFiBytesPersec(VeskChar16* out, uint8_t initCom);

/* ---- Wi-Fi --------------------------------------------------------------------------------------------- */

/*
 * These seven are fields of one record, which the first of them that is called reads from the system. From the
 * first read that goes through the record stands to the end of the process: a connection that changes later is
 * not seen. After a failed read the next call tries again.
 * Failure: 0x7FFFFFFF and "error_string", which the fields also keep if a later read finds nothing for them.
 * A read that goes through but finds nothing for a field leaves -1000 and "init_string": without an interface
 * all of them, without a connection all but the first two, and the signal and the rate of a connection whose
 * access point is not among those in reach. With several interfaces, "connected" and the card's name are those
 * of the last one, the others those of the last connected one.
 * Threads: they may be called from several threads, also for the first read: the others wait for it, and all
 * get fields of one complete record.
 * Session: not needed. Blocks: a read takes as long as the WLAN API takes; a kept record answers at once.
 */

/* 1 connected, 0 not. */
VESK_API int32_t RF_WiFiIsConnected(void);

/*
 * The interface's description. `out`: 257 characters with the terminator are enough.
 */
VESK_API void RF_WiFiCardName(VeskChar16* out);

/* The signal of the access point, in dBm: a negative number. */
VESK_API int32_t RF_WiFiRssi(void);

/* The channel's number. -1000 also where the card does not tell it. */
VESK_API int32_t RF_WiFiChannel(void);

/*
 * The first three octets of the access point's address, its vendor prefix: "02:1A:2B".
 * `out`: 13 bytes with the terminator.
 */
VESK_API void RF_AP_MAC(char* out);

/*
 * The highest rate in Mbit/s that the access point offers by the tables of 802.11n and 802.11ac, worked out of
 * its beacon; the link's own rate may be lower. 0 without an element of either standard, and for channels of
 * 160 and 80+80 MHz. Elements that are cut short or too short are passed over.
 */
VESK_API int32_t RF_WiFiMaxRate(void);

#ifdef __cplusplus
/*
 * The radio standard of the connection: "FHSS", "DHSS", "IR baseband", "OFDM", "HRDSSS", "ERP", "802.11n",
 * "802.11ac", "802.11ad", "802.11ax", or "Other".
 * The text comes as a string object of C++, so that C does not see this one. Host and library must have been
 * built with the same C++ runtime and the same setting of its string class.
 */
VESK_API std::string RF_PhyMode(void);
#endif

/* ---- Bluetooth ----------------------------------------------------------------------------------------- */

/*
 * These three are fields of one record, which is read and kept as the Wi-Fi record is, with the same rule for
 * threads. Only connected devices count.
 * Failure: 0x7FFFFFFF and "error_string"; the next call tries again.
 * Without a radio all three are -1000 and "init_string". With a radio but no connected device the first is 0
 * and the others stay at -1000 and "init_string": a count of 0 is never seen. With several radios, the first
 * is that of the last radio, the others those of the last radio that has devices.
 * Session: not needed. Blocks: a read takes as long as the Bluetooth API takes; no inquiry is sent.
 */

/* 1 a device is connected, 0 none. */
VESK_API int32_t RF_BTIsUsed(void);

/* How many devices are connected. */
VESK_API int32_t RF_BTConnectedNum(void);

#ifdef __cplusplus
/*
 * The kind of each connected device by its major class, each with a ";" behind it, in the order of the search:
 * "Computer;", "Phone;", "LAN/NetWortk Access point;", "Audio/Video;", "Peripheral;", "Imaging;", "Wearable;",
 * "Toy;", "Health;", "Uncategorized;", or "Others;".
 * A string object of C++: the rule of RF_PhyMode holds.
 */
VESK_API std::string RF_BTConnectedType(void);
#endif

/* ---- System -------------------------------------------------------------------------------------------- */

/*
 * 1 when the system runs in S mode, else 0. Failure: 0; the debug log tells which.
 * Session: not needed. Blocks: loading a system library.
 */
VESK_API int32_t System_Check_S_Mode(void);

/*
 * The user's country as two letters and a zero, "DE". A nation that has no such code gives what the system
 * has for it, no more than 10 characters.
 * Failure: the empty text, also when the user has set no nation. Session: not needed.
 */
VESK_API void System_GetCountryCode_ISO2(VeskChar16* out);

/*
 * The local date and time as narrow text, "2024-05-17 10:30:00": always 20 bytes, the zero included.
 * Failure: 20 zero bytes. Session: not needed.
 */
VESK_API void System_Read_LocalTime(char* out);

/*
 * The master volume of the default sound device in per cent, 0 to 100, cut to a whole number, muted or not.
 * Failure: -1, also without a sound device.
 * `initCom` not 0: the call enters the single-threaded COM apartment and leaves it again. On a thread that
 * is in the multithreaded one already pass 0: the entry would fail there without a word, and the call would
 * leave the caller's apartment.
 * Session: not needed. Blocks: as long as the audio service takes.
 */
VESK_API int32_t System_Read_VolumeLevel(uint8_t initCom);

/*
 * The tablet mode byte of the EC, 0 to 255. Its meaning is the firmware's.
 * Failure: 0x7FFFFFFF. Session: needed. Blocks: one EC command.
 */
VESK_API uint32_t System_Read_TabletMode(void);

/* ---- Installed applications ---------------------------------------------------------------------------- */

/*
 * Classic applications that the uninstall keys know of, in the native and in the 32-bit view:
 *
 *   [{"machine":[{"name":"Editor","version":"2.1"},{"name":"Player","version":""}]},{"user":[]}]
 *
 * One object per hive, records in the registry's own order, nothing sorted and nothing merged. Left out are
 * applications without a "DisplayName", with one of 1024 characters or more, and with a "SystemComponent"
 * that reads as a number other than 0. A "DisplayVersion" that is missing or too long gives the empty
 * version. Value types are not looked at: the bytes are taken as wide text up to the first zero character, or
 * up to what came. Double quotes are dropped; nothing else is escaped.
 * `out`: the whole document and its terminator, in characters: about 33 and the two texts for each
 * application. There is no upper limit; a megabyte serves every machine of this kind.
 * Failure: a hive that cannot be read has no records, and a subkey that cannot be opened ends its hive's
 * list. Session: not needed. Blocks: as long as the registry takes, about five reads per application.
 */
VESK_API void GetApplist_x64(VeskChar16* out);
VESK_API void GetApplist_x86(VeskChar16* out);

/*
 * Packaged applications of the machine with the names that a user sees:
 *
 *   [{"application":"Vendor.App_1.2.3.0_x64__abcdefghijklm","display_name":"Sketch Pad"}]
 *
 * One record per entry of the package store, in the registry's own order. The display name is the text of the
 * first <DisplayName> in the package's manifest, resolved where it refers to the package's resources and as it
 * stands where that fails. Nothing is cleaned or escaped. Of a family with several packages the first counts.
 * `out`: the whole document and its terminator; a record takes at most 36 characters, the package's full name
 * and a display name of 259 characters.
 * Failure: `[]` when the store cannot be read; an empty display name for a package that is gone, whose
 * manifest cannot be read or has no display name, and for all packages on a Windows without packages and on a
 * thread that sits in a multithreaded COM apartment: this export enters a single-threaded one for each package.
 * Session: not needed. Blocks: one manifest and up to three resource look-ups per package.
 */
VESK_API void GetApplist_UWP(VeskChar16* out);

/*
 * The machine's applications as plain lists, each entry followed by ";", the last one too: "Editor;Player;".
 * Entries are not cleaned, so that a ";" in a name reads as two entries.
 *
 *   App_Get_UWPApp           short names of the package store's entries, one per entry: versions of one package
 *                            give the same name several times
 *   App_Get_Win32App         "DisplayName" of the native uninstall keys
 *   App_Get_Win32WOW6432App  "DisplayName" of the 32-bit uninstall keys
 *
 * Other than in the documents above, the current user's hive is not read, a "SystemComponent" of type
 * REG_DWORD leaves the application out whatever its value, and "DisplayName" has to be a REG_SZ of at most 255
 * characters. What cannot be read is passed over.
 * `out`: the whole text and its terminator; an entry takes at most 256 characters.
 * Failure: the empty text. Session: not needed. Blocks: as long as the registry takes.
 */
VESK_API void App_Get_UWPApp(VeskChar16* out);
VESK_API void App_Get_Win32App(VeskChar16* out);
VESK_API void App_Get_Win32WOW6432App(VeskChar16* out);

/* ---- Versions of the maker's software ------------------------------------------------------------------ */

/*
 * The version of the driver package of the device "Vesk Kelvane", such as "1.4.0.7". Among several such devices
 * the last in the platform's list counts.
 * `out`: at most 512 characters. Failure: the empty text. Session: not needed. Blocks: one look at each device
 * that is present.
 */
VESK_API void GetInfVersion(VeskChar16* out);

/*
 * The version of the assistant package, family F3A1C07E.VESKBrisenda_r4wkp8tz2yhnc, such as "2.3.41.0". Among
 * several the first that the platform names counts.
 * `out`: at most 128 characters. Failure: `out` is not written at all, so clear it before the call; the same
 * for a package name that has no version in it. Session: not needed. Blocks: two look-ups.
 */
VESK_API void GetUWPVersion(VeskChar16* out);

/* ---- Usage --------------------------------------------------------------------------------------------- */

/*
 * The uppermost windows of applications, at most five, uppermost first:
 *
 *   [{"process_name":"editor.exe","process_title":"","cpu_usage":"0.1","mem_usage":"14020","z_order":"1",
 *     "is_focused":"1"}]                                                          (without the line break)
 *
 * A window counts when it is enabled, visible, titled, no tool window, not owned by another one or behind an
 * active popup of its own, has a title bar that is not invisible, and its process can be named.
 *   process_name   base name of the executable; of a packaged application the one behind its frame
 *   process_title  always empty
 *   cpu_usage      per cent of all processors over one second, one digit behind the point; -1.0 when the
 *                  system's times did not move
 *   mem_usage      working set in kilobytes; wraps to negative numbers from 2 GiB on
 *   z_order        position among the windows that count, starting at 1 with every call
 *   is_focused     "1" for the first of them, "0" for the others
 * A process that cannot be opened shows 0.0 and 0; one that does not tell its memory is left out, with its
 * position.
 * `out`: at most 5 records of 135 characters and a process name of at most 259 each.
 * Failure: `[]`. Session: not needed. Blocks: one second for each window listed whose process can be opened.
 */
VESK_API void AppList_OpenWindows(VeskChar16* out);

/*
 * The five busiest and the ten largest processes, as JSON text:
 * [{"process_name":"browser#2","cpu_usage":"4.3", "mem_usage":"212744"}], without blanks. A name is that of
 * the performance counter's instance; nothing in it is escaped. cpu_usage is a tenth of the counter's per
 * cent, which counts all processors together, with one digit behind the point. mem_usage is the working set
 * in kilobytes, 2097151 for every process of 2 GiB or more. The list ends before the first process that has
 * none of what it is ordered by; the order of equals is open.
 * `out`: 40 characters and the length of the name for each process do, 4096 for the whole.
 * Failure: the empty text, which is not "[]": that says that no process weighs anything.
 * Both enter the multithreaded COM apartment for themselves and fail in a single-threaded one. Session: not
 * needed.
 * Blocks: one WMI query.
 */
VESK_API void AppList_CpuUsage(VeskChar16* out);
VESK_API void AppList_MemUsage(VeskChar16* out);

/*
 * Brightness and volume in per cent, as JSON text: {"brightness":"70","volume":"35"}, at most 64
 * characters. The volume is "0" while muted. A value that cannot be read is the empty text; the document
 * stands all the same. Enters the multithreaded COM apartment for itself, twice. Session: not needed.
 * Blocks: one WMI query, then as long as the audio service takes.
 */
VESK_API void AppList_HardwareConfig(VeskChar16* out);

#if defined(__clang__)
#pragma clang diagnostic pop
#elif defined(_MSC_VER)
#pragma warning(pop)
#endif

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VESK_SONDREL_H */
