#include "bench_main.h"

#include "shell/configuration.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace quillon::bench {

int RunBenchmarks(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);  // forms and fonts need one
    SetDefaults();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

}  // namespace quillon::bench
