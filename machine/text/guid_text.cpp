// The text of an identifier, which COM's library makes on Windows.
#include "observer/gate.h"
#include "platform/com.h"

#include <algorithm>
#include <cstdio>

namespace platform {

using machine::Call;
using machine::Operation;

int StringFromGUID2(const Guid& guid, std::span<char16_t> text) {
    Call call(Operation::StringFromGUID2);
    char digits[39];
    std::snprintf(digits, sizeof digits, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                  static_cast<unsigned>(guid.data1), guid.data2, guid.data3, guid.data4[0], guid.data4[1],
                  guid.data4[2], guid.data4[3], guid.data4[4], guid.data4[5], guid.data4[6], guid.data4[7]);
    call.Note([&] { return std::string(digits); });
    if (call.Refused() || text.size() < sizeof digits) {
        return call.Answered(0);
    }
    std::ranges::copy(digits, text.begin());
    return call.Answered(static_cast<int>(sizeof digits));
}

} // namespace platform
