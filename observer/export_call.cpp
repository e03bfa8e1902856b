#include "observer/export_call.h"

#include "observer/buffers/host_buffer.h"
#include "observer/delivery.h"
#include "observer/recording/replay.h"
#include "observer/recording/start.h"

#include <atomic>
#include <chrono>
#include <optional>

namespace observer {

/// What is noted of an export call where it is recorded or replayed.
struct ExportNotes {
    ExportRecord record;
    std::vector<HostBuffer> buffers;
    std::optional<ReplayedExport> replayed;
};

namespace {

using Type = ExportArgument::Type;

std::atomic<std::uint64_t> ExportCalls = 0;

thread_local ExportCall* CurrentCall = nullptr;

std::chrono::nanoseconds Now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

Value InputValue(const ExportArgument& argument) {
    switch (argument.TypeOf()) {
    case Type::ByteBlock: {
        const auto* const bytes = static_cast<const std::byte*>(argument.Address());
        return bytes == nullptr ? Value{} : Value{Bytes(bytes, bytes + argument.Size())};
    }
    case Type::WideText: {
        const auto* unit = static_cast<const VeskChar16*>(argument.Address());
        if (unit == nullptr) {
            return {};
        }
        std::u16string text;
        for (; *unit != 0; ++unit) {
            text += static_cast<char16_t>(*unit);
        }
        return {std::move(text)};
    }
    default:
        return {Number{argument.Value()}};
    }
}

template <class Make>
void NoteIn(ExportRecord& record, const Make& make) noexcept {
    const BelowBoundary here;
    try {
        record.result = make();
    } catch (...) {
        record.incomplete = true;
    }
}

} // namespace

ExportCall::ExportCall(std::size_t place, const char* name,
                       std::span<const ExportArgument> arguments) noexcept
    : m_place(place), m_name(name), m_arguments(arguments), m_number(++ExportCalls), m_outer(CurrentCall) {
    const BelowBoundary here;
    StartAsTheEnvironmentAsks();
    CurrentCall = this;
    if (HasSinks() || IsReplaying()) {
        try {
            Note();
        } catch (...) {
            m_notes.reset();
            m_number = 0;
        }
    }
}

/// What needs memory comes before the host's buffers are changed.
void ExportCall::Note() {
    auto notes = std::make_unique<ExportNotes>();
    ExportRecord& record = notes->record;
    record.name = m_name;
    record.number = m_number;
    record.thread = NumberOfThread();
    for (const ExportArgument& argument : m_arguments) {
        if (!argument.IsOutput()) {
            record.arguments.push_back({argument.Name(), InputValue(argument)});
        } else if (argument.Address() == nullptr) {
            record.arguments.push_back({argument.Name(), {}});
        }
    }
    if (auto replay = CurrentReplay(); replay != nullptr) {
        notes->replayed.emplace(std::move(replay), m_name, record.arguments);
    }
    record.start = Now();
    DeliverBegan(record);
    notes->buffers.reserve(m_arguments.size());
    m_notes = std::move(notes);
    for (const ExportArgument& argument : m_arguments) {
        if (argument.IsOutput() && argument.Address() != nullptr) {
            m_notes->buffers.emplace_back(argument);
        }
    }
}

ExportCall::~ExportCall() {
    const BelowBoundary here;
    if (m_notes != nullptr) {
        for (HostBuffer& buffer : m_notes->buffers) {
            buffer.Restore();
        }
        ExportRecord& record = m_notes->record;
        record.duration = Now() - record.start;
        try {
            for (const HostBuffer& buffer : m_notes->buffers) {
                record.buffers.push_back({buffer.Name(), buffer.Written()});
            }
        } catch (...) {
            record.incomplete = true;
        }
        try {
            DeliverEnded(record);
            if (m_notes->replayed) {
                m_notes->replayed->Returned(record);
            }
        } catch (...) {
            static_cast<void>(record); // the recorder marks its next line
        }
    }
    CurrentCall = m_outer;
}

ExportCall* ExportCall::Current() noexcept {
    return CurrentCall;
}

ReplayedExport* ExportCall::Replayed() const noexcept {
    return m_notes != nullptr && m_notes->replayed ? &*m_notes->replayed : nullptr;
}

void ExportCall::NoteResult(std::int64_t result) noexcept {
    NoteIn(m_notes->record, [&] { return Value{observer::Number{result}}; });
}

void ExportCall::NoteResult(float result) noexcept {
    NoteIn(m_notes->record, [&] { return Value{result}; });
}

void ExportCall::NoteResult(double result) noexcept {
    NoteIn(m_notes->record, [&] { return Value{result}; });
}

void ExportCall::NoteResult(const std::string& result) noexcept {
    NoteIn(m_notes->record, [&] { return NarrowValue(result); });
}

} // namespace observer
