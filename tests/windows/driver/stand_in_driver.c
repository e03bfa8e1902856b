/*
 * A kernel driver that stands in for others: it makes devices of any name and answers by rules.
 *
 * Written for Wine, which hands requests to a driver one after the other: there is no lock here.
 */
#include <ddk/wdm.h>

#include "stand_in_protocol.h"

static const WCHAR ControlName[] = L"VeskStandIn";

/* One of the driver's devices; the control device is the first of them and has no rules. */
typedef struct Device {
    WCHAR name[STAND_IN_NAME_ROOM];
    uint32_t state;
    uint32_t openings;
    BOOLEAN retired; /* without a name by now; deleted when nobody has it open any more */
} Device;

typedef struct Rule {
    struct Rule* older;
    StandInRule what;
} Rule;

static PDRIVER_OBJECT Driver;
static PDEVICE_OBJECT Control;
static PFILE_OBJECT Owner; /* the one opening of the control device that counts */
static Rule* NewestRule;
static StandInLogEntry* Log;
static uint32_t LogLength;
static uint32_t DevicesMade;

static uint32_t Smaller(uint32_t left, uint32_t right) {
    return left < right ? left : right;
}

/* ---- Names --------------------------------------------------------------------------------------------- */

static BOOLEAN SameName(const WCHAR* left, const WCHAR* right) {
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

/* ---- Rules --------------------------------------------------------------------------------------------- */

/* Forgets the rules of one device, or all where there is no name. */
static void ClearRules(const WCHAR* name) {
    Rule** place = &NewestRule;
    while (*place != NULL) {
        Rule* rule = *place;
        if (name == NULL || SameName((const WCHAR*)rule->what.device, name)) {
            *place = rule->older;
            ExFreePool(rule);
        } else {
            place = &rule->older;
        }
    }
}

static NTSTATUS AddRule(const StandInRule* what) {
    if (!IsTerminated((const WCHAR*)what->device) || what->prefixSize > STAND_IN_PREFIX_ROOM ||
        what->outputSize > STAND_IN_OUTPUT_ROOM) {
        return STATUS_INVALID_PARAMETER;
    }
    if (FindDevice((const WCHAR*)what->device) == NULL) {
        return STATUS_NO_SUCH_DEVICE;
    }
    Rule* rule = ExAllocatePool(NonPagedPool, sizeof *rule);
    if (rule == NULL) {
        return STATUS_INSUFFICIENT_RESOURCES;
    }
    rule->what = *what;
    rule->older = NewestRule;
    NewestRule = rule;
    return STATUS_SUCCESS;
}

static BOOLEAN Matches(const StandInRule* rule, const Device* device, uint32_t code, const uint8_t* input,
                       uint32_t inputSize) {
    if (rule->code != code || rule->prefixSize > inputSize ||
        (rule->whenState != STAND_IN_ANY_STATE && rule->whenState != device->state) ||
        !SameName((const WCHAR*)rule->device, device->name)) {
        return FALSE;
    }
    return RtlCompareMemory(rule->prefix, input, rule->prefixSize) == rule->prefixSize;
}

typedef struct Answer {
    NTSTATUS status;
    uint32_t returned;
} Answer;

/* Answers by the newest rule that matches: `buffer` holds the input and takes the output. */
static Answer AnswerByRule(Device* device, uint32_t code, uint8_t* buffer, uint32_t inputSize,
                           uint32_t outputRoom) {
    Rule** place = &NewestRule;
    while (*place != NULL && !Matches(&(*place)->what, device, code, buffer, inputSize)) {
        place = &(*place)->older;
    }
    Rule* rule = *place;
    if (rule == NULL) {
        return (Answer){STATUS_INVALID_DEVICE_REQUEST, 0};
    }
    Answer answer = {(NTSTATUS)rule->what.status, rule->what.outputSize};
    if (answer.returned > outputRoom) {
        answer = (Answer){STATUS_BUFFER_TOO_SMALL, 0};
    }
    RtlCopyMemory(buffer, rule->what.output, answer.returned);
    if (rule->what.thenState != STAND_IN_SAME_STATE) {
        device->state = rule->what.thenState;
    }
    if (rule->what.uses != STAND_IN_FOR_EVER && --rule->what.uses == 0) {
        *place = rule->older;
        ExFreePool(rule);
    }
    return answer;
}

/* ---- The log ------------------------------------------------------------------------------------------- */

/* Begins an entry; the status follows once there is one. Null when the log is full. */
static StandInLogEntry* BeginEntry(const Device* device, uint32_t code, const uint8_t* input,
                                   uint32_t inputSize, uint32_t outputRoom) {
    if (LogLength == STAND_IN_LOG_ROOM) {
        return NULL;
    }
    StandInLogEntry* entry = &Log[LogLength++];
    RtlZeroMemory(entry, sizeof *entry);
    RtlCopyMemory(entry->device, device->name, sizeof entry->device);
    entry->code = code;
    entry->inputSize = inputSize;
    entry->outputRoom = outputRoom;
    RtlCopyMemory(entry->input, input, Smaller(inputSize, STAND_IN_PREFIX_ROOM));
    return entry;
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

static Answer AnswerControl(uint32_t code, uint8_t* buffer, uint32_t inputSize, uint32_t outputRoom) {
    DeleteRetired();
    if ((code == STAND_IN_ADD_DEVICE || code == STAND_IN_REMOVE_DEVICE) &&
        inputSize == sizeof(StandInDevice)) {
        const WCHAR* name = (const WCHAR*)((const StandInDevice*)buffer)->name;
        return (Answer){code == STAND_IN_ADD_DEVICE ? AddDevice(name) : RemoveDevice(name), 0};
    }
    if (code == STAND_IN_ADD_RULE && inputSize == sizeof(StandInRule)) {
        return (Answer){AddRule((const StandInRule*)buffer), 0};
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
        return ReadLog(*(const uint32_t*)buffer, buffer, outputRoom);
    }
    return (Answer){STATUS_INVALID_PARAMETER, 0};
}

static NTSTATUS Complete(PIRP request, Answer answer) {
    request->IoStatus.Status = answer.status;
    request->IoStatus.Information = answer.returned;
    IoCompleteRequest(request, IO_NO_INCREMENT);
    return answer.status;
}

static NTSTATUS WINAPI OnControl(PDEVICE_OBJECT device, PIRP request) {
    const PIO_STACK_LOCATION location = IoGetCurrentIrpStackLocation(request);
    const uint32_t code = location->Parameters.DeviceIoControl.IoControlCode;
    const uint32_t inputSize = location->Parameters.DeviceIoControl.InputBufferLength;
    const uint32_t outputRoom = location->Parameters.DeviceIoControl.OutputBufferLength;
    uint8_t* buffer = request->AssociatedIrp.SystemBuffer;
    if (device == Control) {
        return Complete(request, location->FileObject == Owner
                                     ? AnswerControl(code, buffer, inputSize, outputRoom)
                                     : (Answer){STATUS_SHARING_VIOLATION, 0});
    }
    StandInLogEntry* entry = BeginEntry(DataOf(device), code, buffer, inputSize, outputRoom);
    const Answer answer = AnswerByRule(DataOf(device), code, buffer, inputSize, outputRoom);
    if (entry != NULL) {
        entry->status = (uint32_t)answer.status;
    }
    return Complete(request, answer);
}

/* Every opening is granted: Wine hands out the handle whatever a driver says to it. */
static NTSTATUS WINAPI OnOpen(PDEVICE_OBJECT device, PIRP request) {
    const PIO_STACK_LOCATION location = IoGetCurrentIrpStackLocation(request);
    ++DataOf(device)->openings;
    if (device != Control) {
        const uint32_t shareMode = location->Parameters.Create.ShareAccess;
        BeginEntry(DataOf(device), STAND_IN_OPENING, (const uint8_t*)&shareMode, sizeof shareMode, 0);
    } else if (Owner == NULL) {
        Owner = location->FileObject;
    }
    return Complete(request, (Answer){STATUS_SUCCESS, 0});
}

static NTSTATUS WINAPI OnClose(PDEVICE_OBJECT device, PIRP request) {
    --DataOf(device)->openings;
    if (device != Control) {
        BeginEntry(DataOf(device), STAND_IN_CLOSING, NULL, 0, 0);
    } else if (IoGetCurrentIrpStackLocation(request)->FileObject == Owner) {
        ForgetEverything();
        Owner = NULL;
    }
    return Complete(request, (Answer){STATUS_SUCCESS, 0});
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
