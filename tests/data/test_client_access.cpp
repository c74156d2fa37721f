// Finding and moving the current client through the tables of a client database.

#include "data/client_data.h"
#include "data/data_access.h"
#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "platform/dao.h"
#include "shell/variables.h"
#include "support/scripted_services.h"

#include <QTemporaryDir>
#include <QTest>

using namespace quillon;

namespace {

const QString kName = QStringLiteral("Name");

// A client database of the delivered kind in a temporary slot folder, with the
// clients given added to every client table.
class SlotFolder {
public:
    explicit SlotFolder(const QList<QPair<QString, QString>>& clients) {
        DatabaseFolder[1] = dir_.path();
        DatabaseTitle[1] = QStringLiteral("Test Practice");
        SelectedFile = 1;
        MakeClientDatabase(ClientDatabasePath());
        dao::Database db = dao::OpenDatabase(ClientDatabasePath());
        for (const QString& table : ClientTableNames()) {
            dao::Recordset rows = db.OpenRecordset(table);
            for (const auto& [last, first] : clients) {
                rows.AddNew();
                rows.Fields(QStringLiteral("Last Name")).SetValue(last);
                rows.Fields(QStringLiteral("First Names")).SetValue(first);
                rows.Update();
            }
        }
    }

private:
    QTemporaryDir dir_;
};

QString currentClient() {
    return CurrentLast + QStringLiteral(", ") + CurrentFirst;
}

}  // namespace

class TestClientAccess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nullFieldsReadAsEmptyZeroAndFalse();
    void listTextTriesEverySplit_data();
    void listTextTriesEverySplit();
    void listTextWithoutSeparatorStandsOnFirstRow();
    void dividendListTextUsesTheThirdKey();
    void movesWalkNameOrderAndStopAtTheEnds();
    void unknownDirectionLeavesTheClient();
    void movingAVanishedClientReportsAndKeepsTheClient();
    void seekClientRecordNamesTheMissingClient();
    void errorReportText();
};

void TestClientAccess::nullFieldsReadAsEmptyZeroAndFalse() {
    QCOMPARE(NullToEmpty(QVariant()), QString());
    QCOMPARE(NullToEmpty(QVariant(QStringLiteral("12 High Street"))), u"12 High Street"_qs);
    QCOMPARE(NullToZero(QVariant()), qint16(0));
    QCOMPARE(NullToZero(QVariant(3)), qint16(3));
    QCOMPARE(NullToFalse(QVariant()), false);
    QCOMPARE(NullToFalse(QVariant(true)), true);

    // Through a real row whose fields were never written.
    ScriptedServices services;
    SlotFolder slot({{QStringLiteral("Blank"), QStringLiteral("Betty")}});
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset personal = db.OpenRecordset(QStringLiteral("Personal"));
    QVERIFY(SeekClientRecord(personal, QStringLiteral("Betty"), QStringLiteral("Blank")));
    QCOMPARE(NullToEmpty(personal.Fields(QStringLiteral("Address 1"))), QString());
    QCOMPARE(NullToZero(personal.Fields(QStringLiteral("Sex"))), qint16(0));
    QCOMPARE(NullToFalse(personal.Fields(QStringLiteral("Blind"))), false);
}

void TestClientAccess::listTextTriesEverySplit_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("first");
    QTest::newRow("plain") << "Smith, Ann"
                           << "Smith"
                           << "Ann";
    QTest::newRow("comma in last name") << "Smith, Jr, Ann"
                                        << "Smith, Jr"
                                        << "Ann";
    QTest::newRow("comma in first names") << "Jones, Ann, Mary"
                                          << "Jones"
                                          << "Ann, Mary";
    QTest::newRow("other case") << "SMITH, ANN"
                                << "Smith"
                                << "Ann";
}

