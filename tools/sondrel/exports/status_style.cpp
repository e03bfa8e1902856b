#include "exports/status_style.h"

namespace tool {

Style StyleOf(Status status) {
    switch (status) {
    case Status::Ok:
        return Style::Plain;
    case Status::Partly:
    case Status::NotRead:
        return Style::Warning;
    case Status::Absent:
    case Status::NotExported:
    case Status::NotRun:
        return Style::Quiet;
    case Status::Failed:
    case Status::Untouched:
    case Status::Faulty:
        break;
    }
    return Style::Bad;
}

} // namespace tool
