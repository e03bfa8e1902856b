#include "recordings/replay.h"

#include "base/error.h"
#include "base/text.h"

#include <array>

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
    if (replay(file.c_str(), part, sink, context, problem.data(), problem.size()) == 0) {
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
