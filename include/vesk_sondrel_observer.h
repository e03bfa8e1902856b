/**
 * @file
 * The observer: what the library asks of the operating system, call by call.
 *
 * It lies between the library and the system. On Windows it is in the observed DLL (observed/VeskSondrel64.dll), which
 * has the same name and the same exports as the usual one and these in addition; a host is observed by loading that file
 * instead. The usual DLL does not have them. Natively they belong to the simulated machine's library
 * (libVeskMachine.so), which libVeskSondrel64.so loads: they are found through the handle of either.
 *
 * A boundary call is one call of the library into the operating system, by the system's own name ("RegOpenKeyExW",
 * "ExecQuery", "DeviceIoControl"). An export call is one call of the host into the library; a call of the library to
 * one of its exports is not counted.
 *
 * All functions can be called from any thread, and while exports are called on others. Strings are UTF-8 and end with a
 * zero. Structures begin with their size, so that later versions can add to them.
 */
#ifndef VESK_SONDREL_OBSERVER_H
#define VESK_SONDREL_OBSERVER_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** An argument of a boundary call: what went in, or what was returned. */
typedef struct VeskObserver_Argument {
    const char* name;  /**< Of the parameter. */
    const char* value; /**< As in the printed line: long strings and byte blocks are cut. */
    int32_t output;    /**< 0: an input; 1: an output. A size may appear as both. */
} VeskObserver_Argument;

/** One boundary call, complete. Everything that it points to is gone when the sink returns. */
typedef struct VeskObserver_Call {
    size_t size;            /**< Of this structure, in bytes. */
    const char* exportName; /**< The export that the host called; null outside an export call. */
    uint64_t exportCall;    /**< Its number in this process, from 1; 0 outside. */
    uint64_t number;        /**< Of this boundary call, from 1 since the last `VeskObserver_InjectFault`. */
    uint32_t thread;        /**< Threads are numbered in the order in which they first call. */
    const char* operation;  /**< The operating system's name of the routine or method. */
    uint64_t startNanoseconds; /**< On a clock that only goes forward; its origin means nothing. */
    uint64_t nanoseconds;      /**< How long the operating system took, without the observer. */
    const VeskObserver_Argument* arguments; /**< Inputs in their order, then outputs. */
    size_t argumentCount;                   /**< Of `arguments`. */
    const char* result;   /**< "-" for a routine without a result. A status of failure is hexadecimal. */
    int32_t succeeded;    /**< 1 or 0, by the rule of its kind of result. */
    int32_t hasLastError; /**< 1 where this routine sets the thread's last error. */
    uint32_t lastError;   /**< That error; 0 where `hasLastError` is 0. */
    uint32_t injected;    /**< The kind of failure that was injected; 0: the answer is the system's own. */
    const char* line;     /**< All of this but times, thread and numbers, on one line. */
} VeskObserver_Call;

/** Receives each boundary call when it has ended, one at a time, on the thread that made it: other threads wait
 *  meanwhile. It may call this interface, and must not call exports. */
typedef void (*VeskObserver_Sink)(void* context, const VeskObserver_Call* call);

/**
 * Sets where boundary calls go from now on, in place of an earlier sink. Null ends it: the earlier sink is not called
 * any more when this returns. Does not fail, except that 0 is returned for lack of memory; 1 otherwise.
 */
int32_t VeskObserver_SetSink(VeskObserver_Sink sink, void* context);

#define VESK_OBSERVER_REFUSED 1u /**< The call fails with its error code; the system is not asked. */
#define VESK_OBSERVER_SHORT 2u   /**< Success, with less than was asked for. */
#define VESK_OBSERVER_EMPTY 4u   /**< Success, with nothing: an empty list, no object, zero bytes. */
#define VESK_OBSERVER_STATUS 8u  /**< Success, with an answer whose own status says that the device failed. */

/** A failure to be injected. */
typedef struct VeskObserver_Fault {
    size_t size;           /**< Of this structure, in bytes. */
    const char* operation; /**< Only calls of this operation count; null: all of them. */
    uint64_t nth;          /**< Which of them fails, from 1. */
    int32_t andLater;      /**< 1: all later ones fail too, as far as they can. */
    uint32_t kind; /**< One of the kinds above. A call whose operation does not have it does not fail. */
} VeskObserver_Fault;

