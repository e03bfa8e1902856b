#include "wmi/wmi_readers.h"

#include "frame/diagnostics.h"
#include "frame/text.h"
#include "wmi/wmi_query.h"
#include "wmi/wmi_values.h"

#include <utility>

namespace sondrel {

using platform::WbemObject;
using platform::WmiValue;

namespace {

constexpr std::u16string_view OemStringArray = u"OEMStringArray";
constexpr std::size_t OemStringIndex = 4;

/// Values joined by ";". The first is moved, not copied.
class JoinedStrings {
public:
    void Add(std::u16string text) {
        if (std::exchange(m_any, true)) {
            m_joined += u';';
            m_joined += text;
        } else {
            m_joined = std::move(text);
        }
    }

    [[nodiscard]] bool Empty() const { return m_joined.empty(); }

    [[nodiscard]] std::u16string Take() { return std::move(m_joined); }

private:
    std::u16string m_joined;
    bool m_any = false;
};

void ReportEmptyString(const std::u16string& property) {
    const std::string message =
        "[ReadWMIPropStr] SysStringLen(temp) == 0 , propname = " + WideToUtf8Bounded(property);
    ReportWmiWarning(message);
    TraceLine(message.c_str());
}

std::u16string ReadOemString(const std::u16string& nameSpace, const std::u16string& query,
                             const std::u16string& property, std::uint8_t initCom) {
    std::u16string result;
    WalkWmiQuery(WmiReader::PropStr, nameSpace, query, initCom, [&](WbemObject row) {
        WmiValue value = ReadWmiProperty(row, property.c_str());
        if (auto* strings = std::get_if<std::vector<std::u16string>>(&value);
            strings != nullptr && strings->size() > OemStringIndex) {
            result = std::move((*strings)[OemStringIndex]);
        }
    });
    return result;
}

} // namespace

std::int32_t ReadWMIEnumNum(std::u16string nameSpace, std::u16string query, std::uint8_t initCom) {
    std::int32_t count = 0;
    return WalkWmiQuery(WmiReader::EnumNum, nameSpace, query, initCom, [&](WbemObject) { ++count; }) ? count
                                                                                                     : -1;
}

std::int32_t ReadWMIProp(std::u16string nameSpace, std::u16string query, std::u16string property,
                         std::uint8_t initCom, std::uint8_t isArray) {
    std::int32_t result = -1;
    WalkWmiQuery(WmiReader::Prop, nameSpace, query, initCom, [&](WbemObject row) {
        const WmiValue value = ReadWmiProperty(row, property.c_str());
        result = (isArray != 0 ? FirstNumberOf(value) : NumberOf(value)).value_or(result);
    });
    return result;
}

std::u16string ReadWMIPropStr(std::u16string nameSpace, std::u16string query, std::u16string property,
                              std::uint8_t initCom) {
    if (property == OemStringArray) {
        return ReadOemString(nameSpace, query, property, initCom);
    }
    JoinedStrings joined;
    WalkWmiQuery(WmiReader::PropStr, nameSpace, query, initCom, [&](WbemObject row) {
        joined.Add(StringUpToZeroOf(ReadWmiProperty(row, property.c_str())));
        if (joined.Empty()) {
            ReportEmptyString(property);
        }
    });
    return joined.Take();
}

std::u16string ReadWMIPropStr2(std::u16string nameSpace, std::u16string query,
                               std::array<std::u16string, 3> properties, std::array<std::int32_t, 3> isNumber,
                               std::uint8_t initCom) {
    JoinedStrings joined;
    WalkWmiQuery(WmiReader::PropStr2, nameSpace, query, initCom, [&](WbemObject row) {
        for (std::size_t place = 0; place < properties.size(); ++place) {
            WmiValue value = ReadWmiProperty(row, properties[place].c_str());
            joined.Add(isNumber[place] != 0 ? NumberStringOf(value) : StringOf(std::move(value)));
        }
    });
    return joined.Take();
}

std::u16string ReadWMIPropStr2(std::u16string nameSpace, std::u16string query,
                               std::array<std::u16string, 2> properties, std::uint8_t initCom,
                               std::size_t nameLength) {
    std::array<std::u16string, 2> counters{u"0", u"0"};
    bool anyRow = false;
    WalkWmiQuery(WmiReader::PropStr2, nameSpace, query, initCom, [&](WbemObject row) {
        anyRow = true;
        if (StringOf(ReadWmiProperty(row, u"Name")).size() != nameLength) {
            return;
        }
        for (std::size_t place = 0; place < properties.size(); ++place) {
            std::u16string text = StringOf(ReadWmiProperty(row, properties[place].c_str()));
            if (text != u"0") {
                counters[place] = std::move(text);
            }
        }
    });
    return anyRow ? counters[0] + u';' + counters[1] : std::u16string();
}

} // namespace sondrel
