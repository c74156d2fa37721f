// The diary: the list and its filters, the shared event descriptions, the page
// and title kept between runs, its printouts, and clearing a year for one
// client or for all, also when the process dies half way.
#include "data/delivered_databases.h"
#include "platform/widgets_gui.h"
#include "reports/report_state.h"
#include "sections/filter_label_gui.h"
#include "sections/frmDiary.h"
#include "sections/section_state.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/peer_process.h"
#include "support/print_fakes.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"

#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QSpinBox>
#include <QTabWidget>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

const QString kDiary1 = QStringLiteral("Diary 1");

frmDiary* OpenDiary() {
    Trigger(QStringLiteral("cm3Diary"));
    return LoadedForm<frmDiary>();
}

QStringList Listed(const frmDiary* diary) {
    QStringList entries;
    for (int row = 0; row < diary->lstClients->count(); ++row) {
        entries << diary->lstClients->item(row)->text();
    }
    return entries;
}

// Every row of a diary table as one text: name and the 60 fields, Null marked.
QStringList DiaryRows(const QString& path) {
    QString columns;
    for (int i = 1; i <= kDiaryEvents; ++i) {
        columns += QStringLiteral(
                       " || '|' || ifnull([Standard Date %1], '~') || '|' || "
                       "ifnull([Client Date %1], '~') || '|' || ifnull([Client Event "
                       "%1], '~')")
                       .arg(i);
    }
    QStringList rows;
    for (const QVariantList& row : test::SqliteProbe(path).Rows("SELECT [Last Name]" + columns +
                                                                " FROM [Diary 1] ORDER BY rowid")) {
        rows << row.value(0).toString();
    }
    return rows;
}

// The texts drawn on a page, in order.
QStringList Texts(const ReportPage& page) {
    QStringList texts;
    for (const DrawOp& op : page.ops) {
        if (const auto* text = std::get_if<TextOp>(&op)) {
            texts << text->text;
        }
    }
    return texts;
}

}  // namespace

