#include "support/peer_process.h"

namespace quillon::testing {

namespace {
constexpr int kAnswerWaitMs = 30000;
}

PeerProcess::PeerProcess() {
    process_.setProgram(QStringLiteral(QUILLON_TEST_BIN_DIR "/helper_dao_peer"));
    process_.start();
}

PeerProcess::~PeerProcess() {
    if (process_.state() != QProcess::NotRunning) {
        process_.kill();
        process_.waitForFinished(kAnswerWaitMs);
    }
}

bool PeerProcess::Started() {
    return process_.waitForStarted(kAnswerWaitMs);
}

QString PeerProcess::Ask(const QStringList& words) {
    process_.write((words.join(QLatin1Char('\t')) + QLatin1Char('\n')).toUtf8());
    return Answer();
}

QString PeerProcess::Answer() {
    while (!process_.canReadLine()) {
        if (!process_.waitForReadyRead(kAnswerWaitMs)) {
            return QStringLiteral("<no answer>");
        }
    }
    return QString::fromUtf8(process_.readLine()).trimmed();
}

bool PeerProcess::Quit() {
    process_.write("quit\n");
    return process_.waitForFinished(kAnswerWaitMs) && process_.exitCode() == 0;
}

bool PeerProcess::Kill() {
    process_.kill();
    return process_.waitForFinished(kAnswerWaitMs);
}

}  // namespace quillon::testing
