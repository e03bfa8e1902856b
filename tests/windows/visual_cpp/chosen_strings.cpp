// Strings that no radio gives (an empty one, a long radio standard), through the DLL's own conversion: this library
// consists of visual_cpp_string.cpp and, in place of the core, of what the test has set.
#include "vesk_sondrel.h"

namespace {

std::string Text;

} // namespace

std::string RF_PhyMode() {
    return Text;
}

std::string RF_BTConnectedType() {
    return Text;
}

extern "C" __declspec(dllexport) void SetText(const char* text, unsigned long long size) {
    Text.assign(text, size);
}
