#include "synthetic_slot.h"

#include "data/delivered_databases.h"
#include "shell/variables.h"

#include <cstdio>
#include <cstdlib>

namespace quillon::bench {

int FailingMessages::MsgBox(const QString& prompt, int, const QString&) {
    std::fprintf(stderr, "unexpected message: %s\n", qPrintable(prompt));
    std::abort();
}

SyntheticSlot::SyntheticSlot() {
    DatabaseFolder[1] = folder_.path();
    DatabaseTitle[1] = QStringLiteral("Benchmark");
    SelectedFile = 1;
    MakeSyntheticClientDatabase(ClientDatabasePath(), kBenchClients);
    Services services;
    services.messages = &messages_;
    InstallServices(services);
}

QString SyntheticSlot::DatabasePath() const {
    return ClientDatabasePath();
}

SyntheticSlot& TheSyntheticSlot() {
    static SyntheticSlot slot;
    return slot;
}

}  // namespace quillon::bench
