// The simulated WMI service: queries, values and methods.
#include "wmi_fixture.h"

#include "platform/simulated/profile.h"
#include "platform/simulated/profile_reader.h"
#include "platform/simulated/wide_text.h"
#include "platform/simulated/wmi_repository.h"
#include "platform/wmi.h"
#include "wmi/wmi_query.h"

#include <optional>

namespace {

using machine::WmiArguments;
using machine::WmiMethodAnswer;
using nlohmann::json;
using platform::HResult;
using platform::WmiValue;
using ::testing::ElementsAre;

/// Adds two numbers, under the name of a class of the test.
class Adder final : public machine::WmiMethods {
public:
    [[nodiscard]] std::optional<std::vector<std::u16string>>
    Inputs(std::u16string_view method) const override {
        if (method == u"Add") {
            return {{u"Left", u"Right"}};
        }
        return method == u"Reset" ? std::optional(std::vector<std::u16string>()) : std::nullopt;
    }

    WmiMethodAnswer Execute(std::u16string_view instance, std::u16string_view,
                            const WmiArguments& in) override {
        lastInstance = instance;
        if (!in.contains(u"Left")) {
            return {};
        }
        return {0, {{{u"Sum", {std::int64_t{in.at(u"Left") + in.at(u"Right")}}}}}};
    }

    std::u16string lastInstance;
};

class WmiServiceTest : public test::WmiTest {
protected:
    WmiServiceTest() { platform::CoInitializeEx(platform::apartment::Multithreaded); }

    ~WmiServiceTest() override { platform::CoUninitialize(); }

    void Connect(const json& rows) {
        m_services.Reset();
        StartWith("ROOT\\Test", "Thing", rows);
        platform::OwnedLocator locator;
        ASSERT_EQ(sondrel::CreateWmiLocator(locator.Receive()), 0);
        ASSERT_EQ(platform::ConnectServer(locator.Get(), u"\\\\.\\root\\TEST", m_services.Receive()), 0);
    }

    void TearDown() override {
        m_services.Reset();
        WmiTest::TearDown();
    }

    /// The property "Id" of every row that a query gives; a failure's code in front of its absence.
    std::vector<std::int32_t> Ids(const std::u16string& where, HResult* status = nullptr) {
        platform::OwnedEnumerator rows;
        const std::u16string query = u"SELECT * from thing " + where;
        EXPECT_EQ(sondrel::ExecWmiQuery(m_services.Get(), query, rows.Receive()), 0);
        std::vector<std::int32_t> ids;
        for (;;) {
            platform::OwnedObject row;
            std::uint32_t returned = 0;
            const HResult next =
                platform::Next(rows.Get(), platform::wbem::Infinite, row.Receive(), returned);
            if (returned == 0) {
                if (status != nullptr) {
                    *status = next;
                }
                return ids;
            }
            ids.push_back(std::get<std::int32_t>(Value(row.Get(), u"id")));
        }
    }

    static WmiValue Value(platform::WbemObject object, const char16_t* name) {
        WmiValue value;
        EXPECT_EQ(platform::Get(object, name, value), 0);
        return value;
    }

