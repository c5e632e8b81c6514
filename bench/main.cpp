// Runs the benchmark and prints its table. The exit status tells whether what was read, shown and written was right; a
// time that misses what is wanted of it is marked in the table only.
#define CATCH_CONFIG_RUNNER
#include <catch2/catch.hpp>

#include "figures.h"
#include "win32/process.h"

int main(int argc, char* argv[]) {
    const win32::UserInterface userInterface;
    const int failed = Catch::Session().run(argc, argv);
    bench::Table::Default().Print();
    return failed == 0 ? 0 : 1;
}
