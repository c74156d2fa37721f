// A second user of a database file, driven by a test over stdin and stdout.
// Each command is one line of tab-separated words; each answer is one line,
// "ok" or "error <number> <description>".
//
//   open <path>                    open the database
//   hold <path>                    open it for this user alone, until close
//   read <path> <table>            open it read-only and hold a read of the
//                                  table's first row in a transaction
//   timeout <ms>                   set the lock timeout
//   edit <table> <last> <first>    seek the client by index Name and start Edit
//   set <field> <text>             assign a text field of the pending Edit
//   update                         Update
//   begin / commit                 BeginTrans / CommitTrans
//   add <last> <first>             add the client to every table present
//   replace <table> <last> <first> <new last> <new first>
//                                  delete a client's row, add another's
//   import <target> <source>      import every client of the source into the
//                                  target, answering "imported <n>" after each
//   cleardiary <path> <page>       clear a diary page of every client,
//                                  answering "cleared <n>" after each commit
//   churn                          forever: begin, add a client to every table,
//                                  commit, answer "committed <n>"
//   close                          close the recordset and the database
//   quit                           exit

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>
#include <iostream>
#include <string>

#include "maintenance/client_import.h"
#include "platform/dao.h"
#include "sections/diary_clearing.h"

using namespace quillon;

namespace {

struct Peer {
    dao::Database db;
    dao::Recordset rs;
};

void answer(const QString& line) {
    std::cout << line.toStdString() << std::endl;
}

void addClientEverywhere(Peer& peer, const QString& last, const QString& first) {
    for (const QString& table : peer.db.TableNames()) {
        dao::Recordset rs = peer.db.OpenRecordset(table);
        rs.AddNew();
        rs.Fields(QStringLiteral("Last Name")).SetValue(last);
        rs.Fields(QStringLiteral("First Names")).SetValue(first);
        rs.Update();
    }
}

// Deletes one client's row of `table` and adds another's, which then takes
// the deleted row's number when that was the last.
void replaceClient(Peer& peer, const QStringList& words) {
    dao::Recordset rs = peer.db.OpenRecordset(words.value(1));
    rs.SetIndex(QStringLiteral("Name"));
    rs.Seek(QStringLiteral("="), {words.value(2), words.value(3)});
    rs.Delete();
    rs.AddNew();
    rs.Fields(QStringLiteral("Last Name")).SetValue(words.value(4));
    rs.Fields(QStringLiteral("First Names")).SetValue(words.value(5));
    rs.Update();
}

void importAll(const QString& target, const QString& source) {
    dao::Database from = dao::OpenDatabase(source, false, true);
    QStringList entries;
    {
        dao::Recordset clients = from.OpenRecordset(QStringLiteral("Clients"));
        for (clients.MoveFirst(); !clients.IsEOF(); clients.MoveNext()) {
            entries << clients.Fields(QStringLiteral("Last Name")).Value().toString() +
                           QStringLiteral(", ") +
                           clients.Fields(QStringLiteral("First Names")).Value().toString();
        }
    }
    ClientTables tables;
    tables.Open(target);
    int n = 0;
    for (const QString& entry : entries) {
        if (const auto client = ReadSourceClient(from, entry)) {
            AddImportedClient(tables, *client);
            answer(QStringLiteral("imported %1").arg(++n));
        }
    }
    tables.Close();
}

[[noreturn]] void churn(Peer& peer) {
    for (int n = 1;; ++n) {
        peer.db.BeginTrans();
        addClientEverywhere(peer, QStringLiteral("Churn"), QString::number(n));
        peer.db.CommitTrans();
        answer(QStringLiteral("committed %1").arg(n));
    }
}

void run(Peer& peer, const QStringList& words) {
    const QString& command = words.value(0);
    if (command == QLatin1String("open")) {
        peer.db = dao::OpenDatabase(words.value(1));
    } else if (command == QLatin1String("read")) {
        peer.db = dao::OpenDatabase(words.value(1), false, true);
        peer.db.BeginTrans();
        peer.rs = peer.db.OpenRecordset(words.value(2));
        peer.rs.MoveFirst();
        peer.rs.Fields(0).Value();
    } else if (command == QLatin1String("hold")) {
        peer.db = dao::OpenDatabase(words.value(1), true);
    } else if (command == QLatin1String("timeout")) {
        dao::SetLockTimeout(words.value(1).toInt());
    } else if (command == QLatin1String("edit")) {
        peer.rs = peer.db.OpenRecordset(words.value(1));
        peer.rs.SetIndex(QStringLiteral("Name"));
        peer.rs.Seek(QStringLiteral("="), {words.value(2), words.value(3)});
        peer.rs.Edit();
    } else if (command == QLatin1String("set")) {
        peer.rs.Fields(words.value(1)).SetValue(words.value(2));
    } else if (command == QLatin1String("update")) {
        peer.rs.Update();
    } else if (command == QLatin1String("begin")) {
        peer.db.BeginTrans();
    } else if (command == QLatin1String("commit")) {
        peer.db.CommitTrans();
    } else if (command == QLatin1String("add")) {
        addClientEverywhere(peer, words.value(1), words.value(2));
    } else if (command == QLatin1String("replace")) {
        replaceClient(peer, words);
    } else if (command == QLatin1String("import")) {
        importAll(words.value(1), words.value(2));
    } else if (command == QLatin1String("cleardiary")) {
        ClearDiaryPage(words.value(1), words.value(2).toInt(),
                       [](int rows) { answer(QStringLiteral("cleared %1").arg(rows)); });
    } else if (command == QLatin1String("churn")) {
        churn(peer);
    } else if (command == QLatin1String("close")) {
        peer.rs.Close();
        peer.db.Close();
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    Peer peer;
    std::string line;
    while (std::getline(std::cin, line)) {
        const QStringList words = QString::fromStdString(line).split(QLatin1Char('\t'));
        if (words.value(0) == QLatin1String("quit")) {
            break;
        }
        try {
            run(peer, words);
            answer(QStringLiteral("ok"));
        } catch (const dao::DaoError& error) {
            answer(QStringLiteral("error %1 %2").arg(error.Number()).arg(error.Description()));
        }
    }
    return 0;
}
