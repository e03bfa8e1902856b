#include "machine/models/ec/ec_generation.h"

#include <string_view>

namespace machine {
namespace {

struct GenerationRow {
    std::string_view revision;
    std::uint8_t chipId;
    Generation generation;
};

// clang-format off
constexpr GenerationRow Generations[] = {
    {"AB", 0, Generation::Legacy},   {"AR", 0, Generation::Legacy},
    {"CF", 0, Generation::Banked},   {"CF", 1, Generation::Banked},    {"CF", 2, Generation::Banked},
    {"GL", 0, Generation::Banked},   {"GL", 1, Generation::Banked},    {"GL", 2, Generation::Banked},
    {"PC", 0, Generation::Banked},   {"PC", 1, Generation::Banked},    {"PC", 2, Generation::Banked},
    {"WL", 0, Generation::Banked},   {"WL", 1, Generation::Banked},    {"WL", 2, Generation::Banked},
    {"KL", 0, Generation::Windowed}, {"KL", 1, Generation::Relocated},
};
// clang-format on

} // namespace

Generation GenerationOf(const EcProfile& profile) {
    for (const GenerationRow& row : Generations) {
        if (row.revision == profile.revision && row.chipId == profile.chipId) {
            return row.generation;
        }
    }
    return Generation::None;
}

} // namespace machine
