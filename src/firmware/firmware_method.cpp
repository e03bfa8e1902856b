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

/// The message of a failed step; the status follows. In some steps the logs have different messages.
struct FailureMessage {
    const char* event;
    const char* debug;

    constexpr FailureMessage(const char* both) : event(both), debug(both) {}
    constexpr FailureMessage(const char* eventMessage, const char* debugMessage)
        : event(eventMessage), debug(debugMessage) {}
};

namespace failure {
constexpr FailureMessage Apartment = "[wmiMethod] Step1 Failed to initialize COM library. Error code = 0x";
constexpr FailureMessage Locator = "[wmiMethod] Step3 Failed to create IWbemLocator object. Error code = 0x";
constexpr FailureMessage Connect = "[wmiMethod] Step4 Could not connect. Error code = 0x";
constexpr FailureMessage Blanket = "[wmiMethod] Step5 Could not set proxy blanket. Error code = 0x";
constexpr FailureMessage Query = {"[wmiMethod]  Step6 Could not ExecQuery. Error code = 0x",
                                  "[wmiMethod] Step6 Could not ExecQuery. Error code = 0x"};
constexpr FailureMessage NextInstance = "[wmiMethod] Could not Get the Next Object. Error code = 0x";
constexpr FailureMessage ClassDefinition = "[wmiMethod] Could not GetObject. Error code = 0x";
constexpr FailureMessage MethodDefinition = "[wmiMethod] Could not GetMethod. Error code = 0x";
constexpr FailureMessage Input = "[wmiMethod] Could not SpawnInstance. Error code = 0x";
constexpr FailureMessage Parameter = "[wmiMethod] Could not put parameters. Error code = 0x";
constexpr FailureMessage Path = "[wmiMethod] Could not Get method retrieves. Error code = 0x";
constexpr FailureMessage Execute = {"[wmiMethod] Could not execute method.Error code = 0x",
                                    "[wmiMethod] Could not execute method. Error code = 0x"};
constexpr FailureMessage Output = {"[wmiMethod] Could not get output.Error code = 0x",
                                   "[wmiMethod] Could not get output. Error code = 0x"};
} // namespace failure

/// Whether a step succeeded. A failure is logged.
bool Succeeded(platform::HResult status, const FailureMessage& message, bool hasObject = true) {
    if (!platform::Failed(status) && hasObject) {
        return true;
    }
    const std::string code = HexText(static_cast<std::uint32_t>(status));
    ReportWmiWarning(message.event + code);
    TraceLine([&] { return message.debug + code; });
    return false;
}

/// The same for a step that returns an object: success without one is a failure too.
template <class Owner>
bool Returned(const Owner& object, platform::HResult status, const FailureMessage& message) {
    return Succeeded(status, message, static_cast<bool>(object));
}

/// One call with its connection.
class MethodCall {
public:
    MethodCall() = default;
    MethodCall(const MethodCall&) = delete;
    MethodCall& operator=(const MethodCall&) = delete;

    /// The order of release is part of the contract.
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
    if (!Returned(m_locator, status, failure::Locator)) {
        return false;
    }
    status = platform::ConnectServer(m_locator.Get(), u"ROOT\\WMI", m_services.Receive());
    return Returned(m_services, status, failure::Connect) &&
           Succeeded(SetWmiProxyBlanket(m_services.Get()), failure::Blanket);
}

/// The first instance. A class without one fails here, with the status that means the end of the rows.
bool MethodCall::FindInstance() {
    platform::HResult status =
        ExecWmiQuery(m_services.Get(), u"Select * from VeskZrnWmi_WMNB", m_rows.Receive());
    if (!Returned(m_rows, status, failure::Query)) {
        return false;
    }
    std::uint32_t returned = 0;
    status = platform::Next(m_rows.Get(), platform::wbem::Infinite, m_instance.Receive(), returned);
    return Returned(m_instance, status, failure::NextInstance);
}

bool MethodCall::MakeInput(const char16_t* method,
                           const std::map<std::u16string, std::u16string>& parameters) {
    platform::HResult status = platform::GetObject(m_services.Get(), FirmwareClass, m_class.Receive());
    if (!Returned(m_class, status, failure::ClassDefinition)) {
        return false;
    }
    status = platform::GetMethod(m_class.Get(), method, m_inputDefinition.Receive());
    if (!Returned(m_inputDefinition, status, failure::MethodDefinition)) {
        return false;
    }
    status = platform::SpawnInstance(m_inputDefinition.Get(), m_input.Receive());
    if (!Returned(m_input, status, failure::Input)) {
        return false;
    }
    for (const auto& [name, value] : parameters) {
        // The service converts the string to the type of the property.
        status = platform::Put(m_input.Get(), name.c_str(), value, platform::cim_type::UInt32);
        if (!Succeeded(status, failure::Parameter)) {
            return false;
        }
    }
    return true;
}

bool MethodCall::Execute(const char16_t* method) {
    platform::WmiValue value;
    if (!Succeeded(platform::Get(m_instance.Get(), u"__PATH", value), failure::Path)) {
        return false;
    }
    const auto* path = std::get_if<std::u16string>(&value);
    const platform::HResult status = platform::ExecMethod(
        m_services.Get(), path != nullptr ? path->c_str() : u"", method, m_input.Get(), m_output.Receive());
    return Returned(m_output, status, failure::Execute);
}

std::u16string MethodCall::Output(const char16_t* name) {
    platform::VariantWord value;
    if (!Succeeded(platform::Get(m_output.Get(), name, value), failure::Output)) {
        return {};
    }
    const std::string number = std::to_string(value.bits);
    TraceLine([&] { return "[wmiMethod] varReturnValue is " + number; });
    return {number.begin(), number.end()};
}

} // namespace

std::u16string wmiMethod(std::u16string methodName, std::map<std::u16string, std::u16string> parameters,
                         std::u16string outputName, std::uint8_t initCom) {
    platform::OwnedApartment apartment;
    if (initCom != 0) {
        if (!Succeeded(platform::CoInitializeEx(platform::apartment::Multithreaded), failure::Apartment)) {
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