void TestClientAccess::listTextTriesEverySplit() {
    QFETCH(QString, text);
    QFETCH(QString, last);
    QFETCH(QString, first);
    ScriptedServices services;
    SlotFolder slot({{QStringLiteral("Smith"), QStringLiteral("Ann")},
                     {QStringLiteral("Smith, Jr"), QStringLiteral("Ann")},
                     {QStringLiteral("Jones"), QStringLiteral("Ann, Mary")}});
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset clients = db.OpenRecordset(QStringLiteral("Clients"));
    clients.SetIndex(kName);
    QVERIFY(SeekClientByListText(text, clients));
    QCOMPARE(clients.Fields(QStringLiteral("Last Name")).Value().toString(), last);
    QCOMPARE(clients.Fields(QStringLiteral("First Names")).Value().toString(), first);
    QCOMPARE(services.messages.Count(), 0);
}

void TestClientAccess::listTextWithoutSeparatorStandsOnFirstRow() {
    ScriptedServices services;
    services.messages.Answer(vbOK);
    SlotFolder slot({{QStringLiteral("Zeta"), QStringLiteral("Zoe")},
                     {QStringLiteral("Adams"), QStringLiteral("Al")}});
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset clients = db.OpenRecordset(QStringLiteral("Clients"));
    clients.SetIndex(kName);
    QVERIFY(!SeekClientByListText(QStringLiteral("Zeta Zoe"), clients));
    QCOMPARE(services.messages.Last().prompt, u"Client record not found"_qs);
    QCOMPARE(services.messages.Last().title, u"Quillon"_qs);
    QCOMPARE(services.messages.Last().style & kMsgBoxIconMask, int(vbExclamation));
    QCOMPARE(services.messages.Beeps(), 1);
    QCOMPARE(clients.Fields(QStringLiteral("Last Name")).Value().toString(), u"Adams"_qs);
}

void TestClientAccess::dividendListTextUsesTheThirdKey() {
    ScriptedServices services;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("DIV2015.MDB"));
    dao::CreateDatabase(path, DividendDatabaseTables());
    dao::Database db = dao::OpenDatabase(path);
    dao::Recordset dividends = db.OpenRecordset(QStringLiteral("Dividends"));
    for (bool fid : {false, true}) {
        dividends.AddNew();
        dividends.Fields(QStringLiteral("Company")).SetValue(QStringLiteral("Acme, Holdings PLC"));
        dividends.Fields(QStringLiteral("Stock")).SetValue(QStringLiteral("Ordinary 25p"));
        dividends.Fields(QStringLiteral("FID")).SetValue(fid);
        dividends.Fields(QStringLiteral("Number 1")).SetValue(fid ? 2 : 1);
        dividends.Update();
    }
    dividends.SetIndex(kName);
    QVERIFY(SeekDividendByListText(QStringLiteral("Acme, Holdings PLC, Ordinary 25p"), true,
                                   dividends));
    QCOMPARE(dividends.Fields(QStringLiteral("Number 1")).Value().toInt(), 2);

    services.messages.Answer(vbOK);
    QVERIFY(!SeekDividendByListText(QStringLiteral("Acme Holdings PLC"), false, dividends));
    QCOMPARE(services.messages.Last().prompt, u"Dividend record not found"_qs);
}

void TestClientAccess::movesWalkNameOrderAndStopAtTheEnds() {
    ScriptedServices services;
    // Stored out of order, and "A." "Sample" comes with the delivered file.
    SlotFolder slot({{QStringLiteral("Young"), QStringLiteral("Yan")},
                     {QStringLiteral("Brown"), QStringLiteral("Bob")},
                     {QStringLiteral("brown"), QStringLiteral("Alice")}});
    CurrentLast = QStringLiteral("Brown");
    CurrentFirst = QStringLiteral("Bob");
    const QString table = QStringLiteral("Employment 3");

    MoveClientRecord(table, QStringLiteral("Previous"));
    QCOMPARE(currentClient(), u"brown, Alice"_qs);
    MoveClientRecord(table, QStringLiteral("Previous"));
    QCOMPARE(currentClient(), u"brown, Alice"_qs);  // stays on the first row
    MoveClientRecord(table, QStringLiteral("Next"));
    QCOMPARE(currentClient(), u"Brown, Bob"_qs);
    MoveClientRecord(table, QStringLiteral("Next"));
    QCOMPARE(currentClient(), u"Sample, A."_qs);
    MoveClientRecord(table, QStringLiteral("Last"));
    QCOMPARE(currentClient(), u"Young, Yan"_qs);
    MoveClientRecord(table, QStringLiteral("Next"));
    QCOMPARE(currentClient(), u"Young, Yan"_qs);  // stays on the last row
    MoveClientRecord(table, QStringLiteral("First"));
    QCOMPARE(currentClient(), u"brown, Alice"_qs);
    QCOMPARE(services.messages.Count(), 0);
}

