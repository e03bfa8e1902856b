// The thread's last error, and how a service reports that the machine's disk failed.
#pragma once

#include "machine/models/storage/store_error.h"
#include "platform/types.h"

namespace machine {

/// The calling thread's last error.
void SetLastError(platform::SystemError error);

/// Sets the last error. Whether it is success.
inline bool Succeed(platform::SystemError error) {
    SetLastError(error);
    return error == platform::error::Success;
}

/// The error of an operation on the machine's disk, which fails with a device error.
template <class Operation>
platform::SystemError OnDisk(Operation operation) {
    try {
        return operation();
    } catch (const StoreError&) {
        return platform::error::GenFailure;
    }
}

} // namespace machine
