#pragma once

namespace quillon::bench {

// Runs this program's benchmarks inside an application object (headless unless
// QT_QPA_PLATFORM says otherwise), with the settings at their defaults.
int RunBenchmarks(int argc, char** argv);

}  // namespace quillon::bench
