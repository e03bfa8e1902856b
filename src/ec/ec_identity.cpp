#include "ec/ec_identity.h"

#include "ec/ec_command.h"
#include "frame/memory_guard.h"
#include "frame/registry_store.h"
#include "frame/text.h"
#include "vesk_sondrel.h"

#include <span>

namespace sondrel {
namespace {

constexpr std::uint8_t ReadIdentityRegister = 0xBB;

/// One number of the identity: its registry value, and the EC registers whose bytes it is made of, highest byte
/// first.
struct Identity {
    const char16_t* valueName;
    std::uint8_t registerCount;
    std::uint8_t registers[4];
};

constexpr Identity FirmwareRevision{platform::EcRevisionValue, 2, {0x03, 0x04}};
constexpr Identity ChipId{u"EcChipId", 1, {0x10}};
constexpr Identity ChipName{u"EcChipName", 4, {0x12, 0x13, 0x14, 0x15}};

/// A stored number is returned as it is and costs no EC command. A failed write only means that the next call
/// reads the EC again.
std::uint32_t ReadOrFetch(const Identity& identity) {
    const std::u16string stored = ReadRegDword(platform::Key::LocalMachine, ProductKey, identity.valueName);
    if (!IsRegistrySentinel(stored)) {
        return static_cast<std::uint32_t>(WideToInt32(stored));
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

std::uint32_t ReadIdentity(const Identity& identity) noexcept {
    return OnOutOfMemory(EcReadFailed, [&] { return ReadOrFetch(identity); });
}

} // namespace

std::uint32_t ReadEcFirmwareRevision() noexcept {
    return ReadIdentity(FirmwareRevision);
}

std::uint32_t ReadEcChipId() noexcept {
    return ReadIdentity(ChipId);
}

} // namespace sondrel

using namespace sondrel;

uint32_t EC_ReadEcFwRev(void) {
    return ReadEcFirmwareRevision();
}

uint32_t EC_ReadEcChipId(void) {
    return ReadEcChipId();
}

uint32_t EC_ReadEcChipName(void) {
    return ReadIdentity(ChipName);
}
