// Throughput and peak memory of reading and writing a project file:
//   bench-model-codec FILE [--repeat N] [--large-heap-pages]
// Prints one line per figure; bench/model/run.sh puts them beside Python's
// plistlib on the same file.
//
// The first read is the cold one, as a user opens a project: a new process
// whose memory is all fresh, so every page the read touches first costs a
// fault. The repeated reads after it are warm: they reuse the memory the
// earlier ones gave back. With --large-heap-pages the heap grows in 2 MiB
// pages, as stagewright-cli arranges for itself.
#include <tessaro/model/LargePages.h>
#include <tessaro/model/LevelFiles.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <sys/resource.h>
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

long minorFaults()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: bench-model-codec FILE [--repeat N] [--large-heap-pages]\n", stderr);
        return 1;
    }
    const std::string path = argv[1];
    int repeat = 5;
    for (int i = 2; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--repeat" && i + 1 < argc)
            repeat = std::max(1, std::atoi(argv[++i]));
        else if (option == "--large-heap-pages")
            tessaro::preferLargePagesForHeap();
    }
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        std::perror(path.c_str());
        return 1;
    }
    const double megabytes = static_cast<double>(info.st_size) / 1e6;

    // Time, faults and peak memory of the first read, from before the file
    // is read to the records.
    resetPeakMemory();
    const long before = statusKilobytes("VmRSS");
    const long faultsBefore = minorFaults();
    const auto coldStart = std::chrono::steady_clock::now();
    std::vector<tessaro::Level> levels = tessaro::loadLevels(path);
    tessaro::normaliseOpenedLevels(levels);
    const double coldRead = secondsSince(coldStart);
    const long coldFaults = minorFaults() - faultsBefore;
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
    std::printf("cold_read_ms %.1f\n", coldRead * 1e3);
    std::printf("cold_read_mb_per_s %.1f\n", megabytes / coldRead);
    std::printf("cold_read_faults %ld\n", coldFaults);
    std::printf("read_mb_per_s %.1f\n", megabytes / bestRead);
    std::printf("write_mb_per_s %.1f\n", megabytes / bestWrite);
    std::printf("peak_mb %.1f\n", peakMegabytes);
    std::printf("held_mb %.1f\n", static_cast<double>(held - before) / 1024.0);
    std::printf("peak_ratio %.2f\n", peakMegabytes / megabytes);
    return 0;
}
