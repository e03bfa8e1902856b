/*
 * A kernel driver that stands in for others: it makes devices of any name, and answers by rules or as its owner
 * replies.
 */
#include "stand_in_driver.h"

static const WCHAR ControlName[] = L"VeskStandIn";

static PDRIVER_OBJECT Driver;
static PDEVICE_OBJECT Control;
static PFILE_OBJECT Owner; /* the one opening of the control device that counts */
static StandInLogEntry* Log;
static uint32_t LogLength;
static uint32_t DevicesMade;

/* ---- Names --------------------------------------------------------------------------------------------- */

BOOLEAN SameName(const WCHAR* left, const WCHAR* right) {
    ULONG index = 0;
    while (left[index] != 0 && left[index] == right[index]) {
        ++index;
    }
    return left[index] == right[index];
}

static BOOLEAN IsTerminated(const WCHAR* name) {
    for (ULONG index = 0; index < STAND_IN_NAME_ROOM; ++index) {
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

/* The name under which programs find the device. `room` holds the text. */
static UNICODE_STRING LinkOf(const WCHAR* name, WCHAR (*room)[STAND_IN_NAME_ROOM + 8]) {
    UNICODE_STRING link = {0, sizeof *room, *room};
    Append(&link, L"\\??\\");
    Append(&link, name);
    return link;
}

/* ---- Devices ------------------------------------------------------------------------------------------- */

static Device* DataOf(PDEVICE_OBJECT device) {
    return device->DeviceExtension;
}

static PDEVICE_OBJECT FindDevice(const WCHAR* name) {
    for (PDEVICE_OBJECT device = Driver->DeviceObject; device != NULL; device = device->NextDevice) {
        if (device != Control && !DataOf(device)->retired && SameName(DataOf(device)->name, name)) {
            return device;
        }
    }
    return NULL;
}

static NTSTATUS MakeDevice(const WCHAR* name, PDEVICE_OBJECT* made) {
    /* The object's own name only has to be new: a retired device may still have its old one. */
    WCHAR number[] = {(WCHAR)(L'0' + DevicesMade / 1000 % 10), (WCHAR)(L'0' + DevicesMade / 100 % 10),
                      (WCHAR)(L'0' + DevicesMade / 10 % 10), (WCHAR)(L'0' + DevicesMade % 10), 0};
    WCHAR objectRoom[32];
    UNICODE_STRING object = {0, sizeof objectRoom, objectRoom};
    Append(&object, L"\\Device\\VeskStandIn");
    Append(&object, number);
    ++DevicesMade;

    NTSTATUS status = IoCreateDevice(Driver, sizeof(Device), &object, FILE_DEVICE_UNKNOWN, 0, FALSE, made);
    if (!NT_SUCCESS(status)) {
        return status;
    }
    Device* data = DataOf(*made);
    RtlZeroMemory(data, sizeof *data);
    UNICODE_STRING kept = {0, sizeof data->name, data->name};
    Append(&kept, name);
    WCHAR linkRoom[STAND_IN_NAME_ROOM + 8];
    UNICODE_STRING link = LinkOf(name, &linkRoom);
    status = IoCreateSymbolicLink(&link, &object);
    if (!NT_SUCCESS(status)) {
        IoDeleteDevice(*made);
        return status;
    }
    (*made)->Flags &= ~(ULONG)DO_DEVICE_INITIALIZING;
    return STATUS_SUCCESS;
}

static void RetireDevice(PDEVICE_OBJECT device) {
    WCHAR linkRoom[STAND_IN_NAME_ROOM + 8];
    UNICODE_STRING link = LinkOf(DataOf(device)->name, &linkRoom);
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

/* ---- The log ------------------------------------------------------------------------------------------- */

static void WriteEntry(const Device* device, uint32_t code, const void* input, uint32_t inputSize,
                       uint32_t outputRoom, NTSTATUS status) {
    if (LogLength == STAND_IN_LOG_ROOM) {
        return;
    }
    StandInLogEntry* entry = &Log[LogLength++];
    RtlZeroMemory(entry, sizeof *entry);
    RtlCopyMemory(entry->device, device->name, sizeof entry->device);
    entry->code = code;
    entry->inputSize = inputSize;
    entry->outputRoom = outputRoom;
    entry->status = (uint32_t)status;
    RtlCopyMemory(entry->input, input, Smaller(inputSize, STAND_IN_PREFIX_ROOM));
}

void LogRequest(const Request* request, NTSTATUS status) {
    WriteEntry(request->device, request->code, request->buffer, request->inputSize, request->outputRoom,
               status);
}

static Answer ReadLog(uint32_t first, uint8_t* buffer, uint32_t outputRoom) {
    const uint32_t from = Smaller(first, LogLength);
    const uint32_t count = Smaller(LogLength - from, outputRoom / (uint32_t)sizeof(StandInLogEntry));
    const uint32_t size = count * (uint32_t)sizeof(StandInLogEntry);
    RtlCopyMemory(buffer, &Log[from], size);
    return (Answer){STATUS_SUCCESS, size};
}

/* ---- Requests ------------------------------------------------------------------------------------------ */

static void ForgetEverything(void) {
    StopServing();
    ClearRules(NULL);
    LogLength = 0;
    for (PDEVICE_OBJECT device = Driver->DeviceObject; device != NULL; device = device->NextDevice) {
        if (device != Control && !DataOf(device)->retired) {
            RetireDevice(device);
        }
    }
}

static NTSTATUS AddDevice(const WCHAR* name) {
    PDEVICE_OBJECT made = NULL;
    if (!IsTerminated(name)) {
        return STATUS_INVALID_PARAMETER;
    }
    return FindDevice(name) != NULL ? STATUS_SUCCESS : MakeDevice(name, &made);
}

static NTSTATUS RemoveDevice(const WCHAR* name) {
    PDEVICE_OBJECT device = IsTerminated(name) ? FindDevice(name) : NULL;
    if (device == NULL) {
        return STATUS_NO_SUCH_DEVICE;
    }
    ClearRules(name);
    RetireDevice(device);
    return STATUS_SUCCESS;
}

static NTSTATUS AddRuleFor(const StandInRule* rule) {
    const WCHAR* name = (const WCHAR*)rule->device;
    return IsTerminated(name) && FindDevice(name) != NULL ? AddRule(rule) : STATUS_NO_SUCH_DEVICE;
}

/* What the owner asks for. */
static Answer AnswerControl(const Request* request) {
    const uint32_t code = request->code;
    const uint32_t inputSize = request->inputSize;
    uint8_t* buffer = request->buffer;
    DeleteRetired();
    if ((code == STAND_IN_ADD_DEVICE || code == STAND_IN_REMOVE_DEVICE) &&
        inputSize == sizeof(StandInDevice)) {
        const WCHAR* name = (const WCHAR*)((const StandInDevice*)buffer)->name;
        return (Answer){code == STAND_IN_ADD_DEVICE ? AddDevice(name) : RemoveDevice(name), 0};
    }
    if (code == STAND_IN_ADD_RULE && inputSize == sizeof(StandInRule)) {
        return (Answer){AddRuleFor((const StandInRule*)buffer), 0};
    }
    if (code == STAND_IN_CLEAR_RULES) {
        ClearRules(NULL);
        return (Answer){STATUS_SUCCESS, 0};
    }
    if (code == STAND_IN_CLEAR_LOG) {
        LogLength = 0;
        return (Answer){STATUS_SUCCESS, 0};
    }
    if (code == STAND_IN_READ_LOG && inputSize == sizeof(uint32_t)) {
        return ReadLog(*(const uint32_t*)buffer, buffer, request->outputRoom);
    }
    if (code == STAND_IN_SERVE) {
        return (Answer){StartServing(), 0};
    }
    if (code == STAND_IN_TAKE) {
        return TakeWaiting((StandInWaiting*)buffer, request->outputRoom);
    }
    if (code == STAND_IN_REPLY) {
        return (Answer){Reply((const StandInReply*)buffer, inputSize), 0};
    }
    return (Answer){STATUS_INVALID_PARAMETER, 0};
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
    const StandInRule* rule = FindRule(&request);
    if (rule != NULL) {
        return Complete(packet, ApplyRule(rule, &request));
    }
    if (IsServing()) {
        return AwaitReply(&request);
    }
    LogRequest(&request, STATUS_INVALID_DEVICE_REQUEST);
    return Complete(packet, (Answer){STATUS_INVALID_DEVICE_REQUEST, 0});
}

/* Every opening is granted: Wine hands out the handle whatever a driver says to it. */
static NTSTATUS WINAPI OnOpen(PDEVICE_OBJECT device, PIRP packet) {
    const PIO_STACK_LOCATION location = IoGetCurrentIrpStackLocation(packet);
    ++DataOf(device)->openings;
    if (device != Control) {
        const uint32_t shareMode = location->Parameters.Create.ShareAccess;
        WriteEntry(DataOf(device), STAND_IN_OPENING, &shareMode, sizeof shareMode, 0, STATUS_SUCCESS);
    } else if (Owner == NULL) {
        Owner = location->FileObject;
    }
    return Complete(packet, (Answer){STATUS_SUCCESS, 0});
}

static NTSTATUS WINAPI OnClose(PDEVICE_OBJECT device, PIRP packet) {
    --DataOf(device)->openings;
    if (device != Control) {
        WriteEntry(DataOf(device), STAND_IN_CLOSING, NULL, 0, 0, STATUS_SUCCESS);
    } else if (IoGetCurrentIrpStackLocation(packet)->FileObject == Owner) {
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
    ExFreePool(Log);
}

NTSTATUS WINAPI DriverEntry(PDRIVER_OBJECT driver, PUNICODE_STRING registryPath) {
    (void)registryPath;
    Driver = driver;
    Log = ExAllocatePool(NonPagedPool, STAND_IN_LOG_ROOM * sizeof *Log);
    if (Log == NULL) {
        return STATUS_INSUFFICIENT_RESOURCES;
    }
    driver->MajorFunction[IRP_MJ_CREATE] = OnOpen;
    driver->MajorFunction[IRP_MJ_CLOSE] = OnClose;
    driver->MajorFunction[IRP_MJ_DEVICE_CONTROL] = OnControl;
    driver->DriverUnload = OnUnload;
    return MakeDevice(ControlName, &Control);
}
