#include "wmi_fixture.h"

#include "platform/simulated/wide_text.h"

#include <string_view>

namespace test {

void WmiTest::Listen() {
    m_journal.clear();
    machine::Traces().OnEvent([this](const machine::TraceEvent& event) {
        m_journal.push_back("debug " + machine::Utf8FromWide(event.text));
    });
    TheMachine().onLoggedEvent = [this](const machine::LoggedEvent& event) {
        m_journal.push_back("event " + machine::Utf8FromWide(event.strings.back()));
    };
    TheMachine().gate.Transcribe([this](const std::string& line) {
        const std::string_view operation = std::string_view(line).substr(0, line.find(' '));
        if (operation == "Release" || operation == "CoInitializeEx" || operation == "CoUninitialize") {
            m_journal.push_back(line);
        }
    });
}

} // namespace test
