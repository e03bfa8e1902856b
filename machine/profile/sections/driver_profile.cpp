#include "machine/profile/sections/driver_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {

void ReadDriver(ProfileReader& reader, DriverProfile& driver) {
    reader.Members("present", driver.present, "version", driver.version, "ref_count", driver.refCount);
    reader.Choice("held_by_other", {"no", "shared", "alone"}, driver.heldBy);
}

void ReadProcessor(ProfileReader& reader, ProcessorProfile& processor) {
    reader.String("vendor", processor.vendor, Presence::Optional, PrintableAscii(12));
    reader.String("name", processor.name, Presence::Optional, PrintableAsciiUpTo(47));
    reader.Objects("cpuid", [&](ProfileReader& row) {
        std::uint32_t number = 0;
        CpuIdLeaf leaf{};
        row.Number("leaf", number, Presence::Required);
        row.Members("eax", leaf.eax, "ebx", leaf.ebx, "ecx", leaf.ecx, "edx", leaf.edx);
        processor.leaves[number] = leaf;
    });
    reader.Members("package_power", processor.packagePower, "power_limit_1", processor.powerLimit1,
                   "power_limit_2", processor.powerLimit2);
}

} // namespace machine
