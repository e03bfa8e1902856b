// Calls exports by their signatures.
#pragma once

#include "base/system.h"
#include "exports/answer.h"

#include <cstdint>
#include <string>
#include <typeinfo>

namespace tool {

/// What a call is given besides its buffers.
struct CallInputs {
    std::string argument;
    std::uint8_t initCom = 1;
};

/// Throws Error if the argument does not suit the export.
Answer Call(Address address, const Export& row, const CallInputs& inputs);

/// The type of a pointer to an export that is called in this way.
const std::type_info& TypeOf(Signature signature);

} // namespace tool