class TestDiarySection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { dao::SetLockTimeout(200); }

    // A date of any text counts as dated, a Null or empty one as not; all
    // filters that are set must agree, none lists everybody; a date typed
    // with the list on moves its client at once, and a move keeps the list.
    void theListFollowsTheFilters() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert, kCora});
        SetFields(kDiary1, kBert, {{u"Standard Date 3"_qs, u""_qs}});
        SetFields(kDiary1, kCora, {{u"Standard Date 3"_qs, u"ask"_qs}});
        SetFields(kDiary1, kAda, {{u"Standard Date 5"_qs, u"01/05/13"_qs}});
        SetFields(kDiary1, kBert, {{u"Standard Date 5"_qs, u"02/05/13"_qs}});
        frmDiary* diary = OpenDiary();
        QVERIFY(!diary->lblDFilter[2]->isEnabled() && !diary->cm3Merge->isEnabled());
        Click(diary->cm3DList);
        QCOMPARE(diary->cm3DList->text(), u"&List Off"_qs);
        QCOMPARE(Listed(diary).size(), 3);
        const QList<QPair<int, QStringList>> clicks = {
            {3, {u"Nash, Cora"_qs}},                      // 3 "Y"
            {3, {u"Lovell, Ada"_qs, u"Mason, Bert"_qs}},  // 3 "N": Null and empty
            {5, {u"Lovell, Ada"_qs, u"Mason, Bert"_qs}},  // and 5 "Y"
            {3, {u"Lovell, Ada"_qs, u"Mason, Bert"_qs}},  // 3 off, 5 "Y"
            {5, {u"Nash, Cora"_qs}},                      // 5 "N"
        };
        for (const auto& [box, expected] : clicks) {
            Click(diary->lblDFilter[size_t(box - 1)]);
            QCOMPARE(Listed(diary), expected);
        }
        QCOMPARE(diary->lblListCount->text(), u"1 clients in list"_qs);
        TypeInto(diary->Box(u"txtDSDate(5)"_qs), u"?"_qs);  // Ada, dated now
        QCOMPARE(Listed(diary), (QStringList{u"Nash, Cora"_qs}));
        Click(diary->lblDFilter[4]);  // 5 off: all
        TypeInto(diary->Box(u"txtDSDate(5)"_qs), QString());
        diary->cm3Next->click();
        QCOMPARE(Listed(diary).size(), 3);
        Click(diary->lblDFilter[4]);  // 5 "Y": Ada is undated again
        QCOMPARE(Listed(diary), (QStringList{u"Mason, Bert"_qs}));
        Click(diary->cm3DList);
        QVERIFY(diary->lstClients->isHidden() && !diary->lblDFilter[4]->isEnabled());
        QVERIFY(!diary->cm3Report->isEnabled() && diary->cm3Print->isEnabled());
        QCOMPARE(services.messages.Count(), 0);
    }

    // One copy for all clients of the page: No puts the text back and leaves
    // `Common` as it was; Yes writes it at once. The tax year is written on
    // leaving its box and names the page in the caption.
    void eventDescriptionsAreShared() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmDiary* diary = OpenDiary();
        QLineEdit* event = diary->Box(u"txtDSEvent(2)"_qs);
        QCOMPARE(event->text(), u"Records requested"_qs);
        services.messages.Answer(vbNo);
        TypeInto(event, u"Records chased"_qs);
        QCOMPARE(services.messages.Last().title, u"2012-13 Diary"_qs);
        QVERIFY(
            services.messages.Last().prompt.startsWith("You have changed an event description."));
        QCOMPARE(event->text(), u"Records requested"_qs);
        QCOMPARE(CommonField(kDiary1, u"Text 2"_qs).toString(), u"Records requested"_qs);
        services.messages.Answer(vbYes);
        TypeInto(event, u"Records chased"_qs);
        QCOMPARE(CommonField(kDiary1, u"Text 2"_qs).toString(), u"Records chased"_qs);
        TypeInto(diary->txtDYear, u"2016-17"_qs);
        QCOMPARE(CommonField(kDiary1, u"Tax Year"_qs).toString(), u"2016-17"_qs);
        QCOMPARE(diary->windowTitle(), u"Ada Lovell (2016-17 Diary)"_qs);
        Control<QSpinBox>(diary, u"spnDPage"_qs)->stepDown();  // 1 wraps to 4
        QCOMPARE(DiaryPage, quint8(4));
        QCOMPARE(diary->txtDYear->text(), u"2015-16"_qs);
        QCOMPARE(services.messages.Count(), 2);
    }

    // The page and the list's title are kept in the settings file.
    void thePageAndTheTitleSurviveARestart() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmDiary* diary = OpenDiary();
        Control<QSpinBox>(diary, u"spnDPage"_qs)->stepUp();
        Click(diary->cm3DList);
        TypeInto(diary->txtTitle, u"Chase list"_qs);
        QVERIFY(UnloadForm(u"frmDiary"_qs));
        SetDefaults();
        QCOMPARE(DiaryPage, quint8(1));
        ReadConfiguration();
        QCOMPARE(DiaryPage, quint8(2));
        QCOMPARE(DiaryReportTitle, u"Chase list"_qs);
        diary = OpenDiary();
        QCOMPARE(diary->windowTitle(), u"Ada Lovell (2013-14 Diary)"_qs);
        Click(diary->cm3DList);
        QCOMPARE(diary->txtTitle->text(), u"Chase list"_qs);
    }

    // The list as a page per 50 names, each with its number; without the
    // list, the client's diary as a table.
    void bothPrintouts() {
        PrintDesktop desktop;
        SectionWorld world({kAda, kBert});
        SetFields(kDiary1, kAda, {{u"Client Event 4"_qs, u"Call about P60"_qs}});
        frmDiary* diary = OpenDiary();
        Click(diary->cm3Print);
        Click(diary->cm3DList);
        Click(diary->cm3Print);
        QCOMPARE(desktop.backend.jobs.size(), size_t(2));
        const QStringList table = Texts(desktop.backend.jobs[0].document.pages.at(0));
        QVERIFY(table.contains(u"2012-13 Tax Processing Diary"_qs));
        QVERIFY(table.contains(u"Call about P60"_qs) && table.contains(u"Client Events"_qs));
        QCOMPARE(Texts(desktop.backend.jobs[1].document.pages.at(0)),
                 (QStringList{u"Title (2 clients)"_qs, u"Lovell, Ada"_qs, u"Mason, Bert"_qs,
                              u"Page 1"_qs}));
    }

    // No at either question changes nothing; Yes to both empties the dates
    // and client events of every client, and the descriptions stay.
    void clearingAllAsksTwice() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        SetFields(kDiary1, kBert, {{u"Client Event 7"_qs, u"Visit"_qs}});
        SetFields(kDiary1, kAda, {{u"Standard Date 1"_qs, u"06/04/12"_qs}});
        frmDiary* diary = OpenDiary();
        const QStringList before = DiaryRows(world.DatabasePath());
        for (const QList<int>& answers : {QList<int>{vbNo}, QList<int>{vbYes, vbNo}}) {
            for (int answer : answers) {
                services.messages.Answer(answer);
            }
            Click(diary->cm3ClearAll);
            QCOMPARE(DiaryRows(world.DatabasePath()), before);
            QCOMPARE(diary->Box(u"txtDSDate(1)"_qs)->text(), u"06/04/12"_qs);
        }
        QCOMPARE(services.messages.Shown().at(0).prompt,
                 u"ALL diary information in the tax year 2012-13 for ALL clients will be "
                 "deleted.\n\nDo you wish to proceed?"_qs);
        QCOMPARE(services.messages.Last().title, u"CLEAR ALL DIARY DATA"_qs);
        services.messages.Answer(vbYes);
        services.messages.Answer(vbYes);
        Click(diary->cm3ClearAll);
        const QString cleared = QString(3 * kDiaryEvents, QLatin1Char('|'));
        QCOMPARE(DiaryRows(world.DatabasePath()),
                 (QStringList{u"Lovell"_qs + cleared, u"Mason"_qs + cleared}));
        QCOMPARE(diary->windowTitle(), u"Ada Lovell (2012-13 Diary)"_qs);
        QCOMPARE(CommonField(kDiary1, u"Text 1"_qs).toString(), u"*Tax return issued"_qs);
        QCOMPARE(diary->Box(u"txtDSDate(1)"_qs)->text(), QString());
    }

    // Killed half way, the file opens, is sound, and each client's row is
    // either cleared or as it was.
    void aKilledClearingLeavesWholeRows() {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"QUILL020.MDB"_qs);
        MakeSyntheticClientDatabase(path, 10000);
        const QStringList before = DiaryRows(path);
        PeerProcess peer;
        QVERIFY(peer.Started());
        // Killed after its first commit, while a later transaction is open.
        QVERIFY(peer.Ask({"cleardiary", path, "1"}).startsWith("cleared"));
        QTRY_VERIFY(QFile::exists(path + "-journal"));
        QVERIFY(peer.Kill());
        dao::OpenDatabase(path).Close();  // rolls the unfinished transaction back
        QCOMPARE(test::SqliteProbe(path).Value("PRAGMA integrity_check").toString(), u"ok"_qs);
        const QStringList after = DiaryRows(path);
        QCOMPARE(after.size(), before.size());
        int cleared = 0;
        for (qsizetype i = 0; i < after.size(); ++i) {
            const bool empty =
                after[i].section(QLatin1Char('|'), 1).remove(QLatin1Char('|')).isEmpty();
            QVERIFY2(empty || after[i] == before[i], qPrintable(after[i]));
            cleared += empty ? 1 : 0;
        }
        QVERIFY2(cleared > 0 && cleared < after.size(), qPrintable(QString::number(cleared)));
    }

    void theDiaryIsRenderedIntoTheDocumentation() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert, kCora});
        SetFields(kDiary1, kAda, {{u"Standard Date 1"_qs, u"06/04/12"_qs}});
        SetFields(kDiary1, kCora, {{u"Standard Date 1"_qs, u"09/04/12"_qs}});
        frmDiary* diary = OpenDiary();
        Click(diary->cm3DList);
        Click(diary->lblDFilter[0]);
        QWidget* window = ChildWindow(diary);
        QVERIFY(QTest::qWaitForWindowExposed(window));
        const QString folder = QStringLiteral(QUILLON_TEST_DATA_DIR "/../../docs/screenshots");
        QVERIFY(window->grab().save(folder + QStringLiteral("/diary-list.png")));
    }
};

QTEST_MAIN(TestDiarySection)
#include "test_diary_section.moc"
