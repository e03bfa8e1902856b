#include "base/new_file.h"

#include "base/text.h"

#include <random>

namespace tool {

std::string UnguessableName(std::string_view ending) {
    std::random_device random;
    const std::uint32_t bits[] = {random(), random(), random(), random()};
    return ".sondrel-" +
           Hex({reinterpret_cast<const std::uint8_t*>(bits), sizeof bits}).append(1, '.').append(ending);
}

} // namespace tool
