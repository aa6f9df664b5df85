// Throughput and peak memory of reading and writing a project file:
//   bench-model-codec FILE [--repeat N]
// Prints one line per figure; bench/model/run.sh puts them beside Python's
// plistlib on the same file.
#include <tessaro/model/LevelFiles.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <sys/stat.h>

namespace {

long statusKilobytes(const char* field)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    const std::string prefix = std::string(field) + ":";
    while (std::getline(status, line))
        if (line.rfind(prefix, 0) == 0)
            return std::atol(line.c_str() + prefix.size());
    return 0;
}

// Starts a new peak: the kernel resets the high-water mark of the resident set.
void resetPeakMemory()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: bench-model-codec FILE [--repeat N]\n", stderr);
        return 1;
    }
    const std::string path = argv[1];
    const int repeat = argc > 3 ? std::atoi(argv[3]) : 5;
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        std::perror(path.c_str());
        return 1;
    }
    const double megabytes = static_cast<double>(info.st_size) / 1e6;

    // Peak memory of one read, from before the file is read to the records.
    resetPeakMemory();
    const long before = statusKilobytes("VmRSS");
    std::vector<tessaro::Level> levels = tessaro::loadLevels(path);
    tessaro::normaliseOpenedLevels(levels);
    const long peak = statusKilobytes("VmHWM");
    const long held = statusKilobytes("VmRSS");
    if (levels.empty()) {
        std::fputs("the file did not load\n", stderr);
        return 1;
    }

    double bestRead = 1e9;
    for (int i = 0; i < repeat; ++i) {
        const auto start = std::chrono::steady_clock::now();
        auto again = tessaro::loadLevels(path);
        tessaro::normaliseOpenedLevels(again);
        bestRead = std::min(bestRead, secondsSince(start));
    }

    const std::string out = path + ".bench-out.plist";
    double bestWrite = 1e9;
    for (int i = 0; i < repeat; ++i) {
        const auto start = std::chrono::steady_clock::now();
        if (!tessaro::saveLevels(levels, out))
            return 1;
        bestWrite = std::min(bestWrite, secondsSince(start));
    }
    std::remove(out.c_str());

    const double peakMegabytes = static_cast<double>(peak - before) / 1024.0;
    std::printf("file_mb %.2f\n", megabytes);
    std::printf("levels %zu\n", levels.size());
    std::printf("read_mb_per_s %.1f\n", megabytes / bestRead);
    std::printf("write_mb_per_s %.1f\n", megabytes / bestWrite);
    std::printf("peak_mb %.1f\n", peakMegabytes);
    std::printf("held_mb %.1f\n", static_cast<double>(held - before) / 1024.0);
    std::printf("peak_ratio %.2f\n", peakMegabytes / megabytes);
    return 0;
}
