#pragma once
// The database every benchmark works on: 10,000 synthetic clients in a
// temporary slot folder, selected as slot 1.

#include "platform/services.h"

#include <QTemporaryDir>

namespace quillon::bench {

constexpr int kBenchClients = 10000;
constexpr int kLargeBenchClients = 100000;

// A message box during a benchmark means the work failed: stop rather than time it.
class FailingMessages : public MessageService {
public:
    int MsgBox(const QString& prompt, int style, const QString& title) override;
    void Beep() override {}
};

class SyntheticSlot {
public:
    explicit SyntheticSlot(int clients = kBenchClients);
    // Makes this the selected slot again.
    void Select() const;
    QString DatabasePath() const;

private:
    QTemporaryDir folder_;
    FailingMessages messages_;
};

// Made on first use, so that only the benchmarks that run pay for it.
SyntheticSlot& TheSyntheticSlot();
// A practice ten times the size, for the goals set at 100,000 clients.
SyntheticSlot& TheLargeSyntheticSlot();

}  // namespace quillon::bench
