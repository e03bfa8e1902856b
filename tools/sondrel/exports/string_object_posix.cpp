#include "exports/string_object.h"

namespace tool {

std::string CallStringExport(Address address) {
    return reinterpret_cast<std::string (*)()>(address)();
}

} // namespace tool
