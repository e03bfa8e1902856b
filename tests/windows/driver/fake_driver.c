/*
 * A fake kernel driver: it creates devices of any name, and answers as its owner replies.
 */
#include "fake_driver.h"

static const WCHAR ControlName[] = L"VeskFakeDriver";

static PDRIVER_OBJECT Driver;
static PDEVICE_OBJECT Control;
static PFILE_OBJECT Owner; /* the one opening of the control device that counts */
static uint32_t DevicesMade;

/* ---- Names --------------------------------------------------------------------------------------------- */

static BOOLEAN IsTerminated(const WCHAR* name) {
    for (ULONG index = 0; index < FAKE_DRIVER_NAME_CAPACITY; ++index) {
        if (name[index] == 0) {
            return index != 0;
        }
    }
    return FALSE;
}

static void Append(UNICODE_STRING* text, const WCHAR* more) {
    for (; *more != 0 && text->Length + sizeof(WCHAR) <= text->MaximumLength; ++more) {
        text->Buffer[text->Length / sizeof(WCHAR)] = *more;
        text->Length += sizeof(WCHAR);
    }
}

/* The name under which programs find the device. `buffer` holds the string. */
static UNICODE_STRING LinkOf(const WCHAR* name, WCHAR (*buffer)[FAKE_DRIVER_NAME_CAPACITY + 8]) {
    UNICODE_STRING link = {0, sizeof *buffer, *buffer};
    Append(&link, L"\\??\\");
    Append(&link, name);
    return link;
}

/* ---- Devices ------------------------------------------------------------------------------------------- */

static Device* DataOf(PDEVICE_OBJECT device) {
    return device->DeviceExtension;
}

static NTSTATUS MakeDevice(const WCHAR* name, PDEVICE_OBJECT* made) {
    /* The object's own name only has to be new: a retired device may still have its old one. */
    WCHAR number[] = {(WCHAR)(L'0' + DevicesMade / 1000 % 10), (WCHAR)(L'0' + DevicesMade / 100 % 10),
                      (WCHAR)(L'0' + DevicesMade / 10 % 10), (WCHAR)(L'0' + DevicesMade % 10), 0};
    WCHAR objectBuffer[32];
    UNICODE_STRING object = {0, sizeof objectBuffer, objectBuffer};
    Append(&object, L"\\Device\\VeskFakeDriver");
    Append(&object, number);
    ++DevicesMade;

    NTSTATUS status = IoCreateDevice(Driver, sizeof(Device), &object, FILE_DEVICE_UNKNOWN, 0, FALSE, made);
    if (!NT_SUCCESS(status)) {
        return status;
    }
    Device* data = DataOf(*made);
    RtlZeroMemory(data, sizeof *data);
    UNICODE_STRING stored = {0, sizeof data->name, data->name};
    Append(&stored, name);
    WCHAR linkBuffer[FAKE_DRIVER_NAME_CAPACITY + 8];
    UNICODE_STRING link = LinkOf(name, &linkBuffer);
    status = IoCreateSymbolicLink(&link, &object);
    if (!NT_SUCCESS(status)) {
        IoDeleteDevice(*made);
        return status;
    }
    (*made)->Flags &= ~(ULONG)DO_DEVICE_INITIALIZING;
    return STATUS_SUCCESS;
}

static void RetireDevice(PDEVICE_OBJECT device) {
    WCHAR linkBuffer[FAKE_DRIVER_NAME_CAPACITY + 8];
    UNICODE_STRING link = LinkOf(DataOf(device)->name, &linkBuffer);
    IoDeleteSymbolicLink(&link);
    DataOf(device)->retired = TRUE;
}

/* Deletes what is retired and no longer open. A device cannot do so itself while it answers its last closing. */
static void DeleteRetired(void) {
    PDEVICE_OBJECT next = Driver->DeviceObject;
    while (next != NULL) {
        PDEVICE_OBJECT device = next;
        next = device->NextDevice;
        if (DataOf(device)->retired && DataOf(device)->openings == 0) {
            IoDeleteDevice(device);
        }
    }
}

/* ---- Requests ------------------------------------------------------------------------------------------ */

