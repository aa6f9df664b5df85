// stagewright-cli: headless tools over the workspace files, for build
// pipelines and for checking files by hand.
#include "Commands.h"

#include <tessaro/model/LargePages.h>

#include <cstdio>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    // Reading a large project file is mostly first touches of fresh memory.
    tessaro::preferLargePagesForHeap();
    std::vector<std::string> args(argv + 1, argv + argc);
    return stagewright::cli::run(args);
}
