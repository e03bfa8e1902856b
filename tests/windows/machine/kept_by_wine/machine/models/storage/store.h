// In place of the SQLite file: what a machine under Wine keeps lies with Wine, or goes with the process.
#pragma once

#include <stdexcept>
#include <string>

namespace machine {

class StoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Store {
public:
    explicit Store(const std::string&) {}

    [[nodiscard]] bool IsNew() const { return true; }
};

} // namespace machine
