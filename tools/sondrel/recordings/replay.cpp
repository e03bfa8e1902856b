#include "recordings/replay.h"

#include "base/error.h"
#include "base/input_file.h"
#include "base/system.h"
#include "base/text.h"
#include "recordings/compression.h"
#include "recordings/temporary_file.h"

#include <array>
#include <filesystem>
#include <optional>

namespace tool {

std::string TextOf(const VeskObserver_Difference& difference) {
    std::string text(difference.exportName);
    if (difference.line != 0) {
        text.append(": line ").append(std::to_string(difference.line));
    }
    return OnOneLine(text.append(": ").append(difference.text));
}

void StartReplay(const Library& library, const std::string& file, std::size_t part,
                 VeskObserver_DifferenceSink sink, void* context) {
    RequireObserved(library);
    const auto replay = reinterpret_cast<decltype(VeskObserver_Replay)*>(library.Find("VeskObserver_Replay"));
    std::array<char, 2048> problem{};
    // The library reads lines only, and has read them all when it returns.
    std::optional<TemporaryFile> expanded;
    if (IsCompressed(ReadFile(file))) {
        expanded.emplace(Utf8Of(std::filesystem::temp_directory_path()) + "/sondrel-" +
                         std::to_string(host_system::ProcessId()) + ".rec");
        static_cast<void>(LoadRecording(file)); // so that an error names this file and not the other one
        NewRecordingFile(expanded->Name()).Append(ReadRecording(file));
    }
    if (replay(expanded ? expanded->Name().c_str() : file.c_str(), part, sink, context, problem.data(),
               problem.size()) == 0) {
        throw Error(OnOneLine(problem.data()));
    }
}

void RequireObserved(const Library& library) {
    if (library.Find("VeskObserver_Replay") == nullptr) {
        throw Error("this library neither records nor replays: the one in the folder \"observed\" does "
                    "(--library FILE)");
    }
}

} // namespace tool
