#include "machine/models/trace_sink.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

namespace machine {
namespace {

/// Reads the zero-terminated names of a TraceLogging metadata block, whose first two bytes are its own size.
class MetadataBlock {
public:
    explicit MetadataBlock(std::span<const std::byte> bytes)
        : m_rest(reinterpret_cast<const char*>(bytes.data()), bytes.size()) {
        if (m_rest.size() < 2 ||
            static_cast<unsigned char>(m_rest[0]) + 256u * static_cast<unsigned char>(m_rest[1]) !=
                m_rest.size()) {
            m_rest = {};
            return;
        }
        m_rest.remove_prefix(2);
    }

    void Skip(std::size_t bytes) { m_rest.remove_prefix(std::min(bytes, m_rest.size())); }

    std::string Name() {
        const std::size_t end = m_rest.find('\0');
        if (end == std::string_view::npos) {
            return {};
        }
        std::string name(m_rest.substr(0, end));
        m_rest.remove_prefix(end + 1);
        return name;
    }

private:
    std::string_view m_rest;
};

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
    constexpr std::uint32_t Disable = 0;
    constexpr std::uint32_t Enable = 1;
    if (m_level) {
        registration.callback(registration.context, Enable, *m_level, ~std::uint64_t{0}, 0);
    } else {
        registration.callback(registration.context, Disable, 0, 0, 0);
    }
}

void TraceSink::Attach(std::uint8_t level) {
    m_level = level;
    for (const Registration& registration : m_registrations) {
        Inform(registration);
    }
}

void TraceSink::Detach() {
    m_level.reset();
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
        MetadataBlock metadata(block.bytes);
        if (block.type == platform::EventDataProviderMetadata) {
            event.provider = metadata.Name();
        } else if (block.type == platform::EventDataEventMetadata) {
            metadata.Skip(1); // the tag
            event.event = metadata.Name();
            event.field = metadata.Name();
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
