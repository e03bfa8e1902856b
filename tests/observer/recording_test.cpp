// Recordings: what is written, what is read back, and how a replay answers.
#include "machine_fixture.h"

#include "observer/recording/json.h"
#include "observer/recording/recorder.h"
#include "observer/recording/replay.h"
#include "observer/recording/start.h"
#include "platform/wmi.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace {

using namespace testing;
using observer::Difference;
using observer::Recording;
using observer::Value;
using test::Lines;

std::string Json(const Value& value) {
    std::string line;
    AppendJson(line, value);
    return line;
}

TEST(RecordingJson, AValueIsReadAsItWasWritten) {
    const std::pair<Value, std::string> values[] = {
        {{}, "null"},
        {{true}, "true"},
        {{observer::Number{INT64_MIN}}, "-9223372036854775808"},
        {{observer::Number{0x80041003, true}}, R"({"$hex":"80041003"})"},
        {{0.35F}, R"({"$float":"0.35"})"},
        {{12.600000000000001}, R"({"$double":"12.600000000000001"})"},
        {{std::u16string(u"a\"\\\n\u007F\u00E9\U0001F600\uFFFD\0", 10)},
         "\"a\\\"\\\\\\u000a\\u007f\xC3\xA9\xF0\x9F\x98\x80\xEF\xBF\xBD\\u0000\""},
        {{std::u16string{0xD83D, u'x', 0xDE00}}, R"({"$utf16":"d83d0078de00"})"},
        {{observer::Bytes{std::byte{0xA0}, std::byte{7}}}, R"({"$bytes":"a007"})"},
        {{observer::Bytes{}}, R"({"$bytes":""})"},
        {{platform::IidWbemLocator}, R"({"$guid":"dc12a687-737f-11cf-884d-00aa004b2e24"})"},
        {{observer::HandleName{.kind = observer::HandleKind::File, .number = 3}},
         R"({"$handle":"file","n":3})"},
        {{observer::HandleName{.kind = observer::HandleKind::File, .openedOn = u"a\\b"}},
         R"({"$handle":"file","on":"a\\b"})"},
        {{observer::HandleName{.kind = observer::HandleKind::RegistryKey, .predefined = "HKLM"}},
         R"({"$handle":"key","is":"HKLM"})"},
        {{observer::List{{true}, {}}}, "[true,null]"},
        {{observer::Structure{{"a", {true}}, {"b", {observer::Structure{}}}}}, R"({"a":true,"b":{}})"},
    };
    for (const auto& [value, text] : values) {
        EXPECT_EQ(Json(value), text);
        EXPECT_EQ(observer::ParsedJson(text), value) << text;
    }
}

constexpr const char* Header = "{\"vesk_recording\":1}\n";

std::string ProblemOf(const std::string& text) {
    try {
        const Recording recording(text);
        return recording.CutLine() != 0 ? "cut" : "none";
    } catch (const observer::RecordingError& problem) {
        return problem.what();
    }
}

TEST(Recording, AnErrorNamesItsLine) {
    const std::pair<std::string, std::string> texts[] = {
        {"", "line 1: this is no recording: it does not begin with a header"},
        {"[]\n", "line 1: this is no recording: it does not begin with a header"},
        {"{\"vesk_recording\":2}\n", "line 1: the recording has another format than version 1"},
        {Header, "none"},
        {std::string(Header) + "{\"export\":1", "cut"},
        {std::string(Header) + "{\"export\":1\n", "line 2: the line ends too early, at character 12"},
        {std::string(Header) + "{\"x\":1}\n", "line 2: there are no lines of the kind \"x\""},
        {std::string(Header) + "{\"export\":1,\"name\":\"A\",\"arguments\":{}}\n{\"return\":2}\n",
         "line 3: it belongs to an export call that does not begin before it"},
        {std::string(Header) + "{\"export\":1,\"name\":7,\"arguments\":{}}\n",
         "line 2: \"name\" is missing or of another type"},
        {std::string(Header) + "{\"end\":1}\n", "line 2: it ends a call that does not begin before it"},
        {std::string(Header) + "{\"call\":1,\"of\":0,\"operation\":\"Format\",\"in\":{}}\n",
         "line 2: there is no operation \"Format\""},
        {std::string(Header) + "{\"a\":{\"$bytes\":\"0\"}}\n",
         "line 2: this is no value of a recording, at character 6"},
        {std::string(Header) + "{\"a\":{\"$handle\":\"spoon\"}}\n",
         "line 2: this is no value of a recording, at character 6"},
        {std::string(Header) + std::string(100, '[') + "\n",
         "line 2: values are nested too deeply, at character 17"},
    };
    for (const auto& [text, problem] : texts) {
        EXPECT_EQ(ProblemOf(text), problem) << text;
    }
}

/// Records and replays within this process.
class RecordingTest : public test::MachineTest {
protected:
    RecordingTest() { std::filesystem::remove(m_file); }

    ~RecordingTest() override {
        observer::SetReplay(nullptr);
        std::filesystem::remove(m_file);
    }

    /// What the recording of an action is.
    std::string RecordingOf(const std::function<void()>& action) {
        observer::Recorder recorder;
        std::string problem;
        EXPECT_TRUE(recorder.Create(m_file, problem)) << problem;
        observer::AddSink(recorder);
        action();
        observer::RemoveSink(recorder);
        std::stringstream text;
        text << std::ifstream(m_file).rdbuf();
        std::filesystem::remove(m_file);
        return text.str();
    }

