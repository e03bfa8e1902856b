// The document of the firmware's P-sensor.
#include "acpi/acpi_device.h"
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/text.h"
#include "vesk_sondrel.h"

#include <string>

using namespace sondrel;

void GetSENSOR_WMI_Data(VeskChar16* out) {
    TraceLine("GetSENSOR_WMI_Data start");
    std::u16string document = u"{\"p_sensor\":\"";
    std::uint32_t status = 0;
    if (ACPI_ZRN_DSTS(acpi_id::PSensor, status)) {
        document += u"0x" + HexByteText(status);
    }
    document += u"\"}";
    CopyToHost(document, out);
    TraceLine("GetSENSOR_WMI_Data end");
}
