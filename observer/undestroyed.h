// Objects that calls at the end of the process may still need.
#pragma once

#include <array>
#include <cstddef>
#include <new>

namespace observer {

/// The one object of this type. It is made with its first use and never destroyed, in storage outside the heap: a library
/// that is unloaded leaves no memory allocated.
template <class Type>
Type& Undestroyed() {
    alignas(Type) static std::array<std::byte, sizeof(Type)> Storage;
    static Type& Object = *new (Storage.data()) Type;
    return Object;
}

} // namespace observer
