/* The places of COM methods in their tables, as the interfaces' documentation lists them: compiled, never run. */
#define CINTERFACE
#define COBJMACROS
#include <windows.h>

#include <endpointvolume.h>
#include <mmdeviceapi.h>
#include <msxml2.h>
#include <wbemidl.h>

#include <stddef.h>

#define SLOT(interface, method, slot)                                                                        \
    _Static_assert(offsetof(interface##Vtbl, method) == 8 * (slot), #interface "::" #method)

SLOT(IUnknown, Release, 2);
SLOT(IWbemLocator, ConnectServer, 3);
SLOT(IWbemServices, GetObject, 6);
SLOT(IWbemServices, ExecQuery, 20);
SLOT(IWbemServices, ExecMethod, 24);
SLOT(IEnumWbemClassObject, Next, 4);
SLOT(IWbemClassObject, Get, 4);
SLOT(IWbemClassObject, Put, 5);
SLOT(IWbemClassObject, SpawnInstance, 15);
SLOT(IWbemClassObject, GetMethod, 19);
SLOT(IMMDeviceEnumerator, GetDefaultAudioEndpoint, 4);
SLOT(IMMDevice, Activate, 3);
SLOT(IAudioEndpointVolume, GetMasterVolumeLevelScalar, 9);
SLOT(IAudioEndpointVolume, GetMute, 15);
SLOT(IXMLDOMDocument, get_xml, 34);
SLOT(IXMLDOMDocument, load, 58);
SLOT(IXMLDOMDocument, put_async, 63);
SLOT(IXMLDOMDocument, put_validateOnParse, 68);
SLOT(IXMLDOMDocument, put_resolveExternals, 70);
SLOT(IXMLDOMDocument, put_preserveWhiteSpace, 72);
