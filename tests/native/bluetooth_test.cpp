#include "machine_fixture.h"

#include "radio/bluetooth_snapshot.h"
#include "vesk_sondrel.h"

#include <map>
#include <thread>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::int32_t NoBluetooth = 0x7FFFFFFF;

class BluetoothTest : public test::MachineTest {
protected:
    BluetoothTest() { Forget(); }

    /// The record as at the library's load.
    static void Forget() { sondrel::BluetoothSnapshot = {}; }

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
            for (std::size_t index = 0; index < devices.size(); ++index) {
                text += (index == 0 ? "" : ",") + std::string(R"({"class": )") +
                        std::to_string(devices[index]) + "}";
            }
            text += "]}";
        }
        StartMachine(R"({"bluetooth": {"radios": [)" + text + "]}}");
        Forget();
        return Fields();
    }

    /// The calls, those of the debug lines left out.
    [[nodiscard]] std::vector<std::string> RadioCalls() const {
        std::vector<std::string> calls;
        for (const std::string& call : Calls()) {
            if (!call.starts_with("Event")) {
                calls.push_back(call.substr(0, call.find(" =")));
            }
        }
        return calls;
    }
};

constexpr const char* ReadFailed = "2147483647|2147483647|error_string";

TEST_F(BluetoothTest, ReadsTheConnectedDevicesOnceAndClosesInOrder) {
    EXPECT_EQ(Fields(), "1|2|Audio/Video;Phone;");
    EXPECT_THAT(DebugLines(), ElementsAre("[RF] RF_BTIsUsed FLAG FALSE", "RF_ReadBT_Info start",
                                          "BluetoothFindFirstRadio start", "BluetoothGetRadioInfo start",
                                          "BluetoothFindNextDevice error", "RF_ReadBT_Info End"));
    EXPECT_THAT(
        RadioCalls(),
        ElementsAre("BluetoothFindFirstRadio", "BluetoothGetRadioInfo",
                    "BluetoothFindFirstDevice authenticated 0 remembered 0 unknown 0 connected 1 inquiry 0",
                    "BluetoothFindNextDevice", "BluetoothFindNextDevice", "BluetoothFindNextRadio",
                    "CloseHandle", "BluetoothFindRadioClose", "BluetoothFindDeviceClose"));
    StartMachine(R"({"bluetooth": {"supported": false}})");
    EXPECT_EQ(Fields(), "1|2|Audio/Video;Phone;");
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(BluetoothTest, TheLastRadioDecidesWhetherItIsUsedTheLastWithDevicesWhatIsCounted) {
    EXPECT_EQ(FieldsOf({}), "-1000|-1000|init_string");
    EXPECT_EQ(sondrel::BluetoothSnapshot.valid, 1);
    EXPECT_EQ(FieldsOf({{}}), "0|-1000|init_string");
    EXPECT_EQ(FieldsOf({{0x000100}, {}}), "0|1|Computer;");
    EXPECT_EQ(FieldsOf({{0x000100, 0x000200}, {0x000500}}), "1|1|Peripheral;");
    EXPECT_EQ(FieldsOf({{}, {0x000100, 0x000200}}), "1|2|Computer;Phone;");
    EXPECT_THAT(CallsOf("CloseHandle"), SizeIs(2));
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

TEST_F(BluetoothTest, AMachineWithoutRadioIsReadAndOneWithoutTheLibraryFails) {
    StartMachine(R"({"bluetooth": {"radios": []}})");
    EXPECT_EQ(RF_BTConnectedType(), "init_string");
    EXPECT_THAT(DebugLines(), ElementsAre("[RF] RF_BTConnectedType FLAG FALSE", "RF_ReadBT_Info start",
                                          "BluetoothFindFirstRadio start", "BluetoothFindFirstRadio error",
                                          "RF_ReadBT_Info End"));
    StartMachine(R"({"bluetooth": {"supported": false}})");
    Forget();
    EXPECT_EQ(RF_BTConnectedNum(), NoBluetooth);
    EXPECT_THAT(DebugLines(), ElementsAre("[RF] RF_BTConnectedNum FLAG FALSE", "RF_ReadBT_Info start",
                                          "BluetoothFindFirstRadio start", "BluetoothFindFirstRadio error"));
    EXPECT_EQ(Fields(), ReadFailed);
    EXPECT_THAT(DebugLines(), SizeIs(12)); // each of the three has tried again
}

TEST_F(BluetoothTest, EveryCallThatFailsIsHandledAndLeavesNothingOpen) {
    const std::string whole = FieldsOf({{0x000100, 0x000200}, {0x000400}});
    ASSERT_EQ(whole, "1|1|Audio/Video;");
    std::vector<std::string> outcomes;
    TheMachine().gate.KeepHistory(true);
    for (std::uint64_t nth = 1;; ++nth) {
        Forget();
        TheMachine().gate.Restart({.nth = nth});
        const std::int32_t used = RF_BTIsUsed();
        if (nth > TheMachine().gate.CallCount()) {
            break;
        }
        EXPECT_THAT(TheMachine().gate.OpenThings(), IsEmpty());
        const std::string name(machine::RowOf(TheMachine().gate.History()[nth - 1]).name);
        const bool injected = TheMachine().gate.Injected() != 0;
        TheMachine().gate.Restart();
        if (injected && !name.starts_with("Event")) {
            outcomes.push_back(name + (used == NoBluetooth ? " failed" : " " + Fields()));
        }
        EXPECT_TRUE(used != NoBluetooth || Fields() == whole) << name; // the next export reads again
    }
    EXPECT_THAT(outcomes,
                ElementsAre("BluetoothFindFirstRadio failed", "BluetoothGetRadioInfo failed",
                            "BluetoothFindFirstDevice failed", "BluetoothFindNextDevice failed",
                            "BluetoothFindNextDevice failed",
                            // A search for radios that breaks off counts as its end.
                            "BluetoothFindNextRadio 1|2|Computer;Phone;", "BluetoothGetRadioInfo failed",
                            "BluetoothFindFirstDevice failed", "BluetoothFindNextDevice failed",
                            "BluetoothFindNextRadio 1|1|Audio/Video;"));
}

TEST_F(BluetoothTest, ThreadsThatComeAtOnceShareOneRead) {
    std::vector<std::string> answers(8);
    std::vector<std::thread> threads;
    threads.reserve(answers.size());
    for (std::string& answer : answers) {
        threads.emplace_back([&answer] { answer = Fields(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(answers, ::testing::Each("1|2|Audio/Video;Phone;"));
    EXPECT_THAT(CallsOf("BluetoothFindFirstRadio"), SizeIs(1));
}

} // namespace
