// The Windows tests, and beside them one call of an export in a process of its own:
//
//     windows_tests --call EC_ReadEcFwRev      the exit code is what the export gave
#include "child_process.h"
#include "library.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

int main(int count, char** arguments) {
    if (std::getenv("VESK_TEST_STAND") == nullptr) {
        std::fputs("These tests install a driver and change the registry: run them with run_under_wine.sh, "
                   "which gives them a Windows of their own.\n",
                   stderr);
        return 1;
    }
    if (count == 3 && std::string_view(arguments[1]) == test::CallOption) {
        const test::Library library;
        return static_cast<int>(library.Export<std::uint32_t()>(arguments[2])());
    }
    ::testing::InitGoogleMock(&count, arguments);
    return RUN_ALL_TESTS();
}
