// The documents of the firmware's event store and its sensor, with a firmware that answers anything: each is
// whole, and says nothing but bytes.
#include "harness.h"
#include "unicode/utf.h"

#include <nlohmann/json.hpp>

#include <sstream>

namespace {

class Firmware : public fuzz::AnsweringDevice {
public:
    explicit Firmware(fuzz::Input& input) : AnsweringDevice(u"\\\\.\\ZRNACPI", input) {}

    machine::ControlAnswer Control(std::uint32_t code, std::span<const std::byte> in,
                                   std::size_t capacity) override {
        machine::ControlAnswer answer = AnsweringDevice::Control(code, in, capacity);
        constexpr std::byte RegisterCount[]{std::byte{0xE3}, std::byte{0xFF}};
        if (answer.bytes.size() >= 4 && in.size() == 16 &&
            std::ranges::equal(in.subspan(12, 2), RegisterCount)) {
            std::fill(answer.bytes.begin() + 1, answer.bytes.begin() + 4, std::byte{}); // few are as good
        }
        return answer;
    }
};

/// A number, the bytes of an event, or nothing at all: "0x12", "0x12345678", "0x12 0xab".
void DemandNumbers(const std::string& text) {
    std::istringstream words(text);
    std::size_t length = 0;
    for (std::string word; words >> word; length += word.size() + 1) {
        fuzz::Demand(word.starts_with("0x") && word.size() >= 4 && word.size() <= 10 &&
                     word.find_first_not_of("0123456789abcdef", 2) == word.npos);
    }
    fuzz::Demand(length == text.size() + (text.empty() ? 0 : 1));
}

void DemandDocument(const std::u16string& text) {
    for (const nlohmann::json& member : nlohmann::json::parse(unicode::Utf8FromWide(text))) {
        if (member.is_string()) {
            DemandNumbers(member);
            continue;
        }
        for (const nlohmann::json& bytes : member) {
            DemandNumbers(bytes);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const Firmware firmware(input);
    DemandDocument(fuzz::TextOf(26, GetSENSOR_WMI_Data));
    DemandDocument(fuzz::TextOf(40'000, GetEEPROM_Data));
    fuzz::DemandNothingOpen();
    return 0;
}
