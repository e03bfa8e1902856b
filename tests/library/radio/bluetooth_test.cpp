#include "machine_fixture.h"

#include "radio/bluetooth_snapshot.h"

#include <map>

namespace {

using namespace testing;
using test::Lines;

constexpr const char* Whole = "1|2|Audio/Video;Phone;";

class BluetoothTest : public test::MachineTest {
protected:
    /// All fields, each through its export, in this order.
    static std::string Fields() {
        std::string fields = std::to_string(RF_BTIsUsed());
        fields += '|' + std::to_string(RF_BTConnectedNum());
        fields += '|' + RF_BTConnectedType();
        return fields;
    }

    /// The fields on a machine with these radios, each a list of device classes.
    std::string FieldsOf(const std::vector<std::vector<int>>& radios) {
        std::string text;
        for (const auto& devices : radios) {
            text += (text.empty() ? "" : ",") + std::string(R"({"devices": [)");
            for (const int& device : devices) {
                text += &device == &devices.front() ? "" : ",";
                text += R"({"class": )" + std::to_string(device) + "}";
            }
            text += "]}";
        }
        StartMachine(R"({"bluetooth": {"radios": [)" + text + "]}}");
        ForgetRecords();
        return Fields();
    }
};

TEST_F(BluetoothTest, ReadsTheConnectedDevicesOnceAndClosesInOrder) {
    EXPECT_EQ(Fields(), Whole);
    EXPECT_THAT(DebugLines(), ElementsAre("[RF] RF_BTIsUsed FLAG FALSE", "RF_ReadBT_Info start",
                                          "BluetoothFindFirstRadio start", "BluetoothGetRadioInfo start",
                                          "BluetoothFindNextDevice error", "RF_ReadBT_Info End"));
    EXPECT_THAT(
        Calls(),
        ElementsAre("BluetoothFindFirstRadio -> radios#1 radio=radio#2",
                    "BluetoothGetRadioInfo radio=radio#2 -> 0",
                    "BluetoothFindFirstDevice parameters={radio=radio#2 authenticated=false remembered=false "
                    "unknown=false connected=true inquiry=false timeout=0} -> search#3 class=0x240404",
                    StartsWith("BluetoothFindNextDevice search=search#3 -> true class="),
                    "BluetoothFindNextDevice search=search#3 -> false error=259",
                    "BluetoothFindNextRadio search=radios#1 -> false error=259", "CloseHandle handle=radio#2",
                    "BluetoothFindRadioClose search=radios#1", "BluetoothFindDeviceClose search=search#3"));
    StartMachine(R"({"bluetooth": {"supported": false}})");
    EXPECT_EQ(Fields(), Whole);
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(BluetoothTest, TheLastRadioDecidesWhetherItIsUsedTheLastWithDevicesWhatIsCounted) {
    EXPECT_EQ(FieldsOf({{}}), "0|-1000|init_string");
    EXPECT_EQ(FieldsOf({{0x000100}, {}}), "0|1|Computer;");
    EXPECT_EQ(FieldsOf({{0x000100, 0x000200}, {0x000500}}), "1|1|Peripheral;");
    EXPECT_EQ(FieldsOf({{}, {0x000100, 0x000200}}), "1|2|Computer;Phone;");
    EXPECT_EQ(FieldsOf({}), "-1000|-1000|init_string");
    EXPECT_EQ(sondrel::BluetoothSnapshot.valid, 1);
    EXPECT_THAT(DebugLines(), ElementsAre("[RF] RF_BTIsUsed FLAG FALSE", "RF_ReadBT_Info start",
                                          "BluetoothFindFirstRadio start", "BluetoothFindFirstRadio error",
                                          "RF_ReadBT_Info End"));
}

TEST_F(BluetoothTest, NamesEveryMajorClass) {
    const std::map<int, std::string> named{
        {1, "Computer;"},      {2, "Phone;"},      {3, "LAN/NetWortk Access point;"},
        {4, "Audio/Video;"},   {5, "Peripheral;"}, {6, "Imaging;"},
        {7, "Wearable;"},      {8, "Toy;"},        {9, "Health;"},
        {31, "Uncategorized;"}};
    std::vector<int> classes;
    std::string expected;
    for (int major = 0; major < 32; ++major) {
        classes.push_back(major << 8 | 0xFFE0FF); // the bits around it do not count
        expected += named.contains(major) ? named.at(major) : "Others;";
    }
    EXPECT_EQ(FieldsOf({classes}), "1|32|" + expected);
}

TEST_F(BluetoothTest, AFailedReadIsMadeAgainAndASearchForRadiosThatBreaksOffHasEnded) {
    const std::string whole = FieldsOf({{0x000100, 0x000200}, {0x000400}});
    EXPECT_EQ(whole, "1|1|Audio/Video;");
    std::string used;
    const auto read = [&used] {
        ForgetRecords();
        used = std::to_string(RF_BTIsUsed());
    };
    RunFailing(Operation::BluetoothFindNextDevice, 3, Failure::Refused, read);
    EXPECT_EQ(used + ' ' + Fields(), "2147483647 " + whole);
    RunFailing(Operation::BluetoothFindNextRadio, 1, Failure::Refused, read);
    EXPECT_EQ(used + ' ' + Fields(), "1 1|2|Computer;Phone;");
    StartMachine(R"({"bluetooth": {"supported": false}})");
    ForgetRecords();
    EXPECT_EQ(Fields(), "2147483647|2147483647|error_string");
    Lines expected;
    for (const char* name : {"RF_BTIsUsed", "RF_BTConnectedNum", "RF_BTConnectedType"}) {
        expected.insert(expected.end(), {"[RF] " + std::string(name) + " FLAG FALSE", "RF_ReadBT_Info start",
                                         "BluetoothFindFirstRadio start", "BluetoothFindFirstRadio error"});
    }
    EXPECT_EQ(DebugLines(), expected);
}

} // namespace
