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

/* ---- Wi-Fi --------------------------------------------------------------------------------------------- */

/* ---- Bluetooth ----------------------------------------------------------------------------------------- */

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

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VESK_SONDREL_H */
