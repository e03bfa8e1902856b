#include "machine/models/trace_sink.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <tuple>
#include <utility>

namespace machine {
namespace {

/// The two zero-terminated names of a TraceLogging metadata block, which follow its own size in two bytes and `skipped`
/// more. Empty in a block of another size.
std::array<std::string, 2> NamesOf(std::span<const std::byte> block, std::size_t skipped) {
    std::array<std::string, 2> names;
    const auto byteAt = [&](std::size_t place) {
        return std::to_integer<std::size_t>(block[place]);
    };
    if (block.size() < 2 + skipped || byteAt(0) + 256 * byteAt(1) != block.size()) {
        return names;
    }
    std::string_view rest(reinterpret_cast<const char*>(block.data()), block.size());
    rest.remove_prefix(2 + skipped);
    for (std::string& name : names) {
        name = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    }
    return names;
}

std::u16string TextOf(std::span<const std::byte> bytes) {
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    while (!text.empty() && text.back() == u'\0') {
        text.pop_back();
    }
    return text;
}

} // namespace

std::uint64_t TraceSink::Register(const platform::Guid& provider, platform::TraceEnableCallback callback,
                                  void* context) {
    m_registrations.push_back({provider, callback, context});
    Inform(m_registrations.back());
    return m_registrations.size();
}

void TraceSink::Inform(const Registration& registration) const {
    const std::uint64_t everyKeyword = m_level ? ~std::uint64_t{0} : 0;
    registration.callback(registration.context, m_level ? 1 : 0, m_level.value_or(0), everyKeyword, 0);
}

void TraceSink::SetLevel(std::optional<std::uint8_t> level) {
    m_level = level;
    for (const Registration& registration : m_registrations) {
        Inform(registration);
    }
}

void TraceSink::Write(std::uint64_t registration, const platform::EventDescriptor& descriptor,
                      const std::array<platform::EventData, 3>& data) {
    if (registration == 0 || registration > m_registrations.size() || !m_level ||
        (*m_level != 0 && descriptor.level > *m_level)) {
        return;
    }
    TraceEvent event;
    event.descriptor = descriptor;
    for (const platform::EventData& block : data) {
        if (block.type == platform::EventDataProviderMetadata) {
            event.provider = NamesOf(block.bytes, 0).front();
        } else if (block.type == platform::EventDataEventMetadata) {
            constexpr std::size_t TagSize = 1;
            std::tie(event.event, event.field) = std::tuple_cat(NamesOf(block.bytes, TagSize));
        } else {
            event.text = TextOf(block.bytes);
        }
    }
    if (m_listener) {
        m_listener(event);
    }
    m_events.push_back(std::move(event));
}

std::vector<TraceEvent> TraceSink::Take() {
    return std::exchange(m_events, {});
}

TraceSink& Traces() {
    static TraceSink Sink;
    return Sink;
}

} // namespace machine
