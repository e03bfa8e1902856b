/*
 * What a program says to the stand-in driver, by DeviceIoControl on \\.\VeskStandIn.
 *
 * The driver makes devices and lets its owner answer their requests. It belongs to whoever opened its control
 * device first: requests of others are refused, and with that one's closing, however its process ends, all devices
 * are gone.
 */
#ifndef STAND_IN_PROTOCOL_H
#define STAND_IN_PROTOCOL_H

#include <stdint.h>

#define STAND_IN_NAME_ROOM 128    /* characters of a device's name, with the terminator */
#define STAND_IN_SERVED_ROOM 4096 /* bytes of a served request's input, and of its output */

/* Control requests: METHOD_BUFFERED, FILE_ANY_ACCESS. */
#define STAND_IN_REQUEST(number) ((0x8011u << 16) | ((0x900u + (number)) << 2))
#define STAND_IN_ADD_DEVICE STAND_IN_REQUEST(1) /* in: StandInDevice */
#define STAND_IN_SERVE STAND_IN_REQUEST(2)      /* from now on requests of the devices wait for a reply */
#define STAND_IN_TAKE STAND_IN_REQUEST(3)       /* out: StandInWaiting, or nothing when nothing waits */
#define STAND_IN_REPLY STAND_IN_REQUEST(4)      /* in: StandInReply. The size given may end with the output */

/* What follows \\.\ in the name that CreateFileW is given. */
typedef struct StandInDevice {
    uint16_t name[STAND_IN_NAME_ROOM];
} StandInDevice;

/* This event is set whenever a request begins to wait. The owner makes it, as "Global\\VeskStandIn", before
 * STAND_IN_SERVE. */
#define STAND_IN_EVENT L"\\BaseNamedObjects\\VeskStandIn"

/* A request that waits. It is taken once and has to be replied to; what still waits when the owner closes ends
 * with STATUS_DEVICE_NOT_CONNECTED. An output that does not fit the caller's room gives STATUS_BUFFER_TOO_SMALL and
 * no byte. */
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
