#include "firmware/firmware_method.h"

#include "frame/diagnostics.h"
#include "frame/text.h"
#include "platform/wmi.h"
#include "wmi/wmi_query.h"

#include <string_view>
#include <utility>

namespace sondrel {
namespace {

constexpr const char16_t* FirmwareClass = u"VeskZrnWmi_WMNB";

/// What a failed step writes in front of its status. The event log's text is not always the debug log's.
struct FailureText {
    const char* event;
    const char* debug;

    constexpr FailureText(const char* both) : event(both), debug(both) {}

    constexpr FailureText(const char* eventText, const char* debugText)
        : event(eventText), debug(debugText) {}
};

namespace failure {
constexpr FailureText Apartment = "[wmiMethod] Step1 Failed to initialize COM library. Error code = 0x";
constexpr FailureText Locator = "[wmiMethod] Step3 Failed to create IWbemLocator object. Error code = 0x";
constexpr FailureText Connect = "[wmiMethod] Step4 Could not connect. Error code = 0x";
constexpr FailureText Blanket = "[wmiMethod] Step5 Could not set proxy blanket. Error code = 0x";
constexpr FailureText Query = {"[wmiMethod]  Step6 Could not ExecQuery. Error code = 0x",
                               "[wmiMethod] Step6 Could not ExecQuery. Error code = 0x"};
constexpr FailureText NextInstance = "[wmiMethod] Could not Get the Next Object. Error code = 0x";
constexpr FailureText ClassDefinition = "[wmiMethod] Could not GetObject. Error code = 0x";
constexpr FailureText MethodDefinition = "[wmiMethod] Could not GetMethod. Error code = 0x";
constexpr FailureText Input = "[wmiMethod] Could not SpawnInstance. Error code = 0x";
constexpr FailureText Parameter = "[wmiMethod] Could not put parameters. Error code = 0x";
constexpr FailureText Path = "[wmiMethod] Could not Get method retrieves. Error code = 0x";
constexpr FailureText Execute = {"[wmiMethod] Could not execute method.Error code = 0x",
                                 "[wmiMethod] Could not execute method. Error code = 0x"};
constexpr FailureText Output = {"[wmiMethod] Could not get output.Error code = 0x",
                                "[wmiMethod] Could not get output. Error code = 0x"};
} // namespace failure

/// Reports a status that is a failure.
bool Worked(platform::HResult status, const FailureText& text, bool gaveObject = true) {
    if (!platform::Failed(status) && gaveObject) {
        return true;
    }
    const std::string code = HexText(static_cast<std::uint32_t>(status));
    ReportWmiWarning(text.event + code);
    TraceLine(text.debug + code);
    return false;
}

/// The same for a step that hands out an object: success without one is a failure of that step too.
template <class Owner>
bool Gave(const Owner& object, platform::HResult status, const FailureText& text) {
    return Worked(status, text, static_cast<bool>(object));
}

/// One call with its own connection.
class MethodCall {
public:
    MethodCall() = default;
    MethodCall(const MethodCall&) = delete;
    MethodCall& operator=(const MethodCall&) = delete;

    /// The order in which everything is given back.
    ~MethodCall() {
        m_class.Reset();
        m_input.Reset();
        m_inputDefinition.Reset();
        m_output.Reset();
        m_instance.Reset();
        m_rows.Reset();
        m_locator.Reset();
        m_services.Reset();
    }

    std::u16string Run(const char16_t* method, const std::map<std::u16string, std::u16string>& parameters,
                       const char16_t* outputName) {
        if (!Connect() || !FindInstance() || !MakeInput(method, parameters) || !Execute(method)) {
            return {};
        }
        return Output(outputName);
    }

private:
    bool Connect();
    bool FindInstance();
    bool MakeInput(const char16_t* method, const std::map<std::u16string, std::u16string>& parameters);
    bool Execute(const char16_t* method);
    std::u16string Output(const char16_t* name);

