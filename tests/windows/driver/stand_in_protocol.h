/*
 * What a test says to the stand-in driver, by DeviceIoControl on \\.\VeskStandIn.
 *
 * The driver makes devices and answers their requests by rules. It belongs to whoever opened its control
 * device first: requests of others are refused, and with that one's closing, however its process ends, all
 * devices, rules and log entries are gone.
 */
#ifndef STAND_IN_PROTOCOL_H
#define STAND_IN_PROTOCOL_H

#include <stdint.h>

#define STAND_IN_NAME_ROOM 128    /* characters of a device's name, with the terminator */
#define STAND_IN_PREFIX_ROOM 64   /* bytes of a rule's input prefix, and of the input kept in a log entry */
#define STAND_IN_OUTPUT_ROOM 1024 /* bytes of a rule's output */
#define STAND_IN_SERVED_ROOM 4096 /* bytes of a served request's input, and of its output */
#define STAND_IN_LOG_ROOM 8192    /* entries of the log; what comes behind the last one is not kept */

/* Control requests: METHOD_BUFFERED, FILE_ANY_ACCESS. */
#define STAND_IN_REQUEST(number) ((0x8011u << 16) | ((0x900u + (number)) << 2))
#define STAND_IN_ADD_DEVICE STAND_IN_REQUEST(1)    /* in: StandInDevice. One that is there stays as it is */
#define STAND_IN_REMOVE_DEVICE STAND_IN_REQUEST(2) /* in: StandInDevice. Takes the name away, and its rules */
#define STAND_IN_ADD_RULE STAND_IN_REQUEST(3)      /* in: StandInRule */
#define STAND_IN_CLEAR_RULES STAND_IN_REQUEST(4)
#define STAND_IN_CLEAR_LOG STAND_IN_REQUEST(5)
#define STAND_IN_READ_LOG STAND_IN_REQUEST(6) /* in: uint32_t first entry; out: StandInLogEntry[] */
#define STAND_IN_SERVE STAND_IN_REQUEST(7)    /* from now on requests without a rule wait for a reply */
#define STAND_IN_TAKE STAND_IN_REQUEST(8)     /* out: StandInWaiting, or nothing when nothing waits */
#define STAND_IN_REPLY STAND_IN_REQUEST(9)    /* in: StandInReply. The size given may end with the output */

/* In place of a request's code in the log: somebody opens or closes the device. An opening's input is one word,
 * the share mode asked for: Wine tells a driver nothing else of it, and no driver can refuse one. */
#define STAND_IN_OPENING 0xFFFFFFFFu
#define STAND_IN_CLOSING 0xFFFFFFFEu

#define STAND_IN_FOR_EVER 0u /* uses of a rule */

/* What follows \\.\ in the name that CreateFileW is given. */
typedef struct StandInDevice {
    uint16_t name[STAND_IN_NAME_ROOM];
} StandInDevice;

/* The newest rule that matches answers; one that is used up is gone, and older ones come to light again. Without a
 * rule a request ends with STATUS_INVALID_DEVICE_REQUEST. An output that does not fit the caller's room gives
 * STATUS_BUFFER_TOO_SMALL and no byte. */
typedef struct StandInRule {
    uint16_t device[STAND_IN_NAME_ROOM];
    uint32_t code;
    uint32_t prefixSize; /* the input has to begin with these bytes */
    uint8_t prefix[STAND_IN_PREFIX_ROOM];
    uint32_t status; /* NTSTATUS */
    uint32_t outputSize;
    uint8_t output[STAND_IN_OUTPUT_ROOM];
    uint32_t uses;
} StandInRule;

typedef struct StandInLogEntry {
    uint16_t device[STAND_IN_NAME_ROOM];
    uint32_t code;
    uint32_t inputSize;  /* as sent, also where less is kept */
    uint32_t outputRoom; /* as offered */
    uint32_t status;     /* NTSTATUS, as answered */
    uint8_t input[STAND_IN_PREFIX_ROOM];
} StandInLogEntry;

/* Where the owner serves, this event is set whenever a request begins to wait. The owner makes it, as
 * "Global\\VeskStandIn", before STAND_IN_SERVE. */
#define STAND_IN_EVENT L"\\BaseNamedObjects\\VeskStandIn"

/* A request that waits. It is taken once and has to be replied to; what still waits when the owner closes ends
 * with STATUS_DEVICE_NOT_CONNECTED. */
typedef struct StandInWaiting {
    uint32_t number;
    uint16_t device[STAND_IN_NAME_ROOM];
    uint32_t code;
    uint32_t inputSize; /* as sent, also where less is kept */
    uint32_t outputRoom;
    uint8_t input[STAND_IN_SERVED_ROOM];
} StandInWaiting;

typedef struct StandInReply {
    uint32_t number;
    uint32_t status; /* NTSTATUS */
    uint32_t outputSize;
    uint8_t output[STAND_IN_SERVED_ROOM];
} StandInReply;

#endif /* STAND_IN_PROTOCOL_H */
