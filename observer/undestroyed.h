// Objects that calls at the end of the process may still need.
#pragma once

#include <array>
#include <cstddef>
#include <new>

namespace observer {

/// The one object of this type. It is made with its first use and never destroyed, in storage that is no heap's: a library
/// that is unloaded leaves nothing behind.
template <class Type>
Type& Undestroyed() {
    alignas(Type) static std::array<std::byte, sizeof(Type)> Storage;
    static Type& Object = *new (Storage.data()) Type;
    return Object;
}

} // namespace observer