    platform::OwnedLocator m_locator;
    platform::OwnedServices m_services;
    platform::OwnedEnumerator m_rows;
    platform::OwnedObject m_instance;
    platform::OwnedObject m_class;
    platform::OwnedObject m_inputDefinition;
    platform::OwnedObject m_input;
    platform::OwnedObject m_output;
};

bool MethodCall::Connect() {
    platform::HResult status = CreateWmiLocator(m_locator.Receive());
    if (!Gave(m_locator, status, failure::Locator)) {
        return false;
    }
    status = platform::ConnectServer(m_locator.Get(), u"ROOT\\WMI", m_services.Receive());
    return Gave(m_services, status, failure::Connect) &&
           Worked(SetWmiProxyBlanket(m_services.Get()), failure::Blanket);
}

/// The first instance; a class without any fails here, with the status by which the end is told.
bool MethodCall::FindInstance() {
    platform::HResult status =
        ExecWmiQuery(m_services.Get(), u"Select * from VeskZrnWmi_WMNB", m_rows.Receive());
    if (!Gave(m_rows, status, failure::Query)) {
        return false;
    }
    std::uint32_t returned = 0;
    status = platform::Next(m_rows.Get(), platform::wbem::Infinite, m_instance.Receive(), returned);
    return Gave(m_instance, status, failure::NextInstance);
}

bool MethodCall::MakeInput(const char16_t* method,
                           const std::map<std::u16string, std::u16string>& parameters) {
    platform::HResult status = platform::GetObject(m_services.Get(), FirmwareClass, m_class.Receive());
    if (!Gave(m_class, status, failure::ClassDefinition)) {
        return false;
    }
    status = platform::GetMethod(m_class.Get(), method, m_inputDefinition.Receive());
    if (!Gave(m_inputDefinition, status, failure::MethodDefinition)) {
        return false;
    }
    status = platform::SpawnInstance(m_inputDefinition.Get(), m_input.Receive());
    if (!Gave(m_input, status, failure::Input)) {
        return false;
    }
    for (const auto& [name, value] : parameters) {
        // The service turns the text into the number that the property is.
        status = platform::Put(m_input.Get(), name.c_str(), value, platform::cim_type::UInt32);
        if (!Worked(status, failure::Parameter)) {
            return false;
        }
    }
    return true;
}

bool MethodCall::Execute(const char16_t* method) {
    platform::WmiValue value;
    if (!Worked(platform::Get(m_instance.Get(), u"__PATH", value), failure::Path)) {
        return false;
    }
    const auto* path = std::get_if<std::u16string>(&value);
    const platform::HResult status = platform::ExecMethod(
        m_services.Get(), path != nullptr ? path->c_str() : u"", method, m_input.Get(), m_output.Receive());
    return Gave(m_output, status, failure::Execute);
}

std::u16string MethodCall::Output(const char16_t* name) {
    platform::WmiValue value;
    if (!Worked(platform::Get(m_output.Get(), name, value), failure::Output)) {
        return {};
    }
    // What is no number has 0 where a number would stand.
    const auto* found = std::get_if<std::int32_t>(&value);
    const std::string number = std::to_string(found != nullptr ? *found : 0);
    TraceMade([&] { return "[wmiMethod] varReturnValue is " + number; });
    return {number.begin(), number.end()};
}

} // namespace

std::u16string wmiMethod(std::u16string methodName, std::map<std::u16string, std::u16string> parameters,
                         std::u16string outputName, std::uint8_t initCom) {
    platform::OwnedApartment apartment;
    if (initCom != 0) {
        if (!Worked(platform::CoInitializeEx(platform::apartment::Multithreaded), failure::Apartment)) {
            return {};
        }
        apartment.Reset(platform::Apartment::Entered);
    }
    std::u16string answer = MethodCall().Run(methodName.c_str(), parameters, outputName.c_str());
    if (apartment) {
        TraceLine("[wmiMethod] Do CoUninitialize()");
    }
    return answer;
}

} // namespace sondrel
