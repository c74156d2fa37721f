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

SyntheticSlot::SyntheticSlot(int clients) {
    Select();
    MakeSyntheticClientDatabase(ClientDatabasePath(), clients);
    Services services;
    services.messages = &messages_;
    InstallServices(services);
}

void SyntheticSlot::Select() const {
    DatabaseFolder[1] = folder_.path();
    DatabaseTitle[1] = QStringLiteral("Benchmark");
    SelectedFile = 1;
}

QString SyntheticSlot::DatabasePath() const {
    return ClientDatabasePath();
}

SyntheticSlot& TheSyntheticSlot() {
    static SyntheticSlot slot;
    slot.Select();
    return slot;
}

SyntheticSlot& TheLargeSyntheticSlot() {
    static SyntheticSlot slot(kLargeBenchClients);
    slot.Select();
    return slot;
}

}  // namespace quillon::bench
