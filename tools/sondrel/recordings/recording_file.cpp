#include "recordings/recording_file.h"

#include "base/error.h"
#include "base/input_file.h"
#include "base/text.h"
#include "recordings/compression.h"
#include "unicode/utf.h"

#include <utility>
#include <variant>

namespace tool {
namespace {

/// An argument as the command line spells it.
struct ArgumentText {
    std::optional<std::string> operator()(const observer::Number& number) const {
        return std::to_string(number.value);
    }

    std::optional<std::string> operator()(const std::u16string& text) const {
        return unicode::Utf8FromWide(text);
    }

    std::optional<std::string> operator()(const observer::Bytes& bytes) const {
        return Hex({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    }

    template <class Other>
    std::optional<std::string> operator()(const Other&) const {
        return std::nullopt;
    }
};

} // namespace

std::string ReadRecording(const std::string& file) {
    std::string content = ReadFile(file);
    try {
        return IsCompressed(content) ? Expanded(content, observer::LargestRecording) : std::move(content);
    } catch (const Error& problem) {
        throw Error(OnOneLine(file) + ": " + problem.what());
    }
}

std::unique_ptr<observer::Recording> LoadRecording(const std::string& file, std::size_t onlyPart) {
    try {
        return std::make_unique<observer::Recording>(ReadRecording(file), onlyPart);
    } catch (const observer::RecordingError& problem) {
        throw Error(OnOneLine(file) + ": " + OnOneLine(problem.what()));
    }
}

NewRecordingFile::NewRecordingFile(std::string file) : m_file(std::move(file)) {
    if (!m_opened.Create(m_file)) {
        throw Error("cannot make " + OnOneLine(m_file) + ": " + observer::system::LastProblem());
    }
}

void NewRecordingFile::Append(std::string_view text) {
    if (!m_opened.Append(text)) {
        throw Error("cannot write " + OnOneLine(m_file) + ": " + observer::system::LastProblem());
    }
}

std::optional<CallInputs> InputsOf(const observer::RecordedExport& recorded) {
    CallInputs inputs;
    for (const observer::Field& argument : recorded.arguments) {
        const std::optional<std::string> text = std::visit(ArgumentText{}, argument.value.held);
        if (!text) {
            return std::nullopt;
        }
        if (argument.name == "initCom") {
            inputs.initCom = *text == "0" ? 0 : 1;
        } else {
            inputs.argument = *text;
        }
    }
    return inputs;
}

} // namespace tool