void TestClientAccess::unknownDirectionLeavesTheClient() {
    ScriptedServices services;
    SlotFolder slot({{QStringLiteral("Brown"), QStringLiteral("Bob")}});
    CurrentLast = QStringLiteral("Brown");
    CurrentFirst = QStringLiteral("Bob");
    MoveClientRecord(QStringLiteral("Diary 2"), QStringLiteral("next"));
    QCOMPARE(currentClient(), u"Brown, Bob"_qs);
}

void TestClientAccess::movingAVanishedClientReportsAndKeepsTheClient() {
    ScriptedServices services;
    services.messages.Answer(vbOK);
    SlotFolder slot({{QStringLiteral("Brown"), QStringLiteral("Bob")}});
    CurrentLast = QStringLiteral("Gone");
    CurrentFirst = QStringLiteral("Gus");
    MoveClientRecord(QStringLiteral("Personal"), QStringLiteral("Next"));
    QCOMPARE(currentClient(), u"Gone, Gus"_qs);
    const ShownMessage shown = services.messages.Last();
    QVERIFY2(shown.prompt.startsWith(
                 u"Module: basClientData\nProcedure: MoveClientRecord\nError 3021: "_qs),
             qPrintable(shown.prompt));
    QCOMPARE(shown.title, u"Gus Gone"_qs);
    QCOMPARE(shown.style & kMsgBoxIconMask, int(vbExclamation));
}

void TestClientAccess::seekClientRecordNamesTheMissingClient() {
    ScriptedServices services;
    services.messages.Answer(vbOK);
    SlotFolder slot({{QStringLiteral("Brown"), QStringLiteral("Bob")}});
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset user = db.OpenRecordset(QStringLiteral("User"));
    QVERIFY(SeekClientRecord(user, QStringLiteral("BOB"), QStringLiteral("brown")));
    QVERIFY(!SeekClientRecord(user, QStringLiteral("Ann"), QStringLiteral("Brown")));
    QCOMPARE(services.messages.Last().prompt, u"Ann Brown could not be found."_qs);
    QCOMPARE(services.messages.Last().title, u"Test Practice"_qs);
    QCOMPARE(services.messages.Beeps(), 1);
}

void TestClientAccess::errorReportText() {
    const ErrorDetails details{3260, QStringLiteral("The row is locked by another user.")};
    QCOMPARE(ErrorReportText(QStringLiteral("frmClients"), QStringLiteral("SelectClient"), details),
             u"Module: frmClients\nProcedure: SelectClient\nError 3260: The row is locked by "
             "another user."_qs);
    QVERIFY(ErrorReportText(kSpouseListModule, QStringLiteral("Form_Load"), details)
                .startsWith(u"Module:    frmSpouseList\n"_qs));

    ScriptedServices services;
    services.messages.Answer(vbOK);
    CurrentFirst = QStringLiteral("Ann");
    CurrentLast = QStringLiteral("Smith");
    ReportError(QStringLiteral("frmPersonal"), QStringLiteral("WriteCRecord"),
                dao::DaoError(3186, QStringLiteral("Locked.")));
    QCOMPARE(services.messages.Last().title, u"Ann Smith"_qs);
    QVERIFY(services.messages.Last().prompt.endsWith(u"Error 3186: Locked."_qs));
}

QTEST_MAIN(TestClientAccess)
#include "test_client_access.moc"
