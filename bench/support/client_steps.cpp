#include "client_steps.h"

#include "platform/dao.h"
#include "sections/section_screen_gui.h"
#include "sections/section_state.h"
#include "shell/variables.h"
#include "synthetic_slot.h"

#include <QPushButton>

namespace quillon::bench {

void StandOnFirstClient() {
    TheSyntheticSlot();
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset clients = db.OpenRecordset(QStringLiteral("Clients"));
    clients.SetIndex(QStringLiteral("Name"));
    clients.MoveFirst();
    CurrentFirst = clients.Fields(QStringLiteral("First Names")).Value().toString();
    CurrentLast = clients.Fields(QStringLiteral("Last Name")).Value().toString();
    PersonalFirst = CurrentFirst;
    PersonalLast = CurrentLast;
}

void StepThroughClients(benchmark::State& state, SectionScreen& screen, const QString& box,
                        const std::function<void()>& stepped) {
    int step = 0;
    for (auto _ : state) {
        screen.Box(box)->setText(QStringLiteral("%1").arg(++step));
        const QString before = CurrentFirst + CurrentLast;
        screen.cm3Next->click();
        if (stepped) {
            stepped();
        }
        if (CurrentFirst + CurrentLast == before) {
            state.PauseTiming();
            screen.cm3First->click();
            state.ResumeTiming();
        }
    }
}

}  // namespace quillon::bench
