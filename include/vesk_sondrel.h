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

/* ---- Inventory ----------------------------------------------------------------------------------------- */

/* ---- Network adapters ---------------------------------------------------------------------------------- */

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
 * The tablet mode byte of the EC, 0 to 255. Its meaning is the firmware's.
 * Failure: 0x7FFFFFFF. Session: needed. Blocks: one EC command.
 */
VESK_API uint32_t System_Read_TabletMode(void);

/* ---- Installed applications ---------------------------------------------------------------------------- */

/* ---- Versions of the maker's software ------------------------------------------------------------------ */

/* ---- Usage --------------------------------------------------------------------------------------------- */

#if defined(__clang__)
#pragma clang diagnostic pop
#elif defined(_MSC_VER)
#pragma warning(pop)
#endif

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VESK_SONDREL_H */
