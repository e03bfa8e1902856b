/*
 * What the parts of the fake driver share.
 *
 * The driver is written for Wine, which hands requests to a driver one after the other: there is no lock.
 */
#ifndef FAKE_DRIVER_H
#define FAKE_DRIVER_H

#include <ddk/wdm.h>

#include "fake_driver_protocol.h"

/* One of the driver's devices. */
typedef struct Device {
    WCHAR name[FAKE_DRIVER_NAME_CAPACITY];
    uint32_t openings;
    BOOLEAN retired; /* without a name by now; deleted when no handle to it is open */
} Device;

/* A control request in the driver's own terms. */
typedef struct Request {
    PIRP packet;
    Device* device;
    uint32_t code;
    uint8_t* buffer; /* holds the input and takes the output */
    uint32_t inputSize;
    uint32_t outputCapacity;
} Request;

typedef struct Answer {
    NTSTATUS status;
    uint32_t returned; /* bytes of output */
} Answer;

/* ---- fake_driver.c --------------------------------------------------------------------------------- */

Request RequestOf(PIRP packet);

NTSTATUS Complete(PIRP packet, Answer answer);

/* ---- pending_requests.c: answers that the owner gives while the request waits ---------------------------- */

NTSTATUS StartServing(void);
BOOLEAN IsServing(void);

/* Keeps a request until the owner replies to it. */
NTSTATUS AwaitReply(const Request* request);

/* The oldest request that waits and was not taken yet. */
Answer TakeWaiting(FakeDriverWaiting* waiting, uint32_t capacity);

NTSTATUS Reply(const FakeDriverReply* reply, uint32_t size);

/* Ends all requests that wait. */
void StopServing(void);

#endif /* FAKE_DRIVER_H */
