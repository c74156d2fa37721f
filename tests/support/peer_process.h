#pragma once
// The helper program helper_dao_peer as a second user of a database file,
// asked one tab-separated command a line; see that program for its commands.

#include <QProcess>
#include <QStringList>

namespace quillon::testing {

class PeerProcess {
public:
    PeerProcess();
    ~PeerProcess();
    PeerProcess(const PeerProcess&) = delete;
    PeerProcess& operator=(const PeerProcess&) = delete;

    bool Started();
    // Sends the command and answers its reply: "ok" or "error <number> <text>".
    QString Ask(const QStringList& words);
    bool Quit();
    // SIGKILL: the peer gets no chance to tidy up.
    bool Kill();
    QString Answer();

private:
    QProcess process_;
};

}  // namespace quillon::testing
