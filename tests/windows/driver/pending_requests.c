#include "fake_driver.h"

NTSYSAPI NTSTATUS NTAPI ZwSetEvent(HANDLE event, LONG* previousState); /* wdm.h leaves it out */

/* A request that waits for the owner's reply. */
typedef struct Served {
    struct Served* newer;
    Request request;
    uint32_t number;
    BOOLEAN taken;
} Served;

static Served* OldestServed;
static uint32_t LastNumber;
static HANDLE Waiting; /* the owner's event; there while it serves */

NTSTATUS StartServing(void) {
    static WCHAR name[] = FAKE_DRIVER_EVENT;
    UNICODE_STRING text = {sizeof name - sizeof(WCHAR), sizeof name, name};
    OBJECT_ATTRIBUTES attributes = {.Length = sizeof attributes, .ObjectName = &text};
    return Waiting != NULL ? STATUS_SUCCESS : ZwOpenEvent(&Waiting, EVENT_MODIFY_STATE, &attributes);
}

BOOLEAN IsServing(void) {
    return Waiting != NULL;
}

NTSTATUS AwaitReply(const Request* request) {
    Served* served = ExAllocatePool(NonPagedPool, sizeof *served);
    if (served == NULL) {
        return Complete(request->packet, (Answer){STATUS_INSUFFICIENT_RESOURCES, 0});
    }
    *served = (Served){NULL, *request, ++LastNumber, FALSE};
    Served** place = &OldestServed;
    while (*place != NULL) {
        place = &(*place)->newer;
    }
    *place = served;
    IoMarkIrpPending(request->packet);
    ZwSetEvent(Waiting, NULL);
    return STATUS_PENDING;
}

Answer TakeWaiting(FakeDriverWaiting* waiting, uint32_t capacity) {
    Served* served = OldestServed;
    while (served != NULL && served->taken) {
        served = served->newer;
    }
    if (served == NULL || capacity < sizeof *waiting) {
        return (Answer){STATUS_SUCCESS, 0};
    }
    const Request* request = &served->request;
    served->taken = TRUE;
    waiting->number = served->number;
    RtlCopyMemory(waiting->device, request->device->name, sizeof waiting->device);
    waiting->code = request->code;
    waiting->inputSize = request->inputSize;
    waiting->outputCapacity = request->outputCapacity;
    const uint32_t copied =
        request->inputSize < FAKE_DRIVER_DATA_CAPACITY ? request->inputSize : FAKE_DRIVER_DATA_CAPACITY;
    RtlCopyMemory(waiting->input, request->buffer, copied);
    return (Answer){STATUS_SUCCESS, sizeof *waiting};
}

/* Takes a request out of the list and ends it: `place` is what points to it. */
static void End(Served** place, Answer answer) {
    Served* served = *place;
    *place = served->newer;
    Complete(served->request.packet, answer);
    ExFreePool(served);
}

NTSTATUS Reply(const FakeDriverReply* reply, uint32_t size) {
    const uint32_t headSize = FIELD_OFFSET(FakeDriverReply, output);
    if (size < headSize || reply->outputSize > size - headSize) {
        return STATUS_INVALID_PARAMETER;
    }
    Served** place = &OldestServed;
    while (*place != NULL && (*place)->number != reply->number) {
        place = &(*place)->newer;
    }
    if (*place == NULL) {
        return STATUS_INVALID_PARAMETER;
    }
    const Request* request = &(*place)->request;
    Answer answer = {(NTSTATUS)reply->status, reply->outputSize};
    if (answer.returned > request->outputCapacity) {
        answer = (Answer){STATUS_BUFFER_TOO_SMALL, 0};
    }
    RtlCopyMemory(request->buffer, reply->output, answer.returned);
    End(place, answer);
    return STATUS_SUCCESS;
}

void StopServing(void) {
    while (OldestServed != NULL) {
        End(&OldestServed, (Answer){STATUS_DEVICE_NOT_CONNECTED, 0});
    }
    if (Waiting != NULL) {
        ZwClose(Waiting);
        Waiting = NULL;
    }
}
