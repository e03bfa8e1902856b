// Ownership of resources of the operating system.
#pragma once

#include <utility>

namespace platform {

/// Owns one resource from the moment it exists, and releases it once.
///
/// `Release` is the operation that releases it, `None` the value without a resource. Each API family defines
/// its owners (`OwnedFile`, `OwnedKey`, ...) with its operations.
template <class Resource, auto Release, Resource None>
class Owned {
public:
    Owned() = default;
    explicit Owned(Resource resource) : m_resource(resource) {}
    Owned(Owned&& other) noexcept : m_resource(other.Detach()) {}

    Owned& operator=(Owned&& other) noexcept {
        if (this != &other) {
            Reset(other.Detach());
        }
        return *this;
    }

    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { Reset(); }

    [[nodiscard]] Resource Get() const { return m_resource; }
    [[nodiscard]] explicit operator bool() const { return m_resource != None; }

    /// The output argument for an operation that acquires a resource. The previous resource is released first.
    [[nodiscard]] Resource& Receive() {
        Reset();
        return m_resource;
    }

    Resource Detach() { return std::exchange(m_resource, None); }

    void Reset(Resource next = None) {
        if (const Resource held = std::exchange(m_resource, next); held != None) {
            Release(held);
        }
    }

private:
    Resource m_resource = None;
};

} // namespace platform
