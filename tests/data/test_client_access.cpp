// Finding and moving the current client through the tables of a client database.

#include "data/client_data.h"
#include "data/data_access.h"
#include "data/database_schema.h"
#include "platform/dao.h"
#include "shell/variables.h"
#include "support/client_slot.h"
#include "support/scripted_services.h"

#include <QTemporaryDir>
#include <QTest>

using namespace quillon;
using testing::ClientSlot;

namespace {

QString currentClient() {
    return CurrentLast + ", " + CurrentFirst;
}

void makeCurrent(const QString& last, const QString& first) {
    CurrentLast = last;
    CurrentFirst = first;
}

}  // namespace

class TestClientAccess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nullFieldsReadAsEmptyZeroAndFalse() {
        QCOMPARE(NullToEmpty(QVariant()), QString());
        QCOMPARE(NullToEmpty(QVariant("12 High Street")), "12 High Street");
        QCOMPARE(NullToZero(QVariant()), qint16(0));
        QCOMPARE(NullToZero(QVariant(3)), qint16(3));
        QCOMPARE(NullToFalse(QVariant()), false);
        QCOMPARE(NullToFalse(QVariant(true)), true);
        // Through a real row whose fields were never written.
        ScriptedServices services;
        ClientSlot slot(QList<testing::Client>{{"Blank", "Betty"}});
        dao::Database db = dao::OpenDatabase(ClientDatabasePath());
        dao::Recordset personal = db.OpenRecordset("Personal");
        QVERIFY(SeekClientRecord(personal, "Betty", "Blank"));
        QCOMPARE(NullToEmpty(personal.Fields("Address 1")), QString());
        QCOMPARE(NullToZero(personal.Fields("Sex")), qint16(0));
        QCOMPARE(NullToFalse(personal.Fields("Blind")), false);
    }

    // Each split at ", " is tried, in any case; a text with none is told and
    // leaves the recordset on its first row.
    void listTextTriesEverySplit() {
        ScriptedServices services;
        ClientSlot slot(
            {{"Zeta", "Zoe"}, {"Smith", "Ann"}, {"Smith, Jr", "Ann"}, {"Jones", "Ann, Mary"}});
        dao::Database db = dao::OpenDatabase(ClientDatabasePath());
        dao::Recordset clients = db.OpenRecordset("Clients");
        clients.SetIndex("Name");
        for (const auto& [text, found] : {std::pair{"Smith, Ann", "Smith|Ann"},
                                          {"Smith, Jr, Ann", "Smith, Jr|Ann"},
                                          {"Jones, Ann, Mary", "Jones|Ann, Mary"},
                                          {"SMITH, ANN", "Smith|Ann"}}) {
            QVERIFY(SeekClientByListText(text, clients));
            QCOMPARE(clients.Fields("Last Name").Value().toString() + "|" +
                         clients.Fields("First Names").Value().toString(),
                     found);
        }
        QCOMPARE(services.messages.Count(), 0);
        services.messages.Answer(vbOK);
        QVERIFY(!SeekClientByListText("Zeta Zoe", clients));
        QCOMPARE(services.messages.Last().prompt, "Client record not found");
        QCOMPARE(services.messages.Last().title, "Quillon");
        QCOMPARE(services.messages.Last().style & kMsgBoxIconMask, int(vbExclamation));
        QCOMPARE(services.messages.Beeps(), 1);
        QCOMPARE(clients.Fields("Last Name").Value().toString(), "Jones");
    }

    void dividendListTextUsesTheThirdKey() {
        ScriptedServices services;
        QTemporaryDir dir;
        const QString path = dir.filePath("DIV2015.MDB");
        dao::CreateDatabase(path, DividendDatabaseTables());
        dao::Database db = dao::OpenDatabase(path);
        dao::Recordset dividends = db.OpenRecordset("Dividends");
        for (bool fid : {false, true}) {
            dividends.AddNew();
            dividends.Fields("Company").SetValue("Acme, Holdings PLC");
            dividends.Fields("Stock").SetValue("Ordinary 25p");
            dividends.Fields("FID").SetValue(fid);
            dividends.Fields("Number 1").SetValue(fid ? 2 : 1);
            dividends.Update();
        }
        dividends.SetIndex("Name");
        QVERIFY(SeekDividendByListText("Acme, Holdings PLC, Ordinary 25p", true, dividends));
        QCOMPARE(dividends.Fields("Number 1").Value().toInt(), 2);
        services.messages.Answer(vbOK);
        QVERIFY(!SeekDividendByListText("Acme Holdings PLC", false, dividends));
        QCOMPARE(services.messages.Last().prompt, "Dividend record not found");
    }

    // Moves walk name order in any case and stay at either end; a direction
    // not known leaves the client where it is.
    void movesWalkNameOrderAndStopAtTheEnds() {
        ScriptedServices services;
        ClientSlot slot({{"Young", "Yan"}, {"Sample", "A."}, {"Brown", "Bob"}, {"brown", "Alice"}});
        makeCurrent("Brown", "Bob");
        for (const auto& [direction, current] : {std::pair{"Previous", "brown, Alice"},
                                                 {"Previous", "brown, Alice"},
                                                 {"Next", "Brown, Bob"},
                                                 {"Next", "Sample, A."},
                                                 {"Last", "Young, Yan"},
                                                 {"Next", "Young, Yan"},
                                                 {"First", "brown, Alice"},
                                                 {"next", "brown, Alice"}}) {
            MoveClientRecord("Employment 3", direction);
            QCOMPARE(currentClient(), current);
        }
        QCOMPARE(services.messages.Count(), 0);
    }

    void movingAVanishedClientReportsAndKeepsTheClient() {
        ScriptedServices services;
        services.messages.Answer(vbOK);
        ClientSlot slot(QList<testing::Client>{{"Brown", "Bob"}});
        makeCurrent("Gone", "Gus");
        MoveClientRecord("Personal", "Next");
        QCOMPARE(currentClient(), "Gone, Gus");
        const ShownMessage shown = services.messages.Last();
        QVERIFY2(shown.prompt.startsWith(
                     "Module: basClientData\nProcedure: MoveClientRecord\nError 3021: "),
                 qPrintable(shown.prompt));
        QCOMPARE(shown.title, "Gus Gone");
        QCOMPARE(shown.style & kMsgBoxIconMask, int(vbExclamation));
    }

    void seekClientRecordNamesTheMissingClient() {
        ScriptedServices services;
        services.messages.Answer(vbOK);
        ClientSlot slot(QList<testing::Client>{{"Brown", "Bob"}});
        dao::Database db = dao::OpenDatabase(ClientDatabasePath());
        dao::Recordset user = db.OpenRecordset("User");
        QVERIFY(SeekClientRecord(user, "BOB", "brown"));
        QVERIFY(!SeekClientRecord(user, "Ann", "Brown"));
        QCOMPARE(services.messages.Last().prompt, "Ann Brown could not be found.");
        QCOMPARE(services.messages.Last().title, "Test Practice");
        QCOMPARE(services.messages.Beeps(), 1);
    }

    void errorReportText() {
        const ErrorDetails details{3260, "The row is locked by another user."};
        QCOMPARE(ErrorReportText("frmClients", "SelectClient", details),
                 "Module: frmClients\nProcedure: SelectClient\nError 3260: The row is locked by "
                 "another user.");
        QVERIFY(ErrorReportText(kSpouseListModule, "Form_Load", details)
                    .startsWith("Module:    frmSpouseList\n"));
        ScriptedServices services;
        services.messages.Answer(vbOK);
        makeCurrent("Smith", "Ann");
        ReportError("frmPersonal", "WriteCRecord", dao::DaoError(3186, "Locked."));
        QCOMPARE(services.messages.Last().title, "Ann Smith");
        QVERIFY(services.messages.Last().prompt.endsWith("Error 3186: Locked."));
    }
};

QTEST_MAIN(TestClientAccess)
#include "test_client_access.moc"
