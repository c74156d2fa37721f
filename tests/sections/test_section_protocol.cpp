// What every section screen does, row by row of the screens: reading when
// activated, saving only what differs when left, the date check on every way
// out, moves, the shown client, one size and place, and other users of the
// same file.
#include "data/delivered_databases.h"
#include "platform/dao.h"
#include "sections/section_screen_gui.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/peer_process.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

// A screen, a box of it with its field, and a date box with a date it refuses
// (none on a screen without a date check).
struct Screen {
    const char* name;
    const char* command;
    const char* table;
    const char* box;
    const char* field;
    const char* otherField;
    const char* caption;
    const char* dateBox;
    const char* badDate;
    const char* message;
};

const char* const kShort = "Invalid date - you must enter dates in the format dd/mm/yy";

const Screen kScreens[] = {
    {"personal", "cm3Personal", "Personal", "txtCalled", "Called", "Title", "Ada Lovell (Personal)",
     "txtChildDOB(1)", "31/02/99", kShort},
    {"personal, birth date", "mnuPersonal", "Personal", "txtFullName", "Full Name", "Mobile",
     "Ada Lovell (Personal)", "txtSpouseDOB", "1/1/1",
     "Invalid date - you must enter dates in the format dd/mm/yyyy"},
    {"user", "cm3User", "User", "txtRight(2)", "Right 2", "Left 2", "Ada Lovell (User Defined)", "",
     "", ""},
    {"diary", "cm3Diary", "Diary 1", "txtDCEvent(2)", "Client Event 2", "Client Date 3",
     "Ada Lovell (2012-13 Diary)", "", "", ""},
    {"employment", "cm3Employment", "Employment 1", "txtEYear(8)", "Tax Year 8", "NRE 8",
     "Ada Lovell (Employment 1)", "txtEFinish", "1/13/99", kShort},
    {"business", "mnuBusiness", "Business 1", "txtBName", "Business Name", "Description",
     "Ada Lovell (Business 1)", "txtCommencement", "1.1.1", kShort},
    {"assets", "cm3Assets", "Assets", "txtANote(19)", "Note 19", "Note 18", "Ada Lovell (Assets)",
     "txtADate(20)", "29/2/01", kShort},
    {"contributions", "cm3Contributions", "Contributions", "txtCAmount(20)", "Amount 20",
     "Provider 20", "Ada Lovell (Pension Contributions)", "txtCDate(20)", "1/1/2001", kShort},
    {"administration", "mnuAdministration", "Administration", "txtTStaff(1)", "Manager", "Partner",
     "Ada Lovell (Administration)", "", "", ""},
};

// The first client of the synthetic file with an employment, a business,
// assets and a pension contribution.
const ClientName kFilled{QStringLiteral("Jack 375"), QStringLiteral("Fairbairn")};

QMdiSubWindow* FrameOf(QWidget* form) {
    return qobject_cast<QMdiSubWindow*>(ChildWindow(form));
}

QVariant Stored(const ClientName& client, const QString& field) {
    QFETCH(QString, table);
    return FieldOf(table, client, field);
}

// The screen of the current row, opened from the main window, with its box.
struct Opened {
    SectionScreen* screen = nullptr;
    QLineEdit* box = nullptr;
    QLineEdit* dateBox = nullptr;
};

Opened Open() {
    QFETCH(QString, command);
    QFETCH(QString, box);
    QFETCH(QString, dateBox);
    Opened opened;
    opened.screen = OpenSection(command);
    if (opened.screen) {
        opened.box = opened.screen->Box(box);
        opened.dateBox = dateBox.isEmpty() ? nullptr : opened.screen->Box(dateBox);
    }
    return opened;
}

}  // namespace

class TestSectionProtocol : public QObject {
    Q_OBJECT

private:
    static void screens(bool withDatesOnly) {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("otherField");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("dateBox");
        QTest::addColumn<QString>("badDate");
        QTest::addColumn<QString>("message");
        for (const Screen& s : kScreens) {
            if (withDatesOnly && !*s.dateBox) {
                continue;
            }
            QTest::newRow(s.name) << s.command << s.table << s.box << s.field << s.otherField
                                  << s.caption << s.dateBox << s.badDate << s.message;
        }
    }

private Q_SLOTS:
    void init() { dao::SetLockTimeout(200); }

