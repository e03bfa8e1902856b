// The tool's commands. Each returns the exit status and throws Trouble where it cannot do its work.
#pragma once

#include "commands/options.h"
#include "exports/calls.h"
#include "exports/classify.h"
#include "exports/library.h"
#include "machines/simulated_machine.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tool {

int ListExports(const Options& options);
int CallExport(const Options& options);
int Report(const Options& options);
int TakeSnapshot(const Options& options);
int CompareSnapshots(const Options& options);
int PrintMetrics(const Options& options);
int Watch(const Options& options);
int TraceExport(const Options& options);

/// Throws Trouble with the nearest name for one that is none of the library's.
const Export& ExportNamed(std::string_view name);

/// The library and the machine that it reads, set up as the options say.
struct Host {
    explicit Host(const Options& options);

    Library library;
    std::optional<SimulatedMachine> machine;
    /// What a report calls the machine.
    std::string machineName;
};

/// Throws Trouble for an export that this library lacks.
Address AddressOf(const Library& library, const Export& row);

/// Opens the session and tells on standard error if it is refused: what can be read without one is read all the
/// same.
void OpenSession(std::optional<Session>& session, const Host& host);

/// One export as a report finds it.
struct Reading {
    const Export& row;
    Answer answer;
    Classification classification;
};

using ReadingSink = std::function<void(const Reading&)>;

/// Calls one export as a report does. InitializeSondrel is answered from the session.
Reading ReadOne(const Host& host, const Options& options, const Export& row,
                const std::optional<Session>& session);

/// Calls what a report calls, one after the other, in the order of the table.
void ReadAll(const Host& host, const Options& options, const ReadingSink& sink);

void ReportAsText(const Host& host, const Options& options);
void ReportAsJson(const Host& host, const Options& options);
void ReportAsPage(const Host& host, const Options& options);

} // namespace tool
