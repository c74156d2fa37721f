#pragma once
// A user going from client to client on a section screen, for the benchmarks
// of the screens' moves.

#include <QString>

#include <benchmark/benchmark.h>

#include <functional>

namespace quillon {
class SectionScreen;
}

namespace quillon::bench {

// Makes the first client in name order of the synthetic slot the current one.
void StandOnFirstClient();

// Each iteration changes `box` and presses Next on `screen`, which saves the
// change, moves and reads the next client; `stepped` is told after each Next.
// At the last client it starts again from the first, out of the timing.
void StepThroughClients(benchmark::State& state, SectionScreen& screen, const QString& box,
                        const std::function<void()>& stepped = {});

}  // namespace quillon::bench
