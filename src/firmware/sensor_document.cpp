// The JSON document of the firmware's P-sensor.
#include "acpi/acpi_device.h"
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/text.h"
#include "vesk_sondrel.h"

#include <string>

namespace sondrel {
namespace {

std::u16string PSensorDocument() {
    std::u16string document = u"{\"p_sensor\":\"";
    std::uint32_t status = 0;
    if (ACPI_ZRN_DSTS(acpi_id::PSensor, status)) {
        document += u"0x" + HexByteText(status);
    }
    document += u"\"}";
    return document;
}

} // namespace
} // namespace sondrel

using namespace sondrel;

void GetSENSOR_WMI_Data(VeskChar16* out) {
    TraceLine("GetSENSOR_WMI_Data start");
    AnswerWith(out, PSensorDocument, u"{\"p_sensor\":\"\"}");
    TraceLine("GetSENSOR_WMI_Data end");
}
