// What the native library answers on a machine, or as a recording does: library_answers MACHINE > native.json
#include "answers.h"

#include "recordings/recording_file.h"

#include <exception>
#include <iostream>

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: library_answers MACHINE\n";
        return 2;
    }
    try {
        tool::HostOptions options;
        options.machine = arguments[1];
        if (!tool::IsRecordingName(arguments[1])) {
            options.store = ":memory:";
        }
        comparison::PrintAnswers(tool::Host(options));
        return std::cout.flush() ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "library_answers: " << problem.what() << '\n';
        return 1;
    }
}
