// Runs the tests inside an apartment, watched by the memory spy.
#include "tests/com/memory_spy.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    CoInitialize(nullptr);
    vantro::test::MemorySpy::install();
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
