// Settings files: the number in any text is what a text stream extracts from it, however the text is cut.
#include "harness.h"

#include "firmware/settings_file.h"

#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    constexpr std::int32_t Start = 100;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::istringstream stream(text);
    std::int32_t expected = Start;
    stream >> expected;

    const std::size_t cut = data[0] % size;
    sondrel::NumberScanner scanner;
    if (scanner.Feed(std::string_view(text).substr(0, cut))) {
        scanner.Feed(std::string_view(text).substr(cut));
    }
    fuzz::Demand(scanner.Number(Start) == expected);
    return 0;
}
