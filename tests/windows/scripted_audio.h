// An audio endpoint that answers what a test dictates.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace test {

struct AudioScript {
    HRESULT createInstance = S_OK; // of the device enumerator
    HRESULT getDefaultEndpoint = S_OK;
    HRESULT activate = S_OK;
    HRESULT getLevel = S_OK;
    float level = 0;
    bool muted = false;

    /// What was called with which numbers, and what was released, in order.
    std::vector<std::wstring> calls;
    long alive = 0;
};

/// Stands in for the class of the device enumerator in the apartment that it is made in, which it enters and
/// leaves. One at a time.
class ScriptedAudio {
public:
    /// Throws std::runtime_error when the class cannot be registered.
    explicit ScriptedAudio(DWORD apartment);
    /// Puts the real one back.
    ~ScriptedAudio();
    ScriptedAudio(const ScriptedAudio&) = delete;
    ScriptedAudio& operator=(const ScriptedAudio&) = delete;

    [[nodiscard]] static AudioScript& Script();

    /// A device enumerator, for who cannot wait in its caller's apartment.
    static HRESULT MakeEnumerator(REFIID id, void** object);

private:
    DWORD m_registration = 0;
};

} // namespace test
