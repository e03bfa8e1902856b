// sondrel snapshot FILE
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "output/output_file.h"
#include "readings/reading_json.h"
#include "readings/snapshot.h"

#include <ctime>

namespace tool {
namespace {

using OrderedJson = nlohmann::ordered_json;

std::string Now() {
    const std::time_t now = std::time(nullptr);
    const std::tm* const utc = std::gmtime(&now);
    char text[32];
    return utc != nullptr && std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", utc) != 0 ? text : "";
}

} // namespace

int TakeSnapshot(const Options& options) {
    const Host host(WithObserver(options.host));
    OrderedJson readings = OrderedJson::object();
    Reader(host, options.reading).ReadAll([&](const Reading& reading) {
        AddMembers(reading, SnapshotValue(reading), readings[std::string(reading.row.name)]);
    });
    OrderedJson snapshot;
    snapshot["format"] = SnapshotFormat;
    snapshot["version"] = SnapshotVersion;
    snapshot["tool"] = SONDREL_VERSION;
    snapshot["taken"] = Now();
    snapshot["machine"] = WellFormed(host.machineName);
    snapshot["simulated"] = host.machine.has_value();
    snapshot["readings"] = std::move(readings);
    WriteOutput(options.files.front(),
                snapshot.dump(2, ' ', false, OrderedJson::error_handler_t::replace) + '\n');
    return ExitOk;
}

} // namespace tool