    /// What differs when a recording answers an action.
    Lines DifferencesOf(const std::string& recording, const std::function<void()>& action) {
        Lines lines;
        observer::SetReplay(std::make_shared<observer::Replay>(
            recording, 0, [&](const Difference& difference) { lines.push_back(Printed(difference)); }));
        action();
        observer::SetReplay(nullptr);
        return lines;
    }

    const std::string m_file = m_store + ".rec";
};

std::string Changed(std::string text, std::string_view old, std::string_view replacement) {
    const std::size_t place = text.find(old);
    EXPECT_NE(place, std::string::npos) << old;
    return place == std::string::npos ? text : text.replace(place, old.size(), replacement);
}

/// The text without the lines that contain this.
std::string Without(const std::string& text, std::string_view part) {
    std::istringstream lines(text);
    std::string left;
    for (std::string line; std::getline(lines, line);) {
        left += line.find(part) == std::string::npos ? line + '\n' : "";
    }
    return left;
}

TEST_F(RecordingTest, TheFileIsPrivateAndNeverReplaced) {
    observer::Recorder recorder;
    observer::Recorder second;
    std::string problem;
    ASSERT_TRUE(recorder.Create(m_file, problem));
    struct stat facts {};
    ASSERT_EQ(stat(m_file.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0600u);
    EXPECT_FALSE(second.Create(m_file, problem));
    EXPECT_EQ(problem, "File exists");
}

TEST_F(RecordingTest, ARecordingAnswersInPlaceOfTheMachine) {
    std::string serial;
    const auto read = [&] {
        serial = Text(WMIGetSN);
    };
    const std::string recording = RecordingOf(read);
    const std::string recorded = serial;
    StartMachine(R"({"wmi": null})");
    EXPECT_THAT(DifferencesOf(recording, read), IsEmpty());
    EXPECT_EQ(serial, recorded);
    EXPECT_THAT(DifferencesOf(Changed(recording, "VSK4K0C7Q213", "OTHER"), read),
                ElementsAre(AllOf(StartsWith("WMIGetSN: line "),
                                  EndsWith(": out is \"OTHER\"; recorded is \"VSK4K0C7Q213\""))));
    EXPECT_EQ(serial, "OTHER");
}

TEST_F(RecordingTest, AnExportWhoseCallsDifferIsRefusedTheRest) {
    std::string serial;
    const auto read = [&] {
        serial = Text(WMIGetSN);
    };
    const std::string recording = RecordingOf(read);
    const Lines differences = DifferencesOf(Changed(recording, "Win32_Bios", "Win32_Boos"), read);
    ASSERT_THAT(differences, SizeIs(1));
    EXPECT_THAT(differences.front(), HasSubstr("asked for ExecQuery services=IWbemServices#"));
    EXPECT_THAT(differences.front(), HasSubstr("; recorded is ExecQuery services=IWbemServices#"));
    const std::string refused = serial;
    RunFailing(Operation::ExecQuery, 1, Failure::Refused, read);
    EXPECT_EQ(refused, serial) << "the failure value of the export";
    EXPECT_THAT(DifferencesOf(recording, [] { Text(WMIGetBiosVersion); }),
                ElementsAre("WMIGetBiosVersion: the recording has no call of it with these arguments"));
    EXPECT_THAT(ProblemOf(Without(recording, "\"Release\"")), HasSubstr("ends a call that does not begin"));
}

TEST_F(RecordingTest, WhatAnEarlierCallCachedIsNamed) {
    const std::string recording = RecordingOf([] {
        Text(RF_WiFiCardName);
        RF_WiFiRssi();
    });
    ForgetRecords();
    EXPECT_THAT(DifferencesOf(recording, [] { RF_WiFiRssi(); }),
                ElementsAre(AllOf(HasSubstr("asked for WlanOpenHandle"),
                                  HasSubstr("RF_WiFiCardName had asked that before it"))));
}

TEST_F(RecordingTest, WhatTheRecordingReturnsIsLimitedByTheCallersBuffers) {
    std::array<char, 44> name{};
    const auto read = [&] {
        InitializeSondrel();
        Battery_Read_ManufactureName(name.data());
        ShutdownSondrel();
    };
    const std::string recording = RecordingOf(read);
    EXPECT_THAT(DifferencesOf(recording, read), IsEmpty());
    const std::pair<const char*, const char*> edits[] = {
        {"\"returned\":", "\"returned\":9"},
        {"\"out\":{\"out\":{\"$bytes\":\"",
         "\"out\":{\"out\":{\"$bytes\":\"00112233445566778899aabbccddeeff00112233445566778899"},
        {"\"out\":{\"out\":{\"$bytes\":\"", "\"out\":{\"out\":{\"$utf16\":\""},
    };
    for (const auto& [old, edited] : edits) {
        EXPECT_THAT(DifferencesOf(Changed(recording, old, edited), read),
                    Contains(HasSubstr("is no answer to it, or too large")))
            << edited;
    }
}

/// A buffer is the host's: what was not written is as before, and is recorded as nothing.
TEST_F(RecordingTest, AnUnwrittenBufferIsRecordedAsNothing) {
    std::array<std::uint32_t, 4> registers{1, 2, 3, 4};
    const std::string recording = RecordingOf([&] {
        CPU_ReadCpuId(0, &registers[0], &registers[1], &registers[2], &registers[3]); // without a session
    });
    EXPECT_THAT(recording, HasSubstr(R"("buffers":{"eax":null,"ebx":null,"ecx":null,"edx":null})"));
    EXPECT_THAT(registers, ElementsAre(1, 2, 3, 4));
}

} // namespace
