// The Windows tests.
#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>

int main(int count, char** arguments) {
    if (std::getenv("VESK_TEST_WINE") == nullptr) {
        std::fputs(
            "These tests change the registry: run them with run_under_wine.sh, which gives them a Windows of "
            "their own.\n",
            stderr);
        return 1;
    }
    ::testing::InitGoogleMock(&count, arguments);
    return RUN_ALL_TESTS();
}
