#include "output/output_file.h"

#include "base/text.h"
#include "output/replaced_file.h"

namespace tool {

void WriteOutput(const std::string& file, std::string_view text) {
    ReplacedFile(PathOf(file.empty() ? "-" : file)).Write(text);
}

} // namespace tool
