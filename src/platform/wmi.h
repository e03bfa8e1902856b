// WMI: a locator, the services of a namespace, the rows of a query, and a method call on an instance.
//
// The operations are those of IWbemLocator, IWbemServices, IEnumWbemClassObject and IWbemClassObject, with the
// object as the first argument. Arguments that are always null or 0 (user, password, locale, authority,
// context, call result, the flags except those of ExecQuery) are left out. An output is written only on
// success.
#pragma once

#include "platform/com.h"
#include "platform/types.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace platform {

enum class WbemLocator : std::uintptr_t { None = 0 };
enum class WbemServices : std::uintptr_t { None = 0 };
enum class WbemEnumerator : std::uintptr_t { None = 0 };
enum class WbemObject : std::uintptr_t { None = 0 }; // a row, a class, or the arguments of a method

using OwnedLocator = OwnedInterface<WbemLocator>;
using OwnedServices = OwnedInterface<WbemServices>;
using OwnedEnumerator = OwnedInterface<WbemEnumerator>;
using OwnedObject = OwnedInterface<WbemObject>;

/// An array of bytes, the first of which has the index `lowerBound`.
struct WmiBytes {
    std::int32_t lowerBound = 0;
    std::vector<std::byte> bytes;

    friend bool operator==(const WmiBytes&, const WmiBytes&) = default;
};

/// The value of a VARIANT:
///
/// - no value: VT_EMPTY, VT_NULL, and every type that is not listed here
/// - a number: the signed and unsigned types of 8, 16 and 32 bits; VT_BOOL as 0 or -1
/// - a string: VT_BSTR with its zero characters, a null one as the empty string; the 64-bit types in decimal
/// - numbers: an array of such numbers
/// - strings: an array of such strings
/// - bytes: an array of VT_UI1
///
/// Arrays are read from their lower bound, which may be any number. An array of more than one dimension is no value.
/// Values are equal whatever their type was.
struct WmiValue : std::variant<std::monostate, std::int32_t, std::u16string, std::vector<std::int32_t>,
                               std::vector<std::u16string>, WmiBytes> {
    using variant::variant;

    /// The VARIANT's own type, VARENUM: two machines may report one property in different types.
    std::uint16_t variantType = 0;
};

/// The first 32 bits of a VARIANT's value, whatever its type: of a string it is a part of its address, of no value 0.
struct VariantWord {
    std::int32_t bits = 0;
    std::uint16_t variantType = 0; // VARENUM
};

inline constexpr Guid ClsidWbemLocator{
    0x4590F811, 0x1D3A, 0x11D0, {0x89, 0x1F, 0x00, 0xAA, 0x00, 0x4B, 0x2E, 0x24}};
inline constexpr Guid IidWbemLocator{
    0xDC12A687, 0x737F, 0x11CF, {0x88, 0x4D, 0x00, 0xAA, 0x00, 0x4B, 0x2E, 0x24}};

/// The arguments of CoSetProxyBlanket.
struct ProxyBlanket {
    std::uint32_t authenticationService;
    std::uint32_t authorizationService;
    std::uint32_t authenticationLevel;
    std::uint32_t impersonationLevel;
    std::uint32_t capabilities;
};

namespace rpc {
inline constexpr std::uint32_t AuthenticationWinNt = 10;     // RPC_C_AUTHN_WINNT
inline constexpr std::uint32_t AuthorizationNone = 0;        // RPC_C_AUTHZ_NONE
inline constexpr std::uint32_t AuthenticationLevelCall = 3;  // RPC_C_AUTHN_LEVEL_CALL
inline constexpr std::uint32_t ImpersonationImpersonate = 3; // RPC_C_IMP_LEVEL_IMPERSONATE
inline constexpr std::uint32_t CapabilitiesNone = 0;         // EOAC_NONE
} // namespace rpc

namespace wbem {
inline constexpr std::int32_t ReturnImmediately = 0x10; // WBEM_FLAG_RETURN_IMMEDIATELY
inline constexpr std::int32_t ForwardOnly = 0x20;       // WBEM_FLAG_FORWARD_ONLY
inline constexpr std::uint32_t Infinite = 0xFFFFFFFF;   // WBEM_INFINITE

inline constexpr HResult NoMoreRows = 1; // WBEM_S_FALSE
inline constexpr HResult NotFound = static_cast<HResult>(0x80041002);
inline constexpr HResult AccessDenied = static_cast<HResult>(0x80041003);
inline constexpr HResult TypeMismatch = static_cast<HResult>(0x80041005);
inline constexpr HResult InvalidParameter = static_cast<HResult>(0x80041008);
inline constexpr HResult InvalidNamespace = static_cast<HResult>(0x8004100E);
inline constexpr HResult InvalidClass = static_cast<HResult>(0x80041010);
inline constexpr HResult InvalidQuery = static_cast<HResult>(0x80041017);
inline constexpr HResult InvalidQueryType = static_cast<HResult>(0x80041018);
inline constexpr HResult InvalidMethod = static_cast<HResult>(0x8004102E);
} // namespace wbem

namespace cim_type {
inline constexpr std::int32_t UInt32 = 19; // CIM_UINT32
} // namespace cim_type

/// IWbemLocator::ConnectServer as the calling user.
HResult ConnectServer(WbemLocator locator, const char16_t* networkResource, WbemServices& services);

/// With no principal name and no identity.
HResult CoSetProxyBlanket(WbemServices proxy, const ProxyBlanket& blanket);

/// IWbemServices::ExecQuery. With `wbem::ReturnImmediately` a query that fails in the service is reported by
/// Next.
HResult ExecQuery(WbemServices services, const char16_t* queryLanguage, const char16_t* query,
                  std::int32_t flags, WbemEnumerator& rows);

/// IEnumWbemClassObject::Next for one object. `returned` is 0 or 1, on failure too.
HResult Next(WbemEnumerator rows, std::uint32_t timeout, WbemObject& row, std::uint32_t& returned);

/// IWbemClassObject::Get. On failure there is no value.
HResult Get(WbemObject object, const char16_t* name, WmiValue& value);
HResult Get(WbemObject object, const char16_t* name, VariantWord& word);

/// IWbemServices::GetObject: the definition of a class by its name.
HResult GetObject(WbemServices services, const char16_t* objectPath, WbemObject& definition);

/// IWbemClassObject::GetMethod: the definition of a method's input. A method without input has none.
HResult GetMethod(WbemObject definition, const char16_t* name, WbemObject& inSignature);

/// IWbemClassObject::SpawnInstance.
HResult SpawnInstance(WbemObject definition, WbemObject& instance);

/// IWbemClassObject::Put of a VT_BSTR, for every CIM type.
HResult Put(WbemObject object, const char16_t* name, std::u16string_view text, std::int32_t cimType);

/// IWbemServices::ExecMethod.
HResult ExecMethod(WbemServices services, const char16_t* objectPath, const char16_t* methodName,
                   WbemObject inParameters, WbemObject& outParameters);

} // namespace platform
