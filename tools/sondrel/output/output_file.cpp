#include "output/output_file.h"

#include "base/text.h"
#include "output/replaced_file.h"

#include <iostream>

namespace tool {

void WriteOutput(const std::string& file, std::string_view text) {
    if (file.empty() || file == "-") {
        std::cout << text;
        return;
    }
    ReplacedFile(PathOf(file)).Write(text);
}

} // namespace tool
