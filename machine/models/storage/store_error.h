// The error of a store that cannot be used.
#pragma once

#include <stdexcept>
#include <string>

namespace machine {

/// The store cannot be used; the message names the file and the reason. A damaged file is not changed.
class StoreError : public std::runtime_error {
public:
    explicit StoreError(const std::string& message, bool isDamage = false)
        : std::runtime_error(message), m_isDamage(isDamage) {}

    /// Whether there is a store that cannot be read, rather than none.
    [[nodiscard]] bool IsDamage() const { return m_isDamage; }

private:
    bool m_isDamage;
};

} // namespace machine
