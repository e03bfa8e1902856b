#include "machine/profile/sections/driver_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {

void ReadDriver(ProfileReader& reader, DriverProfile& driver) {
    reader.Flag("present", driver.present);
    reader.Choice("held_by_other", {"no", "shared", "alone"}, driver.heldBy);
    reader.Number("version", driver.version);
    reader.Number("ref_count", driver.refCount);
}

void ReadProcessor(ProfileReader& reader, ProcessorProfile& processor) {
    reader.String("vendor", processor.vendor, Presence::Optional, PrintableAscii(12));
    reader.Objects("cpuid", [&](ProfileReader& row) {
        std::uint32_t number = 0;
        CpuIdLeaf leaf{};
        row.Number("leaf", number, Presence::Required);
        row.Number("eax", leaf.eax);
        row.Number("ebx", leaf.ebx);
        row.Number("ecx", leaf.ecx);
        row.Number("edx", leaf.edx);
        processor.leaves[number] = leaf;
    });
    reader.Number("package_power", processor.packagePower);
    reader.Number("power_limit_1", processor.powerLimit1);
    reader.Number("power_limit_2", processor.powerLimit2);
}

} // namespace machine
