// What the header says of each export that the library has.
#pragma once

#include <string_view>
#include <typeindex>
#include <vector>

namespace test {

struct Signature {
    std::string_view name;
    std::type_index type;
};

const std::vector<Signature>& HeaderSignatures();

} // namespace test