/**
 * Plans a failure in place of an earlier plan, and restarts the counts. Null plans none. Result: 1; 0 for an operation
 * or a kind that does not exist, or a size that is too small, and nothing is changed then.
 */
int32_t VeskObserver_InjectFault(const VeskObserver_Fault* fault);

/** What has been counted since the last `VeskObserver_InjectFault`, by all threads together. */
typedef struct VeskObserver_Costs {
    size_t size;                 /**< Of this structure, in bytes: set by the caller. */
    uint64_t calls;              /**< Boundary calls. */
    uint64_t injected;           /**< Those that failed because it was asked for. */
    uint64_t recordsLost;        /**< What could not be noted for lack of memory. */
    uint64_t backEndNanoseconds; /**< The time that the operating system took. */
} VeskObserver_Costs;

/** Result: 1; 0 for null or a size that is too small. */
int32_t VeskObserver_GetCosts(VeskObserver_Costs* costs);

/** The library's own use of the heap: what it allocates in export calls, outside boundary calls. */
typedef struct VeskObserver_Heap {
    size_t size;          /**< Of this structure, in bytes: set by the caller. */
    uint64_t allocations; /**< Since the last `VeskObserver_FailAllocation`. */
    uint64_t failed;      /**< Those that failed because it was asked for. */
} VeskObserver_Heap;

/**
 * Makes the n-th of these allocations fail, from 1, and all later ones too where `andLater` is 1. 0: none. Restarts the
 * counts. Of the observed DLL only: the simulated machine's library has neither this nor `VeskObserver_GetHeap`.
 */
void VeskObserver_FailAllocation(uint64_t nth, int32_t andLater);

/** Of the observed DLL only. Result: 1; 0 for null or a size that is too small. */
int32_t VeskObserver_GetHeap(VeskObserver_Heap* heap);

/** Receives the description of one open thing, "key SOFTWARE\Vesk" or "IWbemServices" for instance. */
typedef void (*VeskObserver_OpenSink)(void* context, const char* description);

/**
 * Lists what the library has opened and not released; a session's driver device is among it. A null sink only counts.
 * Result: how many there are; 0 for lack of memory.
 */
size_t VeskObserver_ListOpen(VeskObserver_OpenSink sink, void* context);

#define VESK_OBSERVER_CALL_DIFFERS 1u   /**< The library asked for something else than was recorded. */
#define VESK_OBSERVER_ANSWER_DIFFERS 2u /**< An export returned something else. */
#define VESK_OBSERVER_NOT_ASKED 3u      /**< The library asked for less than was recorded. */

/** Where an export call in a replay differs from the recorded one. Everything that it points to is gone when the sink
 *  returns. */
typedef struct VeskObserver_Difference {
    size_t size;            /**< Of this structure, in bytes. */
    uint32_t kind;          /**< One of the kinds above. */
    const char* exportName; /**< The export that the host called. */
    uint64_t line;          /**< Of the recording, from 1; 0 where there is none. */
    const char* text;       /**< What was asked or returned, and what was recorded: one line. */
} VeskObserver_Difference;

/** Receives each difference when it is found, one at a time, on the thread that called the export. It must not call
 *  exports. */
typedef void (*VeskObserver_DifferenceSink)(void* context, const VeskObserver_Difference* difference);

/**
 * Answers from a recording from now on, in place of the operating system or the simulated machine; nothing of what is
 * open must be older. An export call is found by its name and arguments, the k-th one by the k-th; the last one repeats.
 * Within it each boundary call has to match the next recorded one; where one does not, it and all later ones of that
 * export call are refused. Environment variable VESK_MACHINE does the same from the first export call on, and prints
 * differences to standard error.
 *
 * `part` limits it to one process of the recording, from 1; 0 is all of them. A null `file` ends the replay. Result: 1; 0
 * where the file is no recording, with the reason in `problem`, cut at `size` bytes. Blocks while the file is read.
 */
int32_t VeskObserver_Replay(const char* file, size_t part, VeskObserver_DifferenceSink sink, void* context,
                            char* problem, size_t size);

/**
 * The operations that are observed: the name of number `index`, from 0, or null beyond the last one. `kinds`, unless
 * null, receives the kinds of failure that the operation has, added together.
 */
const char* VeskObserver_Operation(size_t index, uint32_t* kinds);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VESK_SONDREL_OBSERVER_H */
