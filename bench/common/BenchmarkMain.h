// The main of a benchmark program that draws or uses Qt: the registered
// benchmarks run inside an application object on the offscreen platform.
#pragma once

#include <benchmark/benchmark.h>

#include <QGuiApplication>

namespace tessaro::bench {

/// `Application` is QApplication for benchmarks of widgets.
template <class Application = QGuiApplication>
int runQtBenchmarks(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace tessaro::bench
