// Why a machine's file cannot be used.
#pragma once

#include <stdexcept>

namespace machine {

/// The file cannot be used; the message names it and says why. A damaged file is left as it is.
class StoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace machine
