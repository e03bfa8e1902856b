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
 * comment says so. Sentinels  0x7FFFFFFF (VESK_READ_FAILED)  an EC command or a radio read failed 0 the
 * machine's family has no such reading -1 and the empty text          a WMI read failed Threads    Exports
 * run on the caller's thread. The library starts no thread and holds no lock: calls that share state (the
 * session above all) must not overlap. Blocking   An EC command takes as long as the driver takes, well below
 * a millisecond as a rule. Where an export waits on purpose, its comment gives the time. Errors     Nothing
 * is raised across an export in ordinary operation. Running out of memory while a text is built is the one
 * exception.
 */
#ifndef VESK_SONDREL_H
#define VESK_SONDREL_H

#include <stdint.h>

#ifdef __cplusplus
#include <string>
#endif

/* Windows takes its names from the .def file; elsewhere a name has to be visible before it can be exported.
 */
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

/* ---- Temperatures and fans ----------------------------------------------------------------------------- */

/* ---- Processor and power ------------------------------------------------------------------------------- */

/* ---- Firmware: event log and sensors ------------------------------------------------------------------- */

/* ---- Firmware: variables ------------------------------------------------------------------------------- */

/* ---- Firmware: Battery Health and Quiet Fan ------------------------------------------------------------ */

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

/* ---- Versions of the maker's software ------------------------------------------------------------------ */

/* ---- Usage --------------------------------------------------------------------------------------------- */

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
