/**
 * @file
 * The simulated machine that libVeskSondrel64.so reads: what a tool or a test sets on it.
 *
 * It is a separate shared library (libVeskMachine.so). A host that sets nothing gets the built-in machine
 * "default". Only the native library has it; on Windows the machine is the real one.
 */
#ifndef VESK_SONDREL_MACHINE_H
#define VESK_SONDREL_MACHINE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Starts a machine in place of the present one. `machine` is the name of a built-in machine, a profile's file or a
 * recording (NAME.rec). `store` is the SQLite file of its registry, files and firmware variables; null means the
 * machine's own file below the user's state directory, ":memory:" stores nothing. Result: 1 started; 0 not, with one
 * line in `problem` (cut to `size` bytes, always terminated).
 *
 * A host that does not call this gets the machine that VESK_MACHINE and VESK_STORE in its environment name, or "default".
 * Where that machine cannot be started, the reason is printed to standard error and every call of the library fails.
 */
int VeskMachine_Start(const char* machine, const char* store, char* problem, size_t size);

/** The name of built-in machine number `index`, or null after the last one. The first is the default. */
const char* VeskMachine_BuiltIn(size_t index);

#define VESK_MACHINE_DEBUG_LINE 1 /**< A debug line, as a trace consumer receives it. */
#define VESK_MACHINE_EVENT_LINE 2 /**< A warning in the event log. */

/** Receives a line, of one of the kinds above, with the context that was given with the listener. */
typedef void (*VeskMachine_Listener)(void* context, int kind, const char* line);

/**
 * Passes debug and event lines to the listener as they are written. A null listener ends it. Debug lines need a trace
 * consumer: this attaches one for every level. The calls of the library themselves are the observer's
 * (vesk_sondrel_observer.h).
 */
void VeskMachine_Listen(VeskMachine_Listener listener, void* context);

/** Ties the machine's clock to real time, so that its waits take as long as they say, or frees it again. */
void VeskMachine_TieToRealTime(int tied);

/** Advances the machine's own time immediately, on top of any other advance. */
void VeskMachine_PassTime(uint64_t microseconds);

/** The machine's own time since its start, in microseconds. */
uint64_t VeskMachine_Microseconds(void);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VESK_SONDREL_MACHINE_H */
