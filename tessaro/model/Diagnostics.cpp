#include "Diagnostics.h"

#include <cstdio>
#include <mutex>

namespace tessaro {

namespace {
std::mutex sinkMutex;
DiagnosticSink currentSink;
} // namespace

void diagnostic(std::string_view line)
{
    std::lock_guard lock(sinkMutex);
    if (currentSink) {
        currentSink(line);
        return;
    }
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

DiagnosticSink setDiagnosticSink(DiagnosticSink sink)
{
    std::lock_guard lock(sinkMutex);
    std::swap(sink, currentSink);
    return sink;
}

} // namespace tessaro
