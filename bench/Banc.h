#pragma once
// The main of every benchmark binary: the Qt application it needs, then Google
// Benchmark. Windows are drawn offscreen unless the caller chose a platform.

#include <QApplication>
#include <QCoreApplication>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

namespace Banc {

enum class Application { SansEcran,
                         AvecFenetres };

// avant runs once the application exists; when it answers a code, that ends the run
// instead of the benchmarks (a mode of the binary's own).
inline int lancer(int argc, char **argv, Application genre,
                  const std::function<int(int, char **)> &avant = {}) {
    std::unique_ptr<QCoreApplication> app;
    if (genre == Application::AvecFenetres) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    if (avant)
        if (const int code = avant(argc, argv); code >= 0) return code;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

}  // namespace Banc
