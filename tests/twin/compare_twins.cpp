// compare_twins DIRECTORY EXCUSED: tells every difference; the exit status is 0 when there is none.
#include "comparison.h"

#include <exception>
#include <fstream>
#include <iostream>

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: compare_twins DIRECTORY EXCUSED\n";
        return 2;
    }
    try {
        std::ifstream table(arguments[2]);
        if (!table) {
            throw std::runtime_error(std::string("cannot read ") + arguments[2]);
        }
        const twin::Comparison found = twin::Compare(arguments[1], twin::ReadExcuses(table));
        for (const std::string& problem : found.problems) {
            std::cout << problem << '\n';
        }
        std::cout << found.machines << " machines, " << found.exports << " exports, " << found.answers
                  << " answers compared: " << found.problems.size() << " problems\n";
        return found.problems.empty() ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "compare_twins: " << problem.what() << '\n';
        return 2;
    }
}