    void savesOnlyWhatDiffersFromWhatWasRead_data() { screens(false); }
    void savesOnlyWhatDiffersFromWhatWasRead() {
        QFETCH(QString, table);
        QFETCH(QString, field);
        QFETCH(QString, otherField);
        QFETCH(QString, caption);
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        SetFields(table, kAda,
                  {{field, QStringLiteral("read")}, {otherField, QStringLiteral("x")}});
        const Opened open = Open();
        QVERIFY(open.box);
        QCOMPARE(open.screen->windowTitle(), caption);
        QCOMPARE(open.box->text(), u"read"_qs);
        QVERIFY(!open.screen->Loading);
        // Behind the screen's back, as another workstation would.
        SetFields(table, kAda, {{otherField, QStringLiteral("theirs")}});
        TypeInto(open.box, QString());
        QVERIFY(UnloadForm(open.screen->objectName()));
        QCOMPARE(Stored(kAda, otherField).toString(), u"theirs"_qs);
        // A box the user emptied stores an empty text, not a Null.
        QCOMPARE(Stored(kAda, field), QVariant(QString()));
        QCOMPARE(services.messages.Count(), 0);
    }

    // A: reads; B, another process, changes one field and saves; A changes
    // another and saves. The row keeps both, and A sees B's when it comes back.
    void twoUsersOnOneRowKeepEachOthersChanges_data() { screens(false); }
    void twoUsersOnOneRowKeepEachOthersChanges() {
        QFETCH(QString, table);
        QFETCH(QString, field);
        QFETCH(QString, otherField);
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        const Opened open = Open();
        PeerProcess userB;
        QVERIFY(userB.Started());
        QCOMPARE(userB.Ask({"open", world.DatabasePath()}), u"ok"_qs);
        QCOMPARE(userB.Ask({"edit", table, kAda.last, kAda.first}), u"ok"_qs);
        QCOMPARE(userB.Ask({"set", otherField, "B's"}), u"ok"_qs);
        QCOMPARE(userB.Ask({"update"}), u"ok"_qs);
        TypeInto(open.box, QStringLiteral("A's"));
        OtherChildWindow();  // leaving the screen saves it
        QCOMPARE(Stored(kAda, otherField).toString(), u"B's"_qs);
        QCOMPARE(Stored(kAda, field).toString(), u"A's"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    // The save runs Edit and Update even with nothing to assign, so a row that
    // another user holds is reported, in the screen's and the routine's name;
    // a screen never activated has nothing to save.
    void aRowHeldElsewhereIsReportedByTheSave_data() { screens(false); }
    void aRowHeldElsewhereIsReportedByTheSave() {
        QFETCH(QString, table);
        ScriptedServices services;
        SectionWorld world({kAda});
        const Opened open = Open();
        const QString form = open.screen->objectName();
        PeerProcess userB;
        QVERIFY(userB.Started());
        QCOMPARE(userB.Ask({"open", world.DatabasePath()}), u"ok"_qs);
        QCOMPARE(userB.Ask({"edit", table, kAda.last, kAda.first}), u"ok"_qs);
        services.messages.Answer(vbOK);
        QVERIFY(UnloadForm(form));
        QCOMPARE(services.messages.Count(), 1);
        const QString expected =
            u"Module: "_qs + form + u"\nProcedure: WriteCRecord\nError 3260: "_qs;
        QVERIFY2(services.messages.Last().prompt.startsWith(expected),
                 qPrintable(services.messages.Last().prompt));
        QCOMPARE(services.messages.Last().style & kMsgBoxIconMask, int(vbExclamation));
        auto* unread = qobject_cast<SectionScreen*>(LoadForm(form));
        QVERIFY(unread->Loading);
        QVERIFY(UnloadForm(form));
        QCOMPARE(services.messages.Count(), 1);
    }

    // Another section, a mouse click on a move button, minimising and closing
    // the program: each tells the bad date once and leaves the user in the
    // box with nothing saved; a click on a label tells nothing.
    void aBadDateStopsEveryWayOut_data() { screens(true); }
    void aBadDateStopsEveryWayOut() {
        QFETCH(QString, field);
        QFETCH(QString, badDate);
        QFETCH(QString, message);
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        const Opened open = Open();
        const QString form = open.screen->objectName();
        open.box->setText(QStringLiteral("unsaved"));
        open.dateBox->setText(badDate);
        const auto toldOnce = [&](const char* way) {
            QVERIFY2(services.messages.Count() == 1, way);
            QCOMPARE(services.messages.Last().prompt, message);
            QCOMPARE(services.messages.Last().title, u"Invalid Date"_qs);
            QCOMPARE(services.messages.Beeps(), 1);
            QVERIFY2(open.dateBox->hasFocus(), way);
            QCOMPARE(LoadedForm(form), open.screen);
            QCOMPARE(FrameOf(open.screen)->mdiArea()->activeSubWindow(), FrameOf(open.screen));
            QVERIFY(Stored(kAda, field).isNull());
            QCOMPARE(CurrentLast, kAda.last);
            services.messages.ClearRecord();
            QCoreApplication::processEvents();  // the user's next try comes later
        };
        Focus(open.dateBox);
        Click(open.screen->findChild<QLabel*>());
        QCOMPARE(services.messages.Count(), 0);
        services.messages.Answer(vbOK);
        Trigger(form == u"frmUser"_qs ? u"cm3Personal"_qs : u"cm3User"_qs);
        toldOnce("another section");
        services.messages.Answer(vbOK);
        Click(open.screen->cm3Next);
        toldOnce("a move");
        services.messages.Answer(vbOK);
        OtherChildWindow();
        toldOnce("another window");
        services.messages.Answer(vbOK);
        FrameOf(open.screen)->showMinimized();
        toldOnce("minimising");
        QVERIFY(!FrameOf(open.screen)->isMinimized());
        services.messages.Answer(vbOK);
        world.MainWindow()->close();
        FlushUnloadedForms();
        toldOnce("closing the program");
        QVERIFY(world.MainWindow()->isVisible());
        // Mended or emptied, the date lets every way out save.
        TypeInto(open.dateBox, QString());
        Click(open.screen->cm3Next);
        QCOMPARE(Stored(kAda, field).toString(), u"unsaved"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    // Leaving a date box with a bad date brings the focus straight back; an
    // emptied box is a good date.
    void leavingABadDateBoxKeepsTheUserInIt_data() { screens(true); }
    void leavingABadDateBoxKeepsTheUserInIt() {
        QFETCH(QString, badDate);
        QFETCH(QString, message);
        ScriptedServices services;
        SectionWorld world({kAda});
        const Opened open = Open();
        services.messages.Answer(vbOK);
        TypeInto(open.dateBox, badDate);
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(services.messages.Last().prompt, message);
        QVERIFY(open.dateBox->hasFocus());
        TypeInto(open.dateBox, QString());
        QCOMPARE(services.messages.Count(), 1);
        QVERIFY(!open.dateBox->hasFocus());
    }

    void movesSaveThenFollowTheNameOrderAndStopAtTheEnds_data() { screens(false); }
    void movesSaveThenFollowTheNameOrderAndStopAtTheEnds() {
        QFETCH(QString, table);
        QFETCH(QString, field);
        ScriptedServices services;
        SectionWorld world({kBert, kAda, kCora});
        CurrentFirst = kBert.first;
        CurrentLast = kBert.last;
        const Opened open = Open();
        TypeInto(open.box, QStringLiteral("B"));
        Click(open.screen->cm3Next);
        QCOMPARE(Stored(kBert, field).toString(), u"B"_qs);
        QCOMPARE(CurrentLast, kCora.last);
        QVERIFY(open.screen->windowTitle().startsWith(u"Cora Nash ("_qs));
        QCOMPARE(open.box->text(), QString());
        // On the last client, Next stays there and reads the row afresh.
        SetFields(table, kCora, {{field, QStringLiteral("C")}});
        Click(open.screen->cm3Next);
        QCOMPARE(CurrentLast, kCora.last);
        QCOMPARE(open.box->text(), u"C"_qs);
        Click(open.screen->cm3First);
        QCOMPARE(CurrentLast, kAda.last);
        Click(open.screen->cm3Previous);
        QCOMPARE(CurrentLast, kAda.last);
        Click(open.screen->cm3Last);
        Click(open.screen->cm3Previous);
        QCOMPARE(CurrentLast, kBert.last);
        QCOMPARE(open.box->text(), u"B"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    // A screen writes to the client it has read, even when the current client
    // has moved on meanwhile, and reads the new one when it comes back.
    void aSaveGoesToTheShownClientNotTheCurrentOne_data() { screens(false); }
    void aSaveGoesToTheShownClientNotTheCurrentOne() {
        QFETCH(QString, field);
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        const Opened open = Open();
        open.box->setText(QStringLiteral("Ada's"));
        CurrentFirst = kBert.first;  // as the client list does
        CurrentLast = kBert.last;
        QWidget* other = OtherChildWindow();
        QCOMPARE(Stored(kAda, field).toString(), u"Ada's"_qs);
        QVERIFY(Stored(kBert, field).isNull());
        ActivateChild(other);
        ActivateChild(open.screen);
        QVERIFY(open.screen->windowTitle().startsWith(u"Bert Mason ("_qs));
        QCOMPARE(open.box->text(), QString());
    }

    // A client without a row in the section's table: told, nothing shown
    // changes, nothing is written.
    void aMissingRowIsToldAndNothingIsWritten_data() { screens(false); }
    void aMissingRowIsToldAndNothingIsWritten() {
        QFETCH(QString, table);
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        const Opened open = Open();
        open.box->setText(QStringLiteral("kept"));
        {
            dao::Database db = dao::OpenDatabase(world.DatabasePath());
            dao::Recordset rows = db.OpenRecordset(table);
            rows.SetIndex(QStringLiteral("Name"));
            rows.Seek(QStringLiteral("="), {kBert.last, kBert.first});
            rows.Delete();
        }
        OtherChildWindow();
        CurrentFirst = kBert.first;
        CurrentLast = kBert.last;
        services.messages.Answer(vbOK);
        ActivateChild(open.screen);
        QCOMPARE(services.messages.Last().prompt, u"Bert Mason could not be found."_qs);
        QCOMPARE(open.box->text(), u"kept"_qs);
        services.messages.Answer(vbOK);
        QVERIFY(UnloadForm(open.screen->objectName()));
        QCOMPARE(services.messages.Count(), 2);
    }

    // Whichever section is opened from the main window, the one left is saved.
    void openingAnotherSectionSavesTheOneLeft() {
        ScriptedServices services;
        SectionWorld world({kAda});
        for (const Screen& left : kScreens) {
            for (const Screen& next : kScreens) {
                if (QLatin1String(left.table) == QLatin1String(next.table)) {
                    continue;
                }
                const QString text = QString::fromLatin1(next.name).left(7);
                TypeInto(OpenSection(left.command)->Box(left.box), text);
                QVERIFY(OpenSection(next.command));
                QVERIFY2(FieldOf(left.table, kAda, left.field).toString() == text, next.name);
            }
        }
    }

    // The pictures in docs/screenshots, of a made-up client with all four filled in.
    void screensAreRenderedIntoTheDocumentation_data() {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("file");
        const char* shots[][2] = {{"cm3Employment", "employment-section"},
                                  {"cm3Business", "business-section"},
                                  {"cm3Assets", "assets-section"},
                                  {"cm3Contributions", "contributions-section"}};
        for (const auto& [command, file] : shots) {
            QTest::newRow(file) << command << file;
        }
    }
    void screensAreRenderedIntoTheDocumentation() {
        QFETCH(QString, command);
        QFETCH(QString, file);
        ScriptedServices services;
        SectionWorld world({kAda});
        QVERIFY(QFile::remove(world.DatabasePath()));
        MakeSyntheticClientDatabase(world.DatabasePath(), 400);
        QVERIFY(!FieldOf(u"Contributions"_qs, kFilled, u"Provider 1"_qs).isNull());
        CurrentFirst = kFilled.first;
        CurrentLast = kFilled.last;
        SectionScreen* screen = OpenSection(command);
        QVERIFY(QTest::qWaitForWindowExposed(screen));
        const QString folder = QStringLiteral(QUILLON_TEST_DATA_DIR "/../../docs/screenshots/");
        QVERIFY(ChildWindow(screen)->grab().save(folder + file + QStringLiteral(".png")));
    }

    // Every section screen opens at the one size, where the last one stood.
    void sectionScreensOpenAtOneSizeWhereTheLastOneStood() {
        ScriptedServices services;
        SectionWorld world({kAda});
        QWidget* first = OpenSection(QString::fromLatin1(kScreens[0].command));
        FrameOf(first)->move(45, 30);
        const QSize size = FrameOf(first)->size();
        for (const Screen& screen : kScreens) {
            QWidget* form = OpenSection(QString::fromLatin1(screen.command));
            QCOMPARE(FrameOf(form)->pos(), QPoint(45, 30));
            QCOMPARE(FrameOf(form)->size(), size);
        }
    }
};

QTEST_MAIN(TestSectionProtocol)
#include "test_section_protocol.moc"
