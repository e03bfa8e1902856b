// A WMI service that answers what a test dictates.
#pragma once

#include "scripted_value.h"

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace test {

struct IgnoringCase {
    bool operator()(const std::wstring& left, const std::wstring& right) const {
        return ::lstrcmpiW(left.c_str(), right.c_str()) < 0;
    }
};

/// The properties of a row, a class or the arguments of a method. "__PATH" is one like any other.
using ScriptedRow = std::map<std::wstring, ScriptedValue, IgnoringCase>;

struct ScriptedCall {
    std::wstring path;
    std::wstring method;
    ScriptedRow in;
};

/// A whole service behind the script: where a script has one, it answers in place of the script's tables.
class WmiService {
public:
    virtual ~WmiService() = default;

    virtual HRESULT Connect(const std::wstring& space) = 0;
    /// A failure is what the first Next gives.
    virtual HRESULT Query(const std::wstring& space, const std::wstring& query,
                          std::vector<ScriptedRow>& rows) = 0;
    virtual HRESULT FindClass(const std::wstring& space, const std::wstring& name) = 0;
    /// Nothing where there is no such method.
    virtual std::optional<std::vector<std::wstring>>
    MethodInputs(const std::wstring& space, const std::wstring& className, const std::wstring& method) = 0;
    /// A method may work and give no object.
    virtual HRESULT Execute(const std::wstring& space, const ScriptedCall& call,
                            std::optional<ScriptedRow>& out) = 0;
};

/// What the service does. Every step succeeds unless its status here says otherwise.
struct WmiScript {
    HRESULT createInstance = S_OK; // of the locator
    HRESULT connectServer = S_OK;
    HRESULT setBlanket = S_OK;
    HRESULT execQuery = S_OK;
    HRESULT getObject = S_OK;
    HRESULT getMethod = S_OK;
    HRESULT spawnInstance = S_OK;
    HRESULT put = S_OK;
    HRESULT execMethod = S_OK;

    /// By the query's exact text. A query that is not here has no rows.
    std::map<std::wstring, std::vector<ScriptedRow>> rows;
    /// What Next answers behind the last row.
    HRESULT nextAtEnd = 1; // WBEM_S_FALSE
    /// What Get of a property answers instead of its value. A property that a row does not have is 0x80041002.
    std::map<std::wstring, HRESULT, IgnoringCase> get;

    /// The inputs of every method, by class and method. A method without inputs gives no signature.
    std::map<std::wstring, std::map<std::wstring, std::vector<std::wstring>, IgnoringCase>, IgnoringCase>
        methods;
    /// Carries a method out: fills `out` in. A status other than success gives no output object.
    std::function<HRESULT(const ScriptedCall& call, ScriptedRow& out)> execute;

    std::shared_ptr<WmiService> service;

    /// What was called, in order, with its arguments, and what was released:
    /// "ConnectServer ROOT\WMI", "SetBlanket 10 0 3 3 0", "ExecQuery WQL 48 select ...", "Release IWbemServices".
    std::vector<std::wstring> calls;
    /// Objects that are not released yet.
    long alive = 0;
};

/// Stands in for WMI's locator class in the apartment that it is made in, which it enters and leaves. In the
/// multithreaded one every multithreaded caller of the process meets it, in a single-threaded one that thread.
///
///     test::ScriptedWmi wmi;
///     wmi.Script().rows[L"select * from Win32_Bios"] = {{{L"Name", test::ScriptedValue::Text(L"1.0")}}};
class ScriptedWmi {
public:
    /// Throws std::runtime_error when the class cannot be registered.
    explicit ScriptedWmi(DWORD apartment = 0); // COINIT_MULTITHREADED
    /// Puts the real service back.
    ~ScriptedWmi();
    ScriptedWmi(const ScriptedWmi&) = delete;
    ScriptedWmi& operator=(const ScriptedWmi&) = delete;

    [[nodiscard]] WmiScript& Script() { return *m_script; }

private:
    std::shared_ptr<WmiScript> m_script;
    DWORD m_registration = 0;
};

} // namespace test
