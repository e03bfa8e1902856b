// A settings file under writers and a reader at the same time, and with writers that are killed: each reader gets
// a number that one of them wrote.
#include "host.h"
#include "numbers.h"

#include "firmware/settings_file.h"
#include "platform/time.h"

#include <charconv>
#include <chrono>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <span>

namespace {

namespace fs = std::filesystem;
using namespace torture;
using Time = std::chrono::steady_clock;

constexpr std::int32_t Nothing = -2; // no writer's number
constexpr std::chrono::seconds Patience{30};

struct Settings {
    unsigned writers = 2;
    unsigned kills = 0;
    unsigned seconds = 3;
};

fs::path DirectoryOf(const std::string& number) {
    return fs::temp_directory_path() / ("vesk-torture-" + number);
}

/// The file, and what was read from it.
class File {
public:
    explicit File(const std::string& number, unsigned writers)
        : m_directory(DirectoryOf(number)), m_writers(writers) {
        fs::remove_all(m_directory);
        fs::create_directories(m_directory);
        m_path = Prepare(m_directory);
    }

    File(const File&) = delete;
    File& operator=(const File&) = delete;

    ~File() {
        std::error_code ignored;
        fs::remove_all(m_directory, ignored);
    }

    /// Nothing while there is no number.
    std::int32_t Read() {
        ++m_reads;
        const std::int32_t number = sondrel::ReadSetting(sondrel::OpenSetting(m_path), Nothing);
        const auto writer = WriterOf(number, m_writers);
        if (writer) {
            m_numbers.insert(number);
        } else if (number != Nothing || !m_numbers.empty()) {
            ++m_foreign;
            std::cout << "read " << number << '\n';
        }
        return number;
    }

    /// Reads until a number comes that is not this one.
    bool WaitForOther(std::int32_t before) {
        for (const auto start = Time::now(); Time::now() - start < Patience;) {
            if (const std::int32_t now = Read(); now != before && now != Nothing) {
                return true;
            }
        }
        std::cout << "nothing was written\n";
        return false;
    }

    /// Whether the last write left the number, its line end, and no second file.
    bool IsCleanAfter(std::int32_t number) {
        sondrel::WriteSetting(m_path, number);
        const fs::path file = FileOnDisk(m_directory);
        std::ifstream stream(file, std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(stream), {});
        const bool clean = text == std::to_string(number) + std::string(platform::TextLineEnd()) &&
                           std::distance(fs::directory_iterator(file.parent_path()), {}) == 1;
        std::cout << (clean ? "" : "the file was left as \"" + text + "\"\n");
        return clean;
    }

    bool Report(std::string_view what) const {
        std::cout << what << ": " << m_reads << " reads, " << m_numbers.size() << " different numbers, "
                  << m_foreign << " that no writer wrote\n";
        return m_foreign == 0;
    }

    [[nodiscard]] std::size_t DifferentNumbers() const { return m_numbers.size(); }

private:
    fs::path m_directory;
    unsigned m_writers;
    std::u16string m_path;
    std::uint64_t m_reads = 0;
    std::uint64_t m_foreign = 0;
    std::set<std::int32_t> m_numbers;
};

[[noreturn]] void Write(const std::string& number, unsigned writer) {
    const std::u16string path = Prepare(DirectoryOf(number));
    std::mt19937 random(ProcessNumber());
    while (true) {
        sondrel::WriteSetting(path, NumberOf(writer, static_cast<unsigned>(random() % Forms)));
    }
}

std::unique_ptr<Child> NewWriter(const std::string& number, unsigned writer) {
    return std::make_unique<Child>(std::vector<std::string>{"--write", number, std::to_string(writer)});
}

/// Writers at the same time, and this process reads.
bool Race(const Settings& settings) {
    const std::string number = std::to_string(ProcessNumber());
    File file(number, settings.writers);
    std::vector<std::unique_ptr<Child>> writers;
    for (unsigned writer = 0; writer < settings.writers; ++writer) {
        writers.push_back(NewWriter(number, writer));
    }
    bool fine = file.WaitForOther(Nothing);
    // One of them alone has no more forms than this. A busy computer may need longer to show both.
    const std::size_t enough = settings.writers < 2 ? 1 : Forms + 1;
    for (const auto start = Time::now();
         Time::now() - start < std::chrono::seconds(settings.seconds) ||
         (fine && file.DifferentNumbers() < enough && Time::now() - start < Patience);) {
        file.Read();
    }
    writers.clear();
    fine = file.Report(std::to_string(settings.writers) + " writers") && fine;
    const bool all = file.DifferentNumbers() >= enough;
    std::cout << (all ? "" : "too few numbers to say that several wrote\n");
    return file.IsCleanAfter(NumberOf(0, 1)) && fine && all;
}

/// One writer after the other is killed somewhere in its work.
bool Kill(const Settings& settings) {
    const std::string number = std::to_string(ProcessNumber());
    File file(number, 2);
    std::mt19937 random(1);
    bool fine = true;
    for (unsigned kill = 0; kill < settings.kills && fine; ++kill) {
        const std::int32_t before = file.Read();
        {
            const auto writer = NewWriter(number, kill % 2);
            fine = file.WaitForOther(before);
            const auto wait = std::chrono::microseconds(random() % 20000);
            for (const auto start = Time::now(); Time::now() - start < wait;) {
            }
        }
        file.Read();
    }
    fine = file.Report(std::to_string(settings.kills) + " kills") && fine;
    return file.IsCleanAfter(NumberOf(0, 1)) && fine;
}

/// False for arguments that this program does not have.
bool Understood(std::span<char* const> arguments, Settings& settings) {
    if (arguments.size() % 2 != 0) {
        return false;
    }
    for (std::size_t place = 0; place < arguments.size(); place += 2) {
        const std::string_view name = arguments[place];
        const std::string_view text = arguments[place + 1];
        unsigned* const value = name == "--writers"   ? &settings.writers
                                : name == "--kills"   ? &settings.kills
                                : name == "--seconds" ? &settings.seconds
                                                      : nullptr;
        if (value == nullptr || std::from_chars(text.data(), text.data() + text.size(), *value).ptr !=
                                    text.data() + text.size()) {
            return false;
        }
    }
    return settings.writers <= MaxWriters;
}

} // namespace

int main(int count, char** values) {
    const std::span arguments(values + 1, static_cast<std::size_t>(count - 1));
    try {
        if (arguments.size() == 3 && std::string_view(arguments[0]) == "--write") {
            Write(arguments[1], static_cast<unsigned>(std::stoul(arguments[2])));
        }
        Settings settings;
        if (!Understood(arguments, settings)) {
            std::cerr << "usage: settings_torture [--writers N] [--seconds N] [--kills N]\n";
            return 2;
        }
        const bool raced = settings.kills != 0 || Race(settings);
        return raced && (settings.kills == 0 || Kill(settings)) ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "settings_torture: " << problem.what() << '\n';
        return 2;
    }
}
