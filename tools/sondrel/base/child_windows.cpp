#include "base/child.h"

#include "unicode/utf.h"

#include <windows.h>

namespace tool::host_system {
namespace {

std::wstring Wide(const std::string& text) {
    const std::u16string wide = unicode::WideFromUtf8(text);
    return {wide.begin(), wide.end()};
}

/// As the C runtime reads a command line: backslashes count only before a quote.
std::wstring Quoted(const std::wstring& argument) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : argument) {
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        if (character == L'"') {
            text.append(text.size() - text.find_last_not_of(L'\\') - 1, L'\\').append(1, L'\\');
        }
        text += character;
    }
    return text.append(backslashes, L'\\') + L'"';
}

/// Set for a child that is started meanwhile.
class SetVariables {
public:
    explicit SetVariables(const std::vector<Variable>& variables) : m_variables(variables) {
        for (const auto& [name, value] : m_variables) {
            ::SetEnvironmentVariableW(Wide(name).c_str(), Wide(value).c_str());
        }
    }

    SetVariables(const SetVariables&) = delete;
    SetVariables& operator=(const SetVariables&) = delete;

    ~SetVariables() {
        for (const auto& [name, value] : m_variables) {
            ::SetEnvironmentVariableW(Wide(name).c_str(), nullptr);
        }
    }

private:
    const std::vector<Variable>& m_variables;
};

} // namespace

std::optional<int> RunOneself(const std::vector<std::string>& arguments,
                              const std::vector<Variable>& variables, ChildOutput output,
                              std::chrono::seconds time) {
    std::wstring program(32768, L'\0'); // the longest possible path
    program.resize(::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    std::wstring line = Quoted(program);
    for (const std::string& argument : arguments) {
        line.append(L" ").append(Quoted(Wide(argument)));
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = output == ChildOutput::Dropped ? STARTF_USESTDHANDLES : 0; // of which there are none
    PROCESS_INFORMATION child{};
    {
        const SetVariables set(variables);
        if (::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &start, &child) == 0) {
            return std::nullopt;
        }
    }
    const auto milliseconds = static_cast<DWORD>(std::chrono::milliseconds(time).count());
    const bool ended = ::WaitForSingleObject(child.hProcess, milliseconds) == WAIT_OBJECT_0;
    if (!ended) {
        ::TerminateProcess(child.hProcess, 1);
        ::WaitForSingleObject(child.hProcess, INFINITE);
    }
    DWORD status = 0;
    const bool known = ::GetExitCodeProcess(child.hProcess, &status) != 0;
    ::CloseHandle(child.hThread);
    ::CloseHandle(child.hProcess);
    constexpr DWORD LargestOwn = 255; // an exception of the system is larger
    return ended && known && status <= LargestOwn ? std::optional(static_cast<int>(status)) : std::nullopt;
}

} // namespace tool::host_system
