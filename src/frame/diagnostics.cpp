#include "frame/diagnostics.h"

#include "frame/text.h"
#include "platform/event_log.h"
#include "platform/tracing.h"

#include <array>
#include <span>
#include <string_view>

namespace sondrel {

TraceProviderState TraceProvider;

namespace {

constexpr platform::Guid ProviderGuid{
    0xC72E452E, 0x6078, 0x4AC3, {0x82, 0xF2, 0xC0, 0x28, 0x2F, 0x99, 0xA5, 0x73}};

// TraceLogging metadata: a little-endian 16-bit size that counts itself, then the names with their
// terminators.
constexpr char ProviderTraits[] = "\x13\0VeskWinDllLogger";
constexpr char EventMetadata[] = "\x22\0\0VeskWinDll\0String (wide char)\0\x01";
constexpr std::size_t ProviderTraitsSize = 19;
constexpr std::size_t EventMetadataSize = 34;
static_assert(sizeof ProviderTraits == ProviderTraitsSize, "the terminator ends the provider's name");
static_assert(sizeof EventMetadata == EventMetadataSize + 1,
              "the literal's own terminator is not part of it");

constexpr std::uint8_t TraceLevel = 5;
constexpr platform::EventDescriptor TraceEvent{
    .id = 0, .version = 0, .channel = 11, .level = TraceLevel, .opcode = 0, .task = 0, .keyword = 0};

constexpr std::uint32_t SetProviderTraits = 2; // EventProviderSetTraits

constexpr std::uint32_t ControlDisable = 0;
constexpr std::uint32_t ControlEnable = 1;
constexpr std::uint32_t EveryLevelPlus1 = 256;

constexpr const char16_t* EventSourceName = u"VESKTessaly";

std::span<const std::byte> BytesOf(const char* text, std::size_t size) {
    return std::as_bytes(std::span(text, size));
}

void OnTraceEnable(void* context, std::uint32_t controlCode, std::uint8_t level, std::uint64_t anyKeyword,
                   std::uint64_t allKeyword) {
    auto& state = *static_cast<TraceProviderState*>(context);
    if (controlCode == ControlDisable) {
        state.TraceLevelPlus1.store(0, std::memory_order_relaxed);
    } else if (controlCode == ControlEnable) {
        state.AnyKeyword.store(anyKeyword, std::memory_order_relaxed);
        state.AllKeyword.store(allKeyword, std::memory_order_relaxed);
        // Level 0 requests every level.
        state.TraceLevelPlus1.store(level == 0 ? EveryLevelPlus1 : level + 1u, std::memory_order_relaxed);
    }
}

} // namespace

void TraceLine(const char* text) noexcept {
    try {
        TraceWide(Utf8ToWide(text).c_str());
    } catch (const std::exception&) {
        return;
    }
}

void TraceWide(const char16_t* text) {
    if (!TraceProvider.TraceRegistered.load(std::memory_order_relaxed) &&
        !TraceProvider.TraceRegistered.exchange(true)) {
        TraceProviderRegister();
    }
    if (TraceProvider.TraceLevelPlus1.load(std::memory_order_relaxed) <= TraceLevel) {
        return;
    }
    const std::u16string_view line(text != nullptr ? text : u"");
    const std::span payload(line.data(), line.size() + 1);
    platform::EventWriteTransfer(
        TraceProvider.TraceRegHandle, TraceEvent,
        {{{BytesOf(ProviderTraits, ProviderTraitsSize), platform::EventDataProviderMetadata},
          {BytesOf(EventMetadata, EventMetadataSize), platform::EventDataEventMetadata},
          {std::as_bytes(payload), platform::EventDataPlain}}});
}

void TraceProviderRegister() {
    std::uint64_t registration = 0;
    if (platform::EventRegister(ProviderGuid, OnTraceEnable, &TraceProvider, registration) !=
        platform::error::Success) {
        return;
    }
    TraceProvider.TraceRegHandle = registration;
    platform::EventSetInformation(registration, SetProviderTraits,
                                  BytesOf(ProviderTraits, ProviderTraitsSize));
}

void ReportWarningEvent(const char16_t* message, std::uint16_t type) {
    const platform::OwnedEventSource source(platform::RegisterEventSourceW(EventSourceName));
    if (!source) {
        return;
    }
    platform::ReportEventW(source.Get(), type, 0, 0, {EventSourceName, message});
}

} // namespace sondrel
