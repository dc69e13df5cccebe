// Linked into every test: outside the private instrument some would change the machine itself, and
// the others fail for reasons that don't tell.

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include <errno.h>

namespace {
bool isInside()
{
    const std::string homes = "instrument /home ";
    std::ifstream mounts("/proc/self/mounts");
    std::string line;
    while (std::getline(mounts, line)) {
        if (line.compare(0, homes.size(), homes) == 0)
            return true;
    }
    return false;
}

const bool inside = [] {
    if (!isInside()) {
        const std::string name = program_invocation_short_name;
        std::cerr << name << " needs a private instrument around it. Start it with\n"
                  << "  ctest --test-dir <build folder> --output-on-failure -R '^" << name
                  << "$'\n";
        std::exit(EXIT_FAILURE);
    }
    return true;
}();
} // namespace
