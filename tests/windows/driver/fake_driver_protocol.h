/*
 * What a program says to the fake driver, by DeviceIoControl on \\.\VeskFakeDriver.
 *
 * The driver makes devices and lets its owner answer their requests. It belongs to the process that opened its control
 * device first: requests of others are refused, and with that one's closing, however its process ends, all devices
 * are gone.
 */
#ifndef FAKE_DRIVER_PROTOCOL_H
#define FAKE_DRIVER_PROTOCOL_H

#include <stdint.h>

#define FAKE_DRIVER_NAME_CAPACITY 128  /* characters of a device's name, with the terminator */
#define FAKE_DRIVER_DATA_CAPACITY 4096 /* bytes of a served request's input, and of its output */

/* Control requests: METHOD_BUFFERED, FILE_ANY_ACCESS. */
#define FAKE_DRIVER_REQUEST(number) ((0x8011u << 16) | ((0x900u + (number)) << 2))
#define FAKE_DRIVER_ADD_DEVICE FAKE_DRIVER_REQUEST(1) /* in: FakeDriverDevice */
#define FAKE_DRIVER_SERVE FAKE_DRIVER_REQUEST(2) /* from now on requests of the devices wait for a reply */
#define FAKE_DRIVER_TAKE FAKE_DRIVER_REQUEST(3)  /* out: FakeDriverWaiting, or nothing when nothing waits */
#define FAKE_DRIVER_REPLY                                                                                    \
    FAKE_DRIVER_REQUEST(4) /* in: FakeDriverReply. The size given may end with the output */

/* What follows \\.\ in the name that CreateFileW is given. */
typedef struct FakeDriverDevice {
    uint16_t name[FAKE_DRIVER_NAME_CAPACITY];
} FakeDriverDevice;

/* This event is set whenever a request begins to wait. The owner makes it, as "Global\\VeskFakeDriver", before
 * FAKE_DRIVER_SERVE. */
#define FAKE_DRIVER_EVENT L"\\BaseNamedObjects\\VeskFakeDriver"

/* A request that waits. It is taken once and has to be replied to; what still waits when the owner closes ends
 * with STATUS_DEVICE_NOT_CONNECTED. An output that does not fit the caller's buffer gives STATUS_BUFFER_TOO_SMALL and
 * no byte. */
typedef struct FakeDriverWaiting {
    uint32_t number;
    uint16_t device[FAKE_DRIVER_NAME_CAPACITY];
    uint32_t code;
    uint32_t inputSize; /* as sent, also where less is copied */
    uint32_t outputCapacity;
    uint8_t input[FAKE_DRIVER_DATA_CAPACITY];
} FakeDriverWaiting;

typedef struct FakeDriverReply {
    uint32_t number;
    uint32_t status; /* NTSTATUS */
    uint32_t outputSize;
    uint8_t output[FAKE_DRIVER_DATA_CAPACITY];
} FakeDriverReply;

#endif /* FAKE_DRIVER_PROTOCOL_H */
