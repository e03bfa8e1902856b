// A report as one page for a browser.
#include "base/text.h"
#include "exports/status_style.h"
#include "output/html_value.h"
#include "output/page_style.h"
#include "output/replaced_file.h"
#include "output/report.h"
#include "output/telemetry_html.h"
#include "readings/readable.h"

#include <algorithm>
#include <map>
#include <vector>

namespace tool {
namespace {

std::string AnchorOf(Group group) {
    return "group-" + std::to_string(static_cast<unsigned>(group));
}

std::string RowOf(const Reading& reading) {
    return "<tr><th scope=\"row\"><code>" + BreakableHtml(reading.row.name) + "</code></th><td class=\"" +
           std::string(ClassOf(reading.classification.status)) + "\">" + HtmlOf(reading) +
           "</td><td class=\"about\">" + QuietHtml(reading.row.summary) + "</td></tr>\n";
}

/// The readings that failed, each cause once.
class Failures {
public:
    void Add(const Reading& reading) {
        const std::string cause = reading.cause ? TextWithRemedy(*reading.cause)
                                  : reading.classification.meaning.empty()
                                      ? std::string(TextOf(reading.classification.status))
                                      : reading.classification.meaning;
        auto group = std::ranges::find(m_groups, cause, &SharedCause::cause);
        if (group == m_groups.end()) {
            group = m_groups.insert(group, {cause, std::string(ClassOf(reading.classification.status)), {}});
        }
        group->names.append(group->names.empty() ? "" : ", ");
        group->names.append("<code>").append(BreakableHtml(reading.row.name)).append("</code>");
        ++m_count;
    }

    [[nodiscard]] std::string Html(std::size_t readings) const {
        const std::string all = std::to_string(readings) + " readings";
        if (m_count == 0) {
            return "<p>" + all + ", none failed.</p>";
        }
        std::string html = "<details class=\"failures\"><summary>" + all + ", <span class=\"bad\">" +
                           std::to_string(m_count) + " failed or not complete</span>, for " +
                           std::to_string(m_groups.size()) + (m_groups.size() == 1 ? " cause" : " causes") +
                           "</summary><ul>";
        for (const SharedCause& group : m_groups) {
            html += "<li><span class=\"" + group.style + "\">" + Escaped(group.cause) + "</span><br>" +
                    group.names + "</li>";
        }
        return html + "</ul></details>";
    }

private:
    struct SharedCause {
        std::string cause;
        std::string style;
        std::string names; // in HTML
    };

    std::vector<SharedCause> m_groups;
    std::size_t m_count = 0;
};

/// The readings in tables, group by group, and what the page's header says of them.
class Tables {
public:
    void Add(const Reading& reading) {
        const Status status = reading.classification.status;
        if (status == Status::NotRun || status == Status::NotExported) {
            return;
        }
        m_tables[reading.row.group] += RowOf(reading);
        ++m_count;
        if (StyleOf(status) == Style::Bad || StyleOf(status) == Style::Warning) {
            m_failures.Add(reading);
        }
        if (status == Status::Ok) {
            m_values[reading.row.name] = reading.answer.text;
        }
        if (reading.row.report == InReport::Session) {
            m_session = OnOneLine(ReadableOf(reading, LongestSession));
            m_isOpen = status == Status::Ok;
        } else if (status == Status::Ok && reading.row.name == "GetDriverVersion") {
            m_driver = OnOneLine(ReadableOf(reading, LongestSession));
        }
    }

    /// A value for the page's header, or the empty string.
    [[nodiscard]] std::string ValueOf(std::string_view name) const {
        const auto found = m_values.find(name);
        return found != m_values.end() ? Shortened(OnOneLine(found->second), 100) : std::string();
    }

    [[nodiscard]] std::string Links() const {
        std::string html;
        for (const auto& [group, table] : m_tables) {
            html += "<a href=\"#" + AnchorOf(group) + "\">" + Escaped(exports::TitleOf(group)) + "</a>";
        }
        return html;
    }

    [[nodiscard]] std::string FailuresHtml() const { return m_failures.Html(m_count); }

    /// "open, driver 66051 (0x00010203)", or why it is not.
    [[nodiscard]] std::string SessionHtml() const {
        const std::string state = m_session.empty() ? "not asked for"
                                  : m_isOpen        ? "open"
                                                    : "<span class=\"bad\">" + Escaped(m_session) + "</span>";
        return "<p>Driver session: " + state + (m_driver.empty() ? "" : ", driver " + Escaped(m_driver)) +
               "</p>";
    }

    [[nodiscard]] std::string Html() const {
        std::string html;
        for (const auto& [group, table] : m_tables) {
            html += "<section id=\"" + AnchorOf(group) + "\"><h2>" + Escaped(exports::TitleOf(group)) +
                    "</h2><table class=\"readings\"><tbody>\n" + table + "</tbody></table></section>\n";
        }
        return html;
    }

private:
    static constexpr std::size_t LongestSession = 400;

    std::map<Group, std::string> m_tables;
    std::map<std::string_view, std::string> m_values;
    Failures m_failures;
    std::string m_session; // empty: not asked for
    bool m_isOpen = false;
    std::string m_driver;
    std::size_t m_count = 0;
};

std::string HeaderOf(const Host& host, const Tables& tables) {
    const std::string product = tables.ValueOf("WMIGetProductName");
    std::string facts;
    for (const std::string_view name : {"WMIGetSN", "WMIGetCPUInfo", "WMIGetBiosVersion", "WMIGetOSInfo"}) {
        const std::string value = tables.ValueOf(name);
        facts.append(facts.empty() || value.empty() ? "" : " · ").append(value);
    }
    const std::string title = product.empty() ? host.machineName : product;
    return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
           "'unsafe-inline'; img-src data:\">"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">"
           "<link rel=\"icon\" href=\"data:,\"><title>" +
           Escaped(title) + " - sondrel report</title><style>" + std::string(PageStyle) +
           "</style></head>\n<body><header><h1>" + Escaped(title) + "</h1><p>" + Escaped(facts) +
           "</p><p class=\"quiet\">Machine " + Escaped(host.machineName) + host.MachineKind() + ", read at " +
           IsoTime(std::chrono::system_clock::now()) + " through <code>" +
           Escaped(Utf8Of(host.library.File())) + "</code></p>" + tables.SessionHtml() +
           tables.FailuresHtml() + "<nav><a href=\"#telemetry\">Telemetry</a>" + tables.Links() +
           "</nav></header>\n";
}

} // namespace

void ReportAsPage(const Host& host, const ReadOptions& options, const PageOptions& pageOptions) {
    const ReplacedFile file(PathOf(pageOptions.file));
    Tables tables;
    Reader(host, options).ReadAll([&](const Reading& reading) { tables.Add(reading); });
    const Telemetry telemetry = MeasureTelemetry(host, options, pageOptions.sampling);
    std::string page = HeaderOf(host, tables);
    page.append("<main>\n").append(TelemetrySection(telemetry)).append("\n").append(tables.Html());
    page.append("</main><footer>Written by sondrel. The page needs no other file.</footer></body></html>\n");
    file.Write(page);
}

} // namespace tool
