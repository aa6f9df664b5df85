#include "Commands.h"

#include "FileCommands.h"
#include "LintCommand.h"
#include "SceneCommands.h"

#include <cstdio>
#include <map>

namespace stagewright::cli {

namespace {

void printUsage()
{
    std::fputs("usage:\n"
               "  stagewright-cli check FILE [--kind level|objects|characters|obstacles|app]\n"
               "      decode a project or catalogue file and print a summary\n"
               "  stagewright-cli convert FILE OUT [--binary|--xml] [--kind ...]\n"
               "      re-encode a project or catalogue file (XML by default)\n"
               "  stagewright-cli roundtrip WORKSPACE PROJECT OUT\n"
               "      load every level into the canvas scene, write it back, save to OUT\n"
               "  stagewright-cli render WORKSPACE PROJECT --level N --out FILE.png [--width W]\n"
               "      draw level N (from 1) as the canvas shows it\n"
               "  stagewright-cli lint WORKSPACE PROJECT [--json]\n"
               "      report missing catalogue entries, images and sounds, names that leave their\n"
               "      folder, unreadable value texts, levels without ground or level end;\n"
               "      exit 0 clean, 1 findings, 2 unreadable files\n",
               stderr);
}

} // namespace

int run(const std::vector<std::string>& args)
{
    if (args.empty() || args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        printUsage();
        return args.empty() ? 1 : 0;
    }
    const std::string& verb = args[0];
    const std::vector<std::string> rest(args.begin() + 1, args.end());
    if (verb == "check")
        return checkCommand(rest);
    if (verb == "convert")
        return convertCommand(rest);
    if (verb == "roundtrip")
        return roundtripCommand(rest);
    if (verb == "render")
        return renderCommand(rest);
    if (verb == "lint")
        return lintCommand(rest);
    std::fprintf(stderr, "stagewright-cli: unknown command '%s'\n", verb.c_str());
    printUsage();
    return 1;
}

} // namespace stagewright::cli
