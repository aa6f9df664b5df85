// stagewright-cli: headless tools over the workspace files, for build
// pipelines and for checking files by hand.
#include "Commands.h"

#include <cstdio>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    return stagewright::cli::run(args);
}
