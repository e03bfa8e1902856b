#include "commands/help.h"

#include <algorithm>

namespace tool {
namespace {

constexpr Example Examples[] = {
    {"list", "sondrel list", "every export in one line each", "Thermal_Read_Fan"},
    {"list", "sondrel list Thermal_Read_Fan", "one in full, with the meaning of its values",
     "an EC command failed"},
    {"call", "sondrel call Thermal_Read_Cpu_Temperature", "one reading", "53"},
    {"call", "sondrel call CPU_ReadCpuId 0x80000002", "one with an argument", "76726f43 20687465"},
    {"call", "sondrel call WMISetBatteryHealth 80", "set something", "1"},
    {"call", "sondrel call Battery_Read_CellVoltage --trace", "with the debug lines that it writes",
     "debug: [RwEcCmd]"},
    {"call", "sondrel call Thermal_Read_Fan --json", "for programs", "\"readings\""},
    {"read", "sondrel read 'Thermal_*' battery", "several in one session", "3028 raw (29.65 °C)"},
    {"read", "sondrel read battery_ec --fields name,converted,converted_unit", "for scripts, with tabs",
     "Battery_Read_Current\t-1.26\tA"},
    {"report", "sondrel report", "every reading, by group", "107 readings"},
    {"report", "sondrel report --json", "the same for programs", "\"readings\""},
    {"report", "sondrel report --html report.html --samples 3", "one page with tables and charts", ""},
    {"doctor", "sondrel doctor", "what the readings rely on, and what is missing", "0 not met"},
    {"doctor", "sondrel doctor --json", "the same for programs", "\"preconditions\""},
    {"watch", "sondrel watch", "live telemetry, until Ctrl-C", "Thermal_Read_Fan[0]",
     " --count 2 --interval 1.5"},
    {"watch", "sondrel watch Thermal_Read_Fan --count 3 --interval 0.5 --csv fan.csv",
     "with every sample in a file", "Thermal_Read_Fan[3]"},
    {"watch", "sondrel watch Battery_Read_Current --csv -", "the samples alone, for another program",
     "time,Battery_Read_Current", " --count 1"},
    {"watch", "sondrel watch --fail-if 'Thermal_Read_Cpu_Temperature > 95'", "until it is too hot: status 1",
     "minimum", " --count 1"},
    {"watch", "sondrel watch thermal --ndjson", "a line of JSON for each sample", "\"Thermal_Read_Fan\":{",
     " --count 1"},
    {"trace", "sondrel trace WMIGetSN", "what a call asks of the system", "call   ExecQuery"},
    {"trace", "sondrel trace WMISetBatteryHealth 80", "one with an argument", "result  1"},
    {"snapshot", "sondrel snapshot before.json", "every answer, for a later comparison", ""},
    {"snapshot", "sondrel --machine gl snapshot after.json", "of a simulated machine", ""},
    {"diff", "sondrel diff before.json after.json", "what changed", "WMIGetSN"},
    {"diff", "sondrel diff --steady --json before.json after.json",
     "without what usually differs, for programs", "\"WMIGetSN\""},
    {"metrics", "sondrel metrics", "numbers for Prometheus", "sondrel_session_open 1"},
    {"metrics", "sondrel metrics --output sondrel.prom", "in a file, replaced in one step", ""},
    {"record", "sondrel record Thermal_Read_Fan WMIGetSN -o notebook.rec",
     "these readings; without names every one", ""},
    {"record", "sondrel --machine notebook.rec call Thermal_Read_Fan", "the same machine again, anywhere",
     ";"},
    {"replay", "sondrel replay --check notebook.rec", "what this library does otherwise", ""},
    {"redact", "sondrel redact notebook.rec -o shared.rec", "without what identifies machine or user", ""},
    {"compress", "sondrel compress notebook.rec", "notebook.rec.gz, which is a machine too", ""},
    {"expand", "sondrel expand notebook.rec.gz -o again.rec", "for hosts that replay it", ""},
    {"machine new", "sondrel machine new GL -o my-notebook.json", "start a profile from a family", ""},
    {"machine new", "sondrel machine new --from living -o busy.json", "or from another machine", ""},
    {"machine from", "sondrel machine from notebook.rec -o from-notebook.json", "what a recording shows", ""},
    {"machine check", "sondrel machine check my-notebook.json default", "the errors of profiles",
     "a good profile"},
    {"machine show", "sondrel machine show living", "a machine in words", "Course of the load"},
    {"machine list", "sondrel machine list", "the built-in machines", "awkward-wmi"},
    {"completion", "sondrel completion bash > sondrel.bash", "to be sourced, or put where the shell looks",
     ""},
    {"completion", "sondrel completion man > sondrel.1", "the manual page", ""},
};

constexpr std::size_t LongestLine = 64;

} // namespace

std::span<const Example> AllExamples() {
    return Examples;
}

std::string ExamplesOf(std::string_view command) {
    std::string text;
    std::size_t width = 0;
    for (const Example& example : Examples) {
        width = example.command == command ? std::max(width, example.line.size()) : width;
    }
    for (const Example& example : Examples) {
        if (example.command == command) {
            std::string line = "  " + std::string(example.line);
            line.resize(std::max(std::min(width, LongestLine) + 4, line.size() + 2), ' ');
            text += (text.empty() ? "Examples:\n" : "\n") + line.append(example.about);
        }
    }
    return text;
}

} // namespace tool
