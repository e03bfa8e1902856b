#include "stand_in_driver.h"

typedef struct Rule {
    StandInRule what; /* first, so that either stands for the other */
    struct Rule* older;
} Rule;

static Rule* NewestRule;

NTSTATUS AddRule(const StandInRule* what) {
    if (what->prefixSize > STAND_IN_PREFIX_ROOM || what->outputSize > STAND_IN_OUTPUT_ROOM) {
        return STATUS_INVALID_PARAMETER;
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

/* Takes a rule out of the list: `place` is what points to it. */
static void Forget(Rule** place) {
    Rule* rule = *place;
    *place = rule->older;
    ExFreePool(rule);
}

void ClearRules(const WCHAR* device) {
    Rule** place = &NewestRule;
    while (*place != NULL) {
        if (device == NULL || SameName((const WCHAR*)(*place)->what.device, device)) {
            Forget(place);
        } else {
            place = &(*place)->older;
        }
    }
}

static BOOLEAN Matches(const StandInRule* rule, const Request* request) {
    return rule->code == request->code && rule->prefixSize <= request->inputSize &&
           SameName((const WCHAR*)rule->device, request->device->name) &&
           RtlCompareMemory(rule->prefix, request->buffer, rule->prefixSize) == rule->prefixSize;
}

const StandInRule* FindRule(const Request* request) {
    for (const Rule* rule = NewestRule; rule != NULL; rule = rule->older) {
        if (Matches(&rule->what, request)) {
            return &rule->what;
        }
    }
    return NULL;
}

Answer ApplyRule(const StandInRule* rule, const Request* request) {
    Answer answer = {(NTSTATUS)rule->status, rule->outputSize};
    if (answer.returned > request->outputRoom) {
        answer = (Answer){STATUS_BUFFER_TOO_SMALL, 0};
    }
    LogRequest(request, answer.status);
    RtlCopyMemory(request->buffer, rule->output, answer.returned);
    if (rule->uses != STAND_IN_FOR_EVER) {
        Rule** place = &NewestRule;
        while (&(*place)->what != rule) {
            place = &(*place)->older;
        }
        if (--(*place)->what.uses == 0) {
            Forget(place);
        }
    }
    return answer;
}
