#include "causes/call_words.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace tool {
namespace {

/// Of an EC command's 16 bytes.
namespace place {
constexpr std::size_t Count = 1;
constexpr std::size_t Data = 2;
constexpr std::size_t DataSize = 8;
constexpr std::size_t Status = 12;
constexpr std::size_t End = 16;
} // namespace place

constexpr std::string_view EcCommandCode = "0x80102070";

/// "key#1": opened in this export call.
bool IsOpenedHere(std::string_view value) {
    const std::size_t mark = value.find('#');
    return mark != std::string_view::npos && mark != 0 && value.front() != '"' && value.front() != '{' &&
           value.front() != '[' && std::ranges::all_of(value.substr(mark + 1), [](char digit) {
               return digit >= '0' && digit <= '9';
           });
}

/// "file:\\.\VESKHWIO": opened by an earlier export call.
std::string_view OpenedEarlierOn(std::string_view value) {
    const std::size_t mark = value.find(':');
    const bool isName = mark != std::string_view::npos && mark != 0 &&
                        std::ranges::all_of(value.substr(0, mark), [](char letter) {
                            return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
                        });
    return isName ? value.substr(mark + 1) : std::string_view();
}

bool Opens(const BoundaryCall& call, std::string_view handle) {
    return call.result == handle || std::ranges::any_of(call.arguments, [&](const auto& argument) {
               return argument.output && argument.value == handle;
           });
}

std::string OwnSubjectOf(const BoundaryCall& call) {
    if (const auto command = EcCommandOf(call)) {
        return "EC command " + command->bytes;
    }
    if (const std::string_view code = call.Input("code"); !code.empty()) {
        return "IOCTL " + std::string(code);
    }
    std::string text;
    for (const BoundaryCall::Argument& argument : call.arguments) {
        const std::string_view value = argument.value;
        if (!argument.output && argument.name != "language" && value.size() > 2 && value.front() == '"') {
            const bool isCut = value.back() != '"';
            const std::string_view root = text.empty() ? call.Input("root") : std::string_view();
            text.append(text.empty() ? "" : " ").append(root).append(root.empty() ? "" : "\\");
            text.append(value.substr(1, value.size() - (isCut ? 1 : 2)));
        }
    }
    return text;
}

} // namespace

std::string SubjectOf(std::span<const BoundaryCall> calls, std::size_t place) {
    std::string subject = OwnSubjectOf(calls[place]);
    for (const BoundaryCall::Argument& argument : calls[place].arguments) {
        std::string parent;
        if (argument.output) {
            continue;
        }
        if (IsOpenedHere(argument.value)) {
            for (std::size_t earlier = place; earlier-- > 0 && parent.empty();) {
                if (Opens(calls[earlier], argument.value)) {
                    parent = SubjectOf(calls, earlier);
                    break;
                }
            }
        } else {
            parent = OpenedEarlierOn(argument.value);
        }
        if (!parent.empty()) {
            subject.append(subject.empty() ? "" : " in ").append(parent);
            break;
        }
    }
    return subject;
}

std::optional<std::uint32_t> CodeOf(const BoundaryCall& call) {
    if (call.row->lastError != observer::LastError::NotSet) {
        return call.lastError;
    }
    if (call.row->returns != observer::Returns::Error && call.row->returns != observer::Returns::HResult) {
        return std::nullopt;
    }
    const bool isHexadecimal = call.result.starts_with("0x");
    const std::string_view digits = std::string_view(call.result).substr(isHexadecimal ? 2 : 0);
    std::uint32_t code = 0;
    const auto [end, problem] =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHexadecimal ? 16 : 10);
    return problem == std::errc() ? std::optional(code) : std::nullopt;
}

std::string CodeText(std::uint32_t code) {
    if (code < 0x10000) {
        return std::to_string(code);
    }
    char text[16];
    std::snprintf(text, sizeof text, "0x%08x", static_cast<unsigned>(code));
    return text;
}

std::optional<EcCommand> EcCommandOf(const BoundaryCall& call) {
    if (call.Input("code") != EcCommandCode) {
        return std::nullopt;
    }
    const auto in = BytesOfHex(call.Input("in"));
    if (!in || in->size() < place::Status || (*in)[place::Count] > place::DataSize) {
        return std::nullopt;
    }
    EcCommand command{.bytes = Hex(std::span(*in).first(1))};
    for (std::size_t i = 0; i < (*in)[place::Count]; ++i) {
        command.bytes.append(" ").append(Hex(std::span(*in).subspan(place::Data + i, 1)));
    }
    if (const auto out = BytesOfHex(call.Output("out")); call.succeeded && out && out->size() >= place::End) {
        for (std::size_t i = place::End; i-- > place::Status;) {
            command.status = command.status << 8 | (*out)[i];
        }
    }
    return command;
}

} // namespace tool
