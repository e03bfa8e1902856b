// The three identity exports: which embedded controller the machine has, read once and kept in the registry.
#include "ec/ec_command.h"
#include "frame/memory_guard.h"
#include "frame/registry_store.h"
#include "frame/text.h"
#include "vesk_sondrel.h"

#include <span>

namespace sondrel {
namespace {

constexpr std::uint8_t ReadIdentityRegister = 0xBB;

/// One identity: where it is kept, and the EC registers whose bytes make the number, highest byte first.
struct Identity {
    const char16_t* valueName;
    std::uint8_t registerCount;
    std::uint8_t registers[4];
};

constexpr Identity EcFwRev{u"EcFwRev", 2, {0x03, 0x04}};
constexpr Identity EcChipId{u"EcChipId", 1, {0x10}};
constexpr Identity EcChipName{u"EcChipName", 4, {0x12, 0x13, 0x14, 0x15}};

/// A value that stands in the registry wins over what the EC would say, and costs no EC command. Otherwise
/// the EC is read and the number kept; a store that refuses the number only means that the next call reads
/// again.
std::uint32_t FindIdentity(const Identity& identity) {
    const std::u16string kept = ReadRegDword(platform::Key::LocalMachine, ProductKey, identity.valueName);
    if (!IsRegistrySentinel(kept)) {
        return static_cast<std::uint32_t>(WideToInt32(kept));
    }
    std::uint32_t number = 0;
    for (const std::uint8_t registerNumber : std::span(identity.registers, identity.registerCount)) {
        std::uint32_t status = ec_status::Done;
        number = number << 8 | RwEcCmd(1, ReadIdentityRegister, &registerNumber, 1, &status);
        if (status != ec_status::Done) {
            return EcReadFailed;
        }
    }
    WriteRegDword(platform::Key::LocalMachine, ProductKey, identity.valueName, number);
    return number;
}

std::uint32_t ReadIdentity(const Identity& identity) {
    return OrWithoutMemory(EcReadFailed, [&] { return FindIdentity(identity); });
}

} // namespace
} // namespace sondrel

using namespace sondrel;

uint32_t EC_ReadEcFwRev(void) {
    return ReadIdentity(EcFwRev);
}

uint32_t EC_ReadEcChipId(void) {
    return ReadIdentity(EcChipId);
}

uint32_t EC_ReadEcChipName(void) {
    return ReadIdentity(EcChipName);
}
