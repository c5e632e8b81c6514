// Entry of the unit tests: COM and the common controls stay ready for all of them, as they do in the program.
#include <gtest/gtest.h>

#include "win32/process.h"

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    const win32::UserInterface userInterface;
    return RUN_ALL_TESTS();
}
