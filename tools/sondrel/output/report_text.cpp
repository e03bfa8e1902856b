// A report for a reader.
#include "base/text.h"
#include "exports/document.h"
#include "exports/status_style.h"
#include "output/report.h"
#include "readings/readable.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace tool {
namespace {

constexpr std::size_t LongestLine = 100;
constexpr std::size_t MostLines = 24;

struct Layout {
    /// Columns before a value.
    std::size_t margin;
    /// Columns of a value.
    std::size_t width;
    /// The value is below its name, since the terminal is too narrow for both.
    bool below;
};

Layout LayoutFor(std::size_t longestName) {
    constexpr std::size_t EnoughAfterName = 28;
    constexpr std::size_t Least = 16;
    const Layout wide{longestName + 4, LongestLine, false};
    if (!terminal::IsTerminal(terminal::Stream::Out)) {
        return wide;
    }
    const std::size_t columns = terminal::SizeOf(terminal::Stream::Out).columns;
    if (columns >= wide.margin + EnoughAfterName) {
        return {wide.margin, std::min(LongestLine, columns - wide.margin), false};
    }
    constexpr std::size_t Indent = 4;
    return {Indent, std::max(Least, columns - std::min(columns, Indent)), true};
}

class TextReport {
public:
    TextReport(std::ostream& out, ColourMode colour) : m_out(out), m_paint(colour, terminal::Stream::Out) {
        for (const Export& row : AllExports()) {
            m_nameWidth = std::max(m_nameWidth, row.name.size());
        }
        m_layout = LayoutFor(m_nameWidth);
    }

    void Begin(const Host& host, bool isObserved) const {
        Print("Library  " + OnOneLine(Utf8Of(host.library.File())) +
              (isObserved ? "" : " (not observed: the states are those that the values can mean)"));
        Print("Machine  " + OnOneLine(host.machineName) + host.MachineKind());
    }

    void Add(const Reading& reading) {
        const auto status = static_cast<std::size_t>(reading.classification.status);
        ++m_counts[status];
        if (reading.classification.status == Status::NotExported) {
            return;
        }
        if (reading.classification.status == Status::NotRun) {
            m_notRun.append(m_notRun.empty() ? "" : ", ").append(reading.row.name);
            return;
        }
        if (reading.row.group != m_group) {
            m_group = reading.row.group;
            m_out << '\n'
                  << m_paint(Style::Title,
                             Shortened(exports::TitleOf(m_group), m_layout.margin + m_layout.width))
                  << '\n';
        }
        m_out << "  " << reading.row.name;
        std::string indent =
            m_layout.below ? "\n    " : std::string(m_nameWidth - reading.row.name.size() + 2, ' ');
        for (const std::string& line : LinesOf(reading)) {
            m_out << indent << line << '\n';
            indent.assign(m_layout.margin, ' ');
        }
        m_out.flush(); // the next reading may take long
    }

    void End() const {
        m_out << '\n';
        Print(CountsText());
        if (!m_notRun.empty()) {
            Print("not run by a report: " + m_notRun);
        }
        if (const std::size_t count = m_counts[static_cast<std::size_t>(Status::NotExported)]; count != 0) {
            Print("not exported by this library: " + std::to_string(count) + " names");
        }
    }

private:
    [[nodiscard]] std::vector<std::string> LinesOf(const Reading& reading) const {
        const Style style = StyleOf(reading.classification.status);
        if (HasValue(reading) && reading.row.display == Display::Document) {
            return DocumentLinesOf(reading);
        }
        const Readable readable = ReadableOf(reading, LongestLine);
        const std::string whole = OnOneLine(readable);
        if (Columns(whole) <= m_layout.width || !terminal::IsTerminal(terminal::Stream::Out)) {
            const std::string_view rest = std::string_view(whole).substr(readable.value.size());
            return {m_paint(style, readable.value) + m_paint(Style::Quiet, rest)};
        }
        std::vector<std::string> lines = Wrapped(whole, m_layout.width);
        for (std::string& line : lines) {
            line = m_paint(style, line);
        }
        return lines;
    }

    [[nodiscard]] std::vector<std::string> DocumentLinesOf(const Reading& reading) const {
        std::vector<std::string> lines = DocumentLines(reading.answer.text, m_layout.width);
        if (lines.size() > MostLines) {
            const std::size_t hidden = lines.size() - (MostLines - 1);
            lines.resize(MostLines - 1);
            const std::string more = "... " + std::to_string(hidden) + " more lines: sondrel call " +
                                     std::string(reading.row.name);
            for (const std::string& line : Wrapped(more, m_layout.width)) {
                lines.push_back(m_paint(Style::Quiet, line));
            }
        }
        return lines;
    }

    /// "97 readings: 88 ok, 7 absent, 2 failed"
    [[nodiscard]] std::string CountsText() const {
        std::size_t all = 0;
        std::string text;
        for (std::size_t i = 0; i < static_cast<std::size_t>(Status::NotExported); ++i) {
            all += m_counts[i];
            if (m_counts[i] != 0) {
                text.append(text.empty() ? "" : ", ").append(std::to_string(m_counts[i])).append(1, ' ');
                text.append(TextOf(static_cast<Status>(i)));
            }
        }
        return std::to_string(all) + " readings: " + text;
    }

    void Print(const std::string& text) const {
        const bool wraps = terminal::IsTerminal(terminal::Stream::Out);
        for (const std::string& line :
             wraps ? Wrapped(text, m_layout.margin + m_layout.width) : std::vector<std::string>{text}) {
            m_out << line << '\n';
        }
    }

    std::ostream& m_out;
    Paint m_paint;
    std::size_t m_nameWidth = 0;
    Layout m_layout{};
    Group m_group = Group::Count;
    std::array<std::size_t, static_cast<std::size_t>(Status::NotRun) + 1> m_counts{};
    std::string m_notRun;
};

} // namespace

void ReportAsText(const Host& host, const ReadOptions& options, ColourMode colour) {
    TextReport report(std::cout, colour);
    Reader reader(host, options);
    report.Begin(host, reader.IsObserved());
    reader.ReadAll([&](const Reading& reading) { report.Add(reading); });
    report.End();
}

} // namespace tool