static void ForgetEverything(void) {
    StopServing();
    for (PDEVICE_OBJECT device = Driver->DeviceObject; device != NULL; device = device->NextDevice) {
        if (device != Control && !DataOf(device)->retired) {
            RetireDevice(device);
        }
    }
}

static NTSTATUS AddDevice(const FakeDriverDevice* device) {
    PDEVICE_OBJECT made = NULL;
    return IsTerminated(device->name) ? MakeDevice(device->name, &made) : STATUS_INVALID_PARAMETER;
}

/* What the owner asks for. */
static Answer AnswerControl(const Request* request) {
    DeleteRetired();
    switch (request->code) {
    case FAKE_DRIVER_ADD_DEVICE:
        return (Answer){request->inputSize == sizeof(FakeDriverDevice)
                            ? AddDevice((const FakeDriverDevice*)request->buffer)
                            : STATUS_INVALID_PARAMETER,
                        0};
    case FAKE_DRIVER_SERVE:
        return (Answer){StartServing(), 0};
    case FAKE_DRIVER_TAKE:
        return TakeWaiting((FakeDriverWaiting*)request->buffer, request->outputCapacity);
    case FAKE_DRIVER_REPLY:
        return (Answer){Reply((const FakeDriverReply*)request->buffer, request->inputSize), 0};
    default:
        return (Answer){STATUS_INVALID_PARAMETER, 0};
    }
}

NTSTATUS Complete(PIRP packet, Answer answer) {
    packet->IoStatus.Status = answer.status;
    packet->IoStatus.Information = answer.returned;
    IoCompleteRequest(packet, IO_NO_INCREMENT);
    return answer.status;
}

Request RequestOf(PIRP packet) {
    const PIO_STACK_LOCATION location = IoGetCurrentIrpStackLocation(packet);
    return (Request){packet,
                     DataOf(location->DeviceObject),
                     location->Parameters.DeviceIoControl.IoControlCode,
                     packet->AssociatedIrp.SystemBuffer,
                     location->Parameters.DeviceIoControl.InputBufferLength,
                     location->Parameters.DeviceIoControl.OutputBufferLength};
}

static NTSTATUS WINAPI OnControl(PDEVICE_OBJECT device, PIRP packet) {
    const Request request = RequestOf(packet);
    if (device == Control) {
        const BOOLEAN isOwner = IoGetCurrentIrpStackLocation(packet)->FileObject == Owner;
        return Complete(packet, isOwner ? AnswerControl(&request) : (Answer){STATUS_SHARING_VIOLATION, 0});
    }
    return IsServing() ? AwaitReply(&request) : Complete(packet, (Answer){STATUS_INVALID_DEVICE_REQUEST, 0});
}

/* Every opening is granted: Wine hands out the handle whatever a driver says to it. */
static NTSTATUS WINAPI OnOpen(PDEVICE_OBJECT device, PIRP packet) {
    ++DataOf(device)->openings;
    if (device == Control && Owner == NULL) {
        Owner = IoGetCurrentIrpStackLocation(packet)->FileObject;
    }
    return Complete(packet, (Answer){STATUS_SUCCESS, 0});
}

static NTSTATUS WINAPI OnClose(PDEVICE_OBJECT device, PIRP packet) {
    --DataOf(device)->openings;
    if (device == Control && IoGetCurrentIrpStackLocation(packet)->FileObject == Owner) {
        ForgetEverything();
        Owner = NULL;
    }
    return Complete(packet, (Answer){STATUS_SUCCESS, 0});
}

static VOID WINAPI OnUnload(PDRIVER_OBJECT driver) {
    ForgetEverything();
    RetireDevice(Control);
    while (driver->DeviceObject != NULL) {
        IoDeleteDevice(driver->DeviceObject);
    }
}

NTSTATUS WINAPI DriverEntry(PDRIVER_OBJECT driver, PUNICODE_STRING registryPath) {
    (void)registryPath;
    Driver = driver;
    driver->MajorFunction[IRP_MJ_CREATE] = OnOpen;
    driver->MajorFunction[IRP_MJ_CLOSE] = OnClose;
    driver->MajorFunction[IRP_MJ_DEVICE_CONTROL] = OnControl;
    driver->DriverUnload = OnUnload;
    return MakeDevice(ControlName, &Control);
}