    platform::OwnedServices m_services;
};

TEST_F(WmiServiceTest, ConditionsCompareByTheValuesType) {
    Connect({{{"Id", 1}, {"Kind", "Fixed"}, {"Flag", true}, {"Code", 2147483648}, {"Big", "7"}},
             {{"Id", 2}, {"Kind", "say \"no\" \\ it's"}, {"Flag", false}, {"Code", 10}, {"Big", 99999999999}},
             {{"Id", 3}, {"Kind", nullptr}, {"Flag", nullptr}, {"Code", -1}, {"Big", nullptr}}});
    EXPECT_THAT(Ids(u""), ElementsAre(1, 2, 3));
    EXPECT_THAT(Ids(u"where KIND='fixed'"), ElementsAre(1));
    EXPECT_THAT(Ids(u"WHERE kind = \"say \\\"no\\\" \\\\ it's\""), ElementsAre(2));
    EXPECT_THAT(Ids(u"where kind != 'fixed'"), ElementsAre(2));
    EXPECT_THAT(Ids(u"where flag='true'"), ElementsAre(1));
    EXPECT_THAT(Ids(u"where flag=false"), ElementsAre(2));
    EXPECT_THAT(Ids(u"where Code != 2147483648"), ElementsAre(2, 3));
    EXPECT_THAT(Ids(u"where Code = -1"), ElementsAre(3));
    EXPECT_THAT(Ids(u"where Code='10'"), ElementsAre(2));
    EXPECT_THAT(Ids(u"where big=99999999999 and id<>1"), ElementsAre(2));
    EXPECT_THAT(Ids(u"where big=7 AND flag = true and kind='FIXED'"), ElementsAre(1));
}

TEST_F(WmiServiceTest, TroubleWithAQueryComesWithTheFirstRow) {
    Connect({{{"Id", 1}}});
    const auto trouble = [&](const std::u16string& where) {
        HResult status = 0;
        EXPECT_THAT(Ids(where, &status), ElementsAre());
        return static_cast<std::uint32_t>(status);
    };
    for (const char16_t* wrong : {u"where", u"where id", u"where id=", u"where id=1 and", u"where id='x",
                                  u"or", u"where id=1 or id=2", u"where missing=1", u"where 1=1"}) {
        EXPECT_EQ(trouble(wrong), 0x80041017u) << machine::Utf8FromWide(wrong);
    }
    platform::OwnedEnumerator rows;
    ASSERT_EQ(platform::ExecQuery(m_services.Get(), u"WQL", u"select * from Other", 48, rows.Receive()), 0);
    platform::OwnedObject row;
    std::uint32_t returned = 1;
    EXPECT_EQ(platform::Next(rows.Get(), 0, row.Receive(), returned), platform::wbem::InvalidClass);
    EXPECT_EQ(returned, 0u);
    EXPECT_EQ(platform::ExecQuery(m_services.Get(), u"WQL", u"select * from Other", 0, rows.Receive()),
              platform::wbem::InvalidClass);
    EXPECT_EQ(platform::ExecQuery(m_services.Get(), u"SQL", u"select * from Thing", 48, rows.Receive()),
              platform::wbem::InvalidQueryType);
}

TEST_F(WmiServiceTest, MethodsAreAnsweredByAModel) {
    Connect({{{"InstanceName", "A\\0"}}});
    Adder adder;
    TheMachine().wmi.AnswerMethods(u"root\\test", u"THING", adder);
    platform::OwnedObject definition;
    platform::OwnedObject signature;
    platform::OwnedObject in;
    platform::OwnedObject out;
    ASSERT_EQ(platform::GetObject(m_services.Get(), u"Thing", definition.Receive()), 0);
    EXPECT_EQ(platform::GetObject(m_services.Get(), u"Other", out.Receive()), platform::wbem::NotFound);
    EXPECT_EQ(platform::GetMethod(definition.Get(), u"Divide", signature.Receive()),
              platform::wbem::NotFound);
    EXPECT_EQ(platform::GetMethod(definition.Get(), u"Reset", signature.Receive()), 0);
    EXPECT_FALSE(signature);
    ASSERT_EQ(platform::GetMethod(definition.Get(), u"Add", signature.Receive()), 0);
    ASSERT_EQ(platform::SpawnInstance(signature.Get(), in.Receive()), 0);
    EXPECT_EQ(platform::Put(in.Get(), u"Left", u"4294967295", platform::cim_type::UInt32), 0);
    EXPECT_EQ(platform::Put(in.Get(), u"right", u"one", platform::cim_type::UInt32),
              platform::wbem::TypeMismatch);
    EXPECT_EQ(platform::Put(in.Get(), u"right", u"1", platform::cim_type::UInt32), 0);
    EXPECT_EQ(platform::Put(in.Get(), u"Third", u"1", platform::cim_type::UInt32), platform::wbem::NotFound);
    const char16_t* path = u"\\\\.\\ROOT\\Test:Thing.InstanceName=\"A\\\\0\"";
    EXPECT_EQ(platform::ExecMethod(m_services.Get(), u"nowhere", u"Add", in.Get(), out.Receive()),
              platform::wbem::NotFound);
    EXPECT_EQ(platform::ExecMethod(m_services.Get(), path, u"Divide", in.Get(), out.Receive()),
              platform::wbem::InvalidMethod);
    ASSERT_EQ(platform::ExecMethod(m_services.Get(), path, u"Add", in.Get(), out.Receive()), 0);
    EXPECT_EQ(adder.lastInstance, path);
    EXPECT_EQ(Value(out.Get(), u"SUM"), WmiValue(0));
    ASSERT_EQ(
        platform::ExecMethod(m_services.Get(), path, u"Reset", platform::WbemObject::None, out.Receive()), 0);
    EXPECT_FALSE(out);
}

TEST(WmiProfile, AMistakeIsToldWithItsPlace) {
    const auto mistake = [](const std::string& value) -> std::string {
        try {
            machine::ParseProfile(
                R"({"name": "x", "ec": {"revision": "KL", "chip_name": "KC01"}, "wmi": {"N": {"C": )" +
                    value + "}}}",
                "x.json");
            return "no mistake found";
        } catch (const machine::ProfileError& problem) {
            return problem.what();
        }
    };
    EXPECT_THAT(mistake(R"([{"P": 1.5}])"),
                ::testing::StartsWith("x.json: /wmi/N/C/0/P: expected null, true"));
    EXPECT_THAT(mistake(R"([{"P": [1, "a"]}])"),
                ::testing::StartsWith("x.json: /wmi/N/C/0/P: expected null, true"));
    EXPECT_THAT(mistake(R"([{"P": {"bytes": "0"}}])"),
                ::testing::StartsWith("x.json: /wmi/N/C/0/P/bytes: expected"));
    EXPECT_THAT(mistake(R"([5])"), ::testing::StartsWith("x.json: /wmi/N/C/0: expected an object"));
}

} // namespace
