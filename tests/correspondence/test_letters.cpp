// Letter headings to clients and tax offices, the clipboard, the standard
// letters and the hand-over to the word processor, with a stand-in program
// that records the arguments it was started with.

#include "correspondence/correspondence_state.h"
#include "correspondence/external_programs.h"
#include "correspondence/frmClientLetter.h"
#include "correspondence/frmOfficeLetter.h"
#include "correspondence/frmStandardLetter.h"
#include "platform/dao.h"
#include "platform/services_gui.h"
#include "shell/configuration.h"
#include "shell/program_folder.h"
#include "shell/variables.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

using namespace quillon;
using namespace quillon::testing;

namespace {

using Fields = QList<QPair<QString, QVariant>>;
const ClientName kDora{QStringLiteral("Dora"), QStringLiteral("Owen")};

void FillClients() {
    SetFields("Personal", kAda,
              Fields{{"Title", "Mrs"},
                     {"Address 1", "12 Loom Street"},
                     {"Address 3", "London"},
                     {"Address 6", "NW1 6XE"},
                     {"Called", "Ada"}});
    SetFields("Business 1", kBert, Fields{{"Address 1", ""}});
    SetFields("Administration", kAda,
              Fields{{"Office Number", "12"}, {"Inspector", "Mr Hale"}, {"Tax Reference", "123"}});
    SetFields("Administration", kBert, Fields{{"Tax Reference", "456"}});
    SetFields("Administration", kCora, Fields{{"Office Number", "99"}});
    dao::Database offices = dao::OpenDatabase(OfficeDatabasePath());
    offices.Execute(
        "INSERT INTO [Tax Offices] (Number, Name, [Address 1], Postcode) "
        "VALUES ('012', 'Leeds', '1 Park Row', 'LS1 5AA')");
}

// The heading shown, its lines joined by "|".
QString Heading(const LetterScreen& screen) {
    return screen.txtHeading->toPlainText().replace(QLatin1Char('\n'), QLatin1Char('|'));
}

void ClickEntry(QListWidget* list, const QString& text) {
    const auto items = list->findItems(text, Qt::MatchExactly);
    QVERIFY2(!items.isEmpty(), qPrintable(text));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(items.first()).center());
}

// A program standing in for the word processor: it writes its arguments, one
// a line, beside itself.
QString WriteStandIn(const QString& folder, const QString& name) {
    const QString path = folder + QLatin1Char('/') + name;
    QFile script(path);
    if (!script.open(QIODevice::WriteOnly)) {
        return {};
    }
    script.write("#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.args\"\n");
    script.setPermissions(script.permissions() | QFileDevice::ExeOwner);
    return path;
}

}  // namespace

class Letters : public QObject {
    Q_OBJECT

private:
    ScriptedServices services_;
    std::unique_ptr<SectionWorld> world_;

    template <typename Form>
    std::unique_ptr<Form> Open() {
        auto form = std::make_unique<Form>();
        form->show();
        QApplication::setActiveWindow(form.get());
        return form;
    }

private Q_SLOTS:
    void initTestCase() {
        world_ = std::make_unique<SectionWorld>(QList<ClientName>{kAda, kBert, kCora, kDora});
        QFile::copy(ProgramFolder() + "/DTAXOFF2.MDB", OfficeDatabasePath());
        FillClients();
        dao::OpenDatabase(ClientDatabasePath())
            .Execute("DELETE FROM [Personal] WHERE [Last Name] = 'Owen'");
    }
    void init() {
        SetDefaults();
        LetterKind = 1;
        services_.messages.ClearRecord();
    }
    void cleanup() {
        services_.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
        services_.fileDialogs.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // Every heading rule against the reference: title and called name or
    // none, the business address of a client without one, an office, and a
    // client's letter to office 12, to an unknown office and with none.
    void headingsFollowTheirRules() {
        QStringList headings;
        auto clients = Open<frmClientLetter>();
        for (const char* entry : {"Lovell, Ada", "Mason, Bert"}) {
            ClickEntry(clients->lstClients, QLatin1String(entry));
            headings << QStringLiteral("client %1: ").arg(entry) + Heading(*clients);
        }
        Click(clients->findChild<QRadioButton*>("optAddress(1)"));
        ClickEntry(clients->lstClients, QStringLiteral("Mason, Bert"));
        headings << QStringLiteral("business address: ") + Heading(*clients);
        QCOMPARE(AddressForLetter, qint16(1));
        auto offices = Open<frmOfficeLetter>();
        ClickEntry(offices->lstReceiver, QStringLiteral("Leeds (012)"));
        headings << QStringLiteral("office: ") + Heading(*offices);
        Click(offices->op3Clients);
        QVERIFY(offices->txtHeading->toPlainText().isEmpty());
        for (const char* entry : {"Lovell, Ada", "Mason, Bert", "Nash, Cora"}) {
            ClickEntry(offices->lstReceiver, QLatin1String(entry));
            headings << QStringLiteral("about %1: ").arg(entry) + Heading(*offices);
        }
        QCOMPARE(headings, ReferenceLines(QStringLiteral("letter-headings.txt"), headings));
    }

    // With the databases gone, the lists and the headings tell the failure
    // under their screen's name, each with its own title.
    void failuresAreToldUnderEachScreensName() {
        auto clients = Open<frmClientLetter>();
        auto offices = Open<frmOfficeLetter>();
        const QStringList files{ClientDatabasePath(), OfficeDatabasePath()};
        for (const QString& file : files) {
            QVERIFY(QFile::rename(file, file + ".away"));
        }
        QStringList told;
        const auto tell = [&](const char* what, const std::function<void()>& act) {
            services_.messages.Answer(vbOK);
            act();
            const ShownMessage shown = services_.messages.Last();
            told << QLatin1String(what) + ": " +
                        shown.prompt.section(QLatin1Char('\n'), 0, 1).replace('\n', " / ") + " | " +
                        shown.title;
        };
        tell("client heading", [&] { ClickEntry(clients->lstClients, "Lovell, Ada"); });
        tell("office heading", [&] { ClickEntry(offices->lstReceiver, "Leeds (012)"); });
        tell("client letter opened", [&] { Open<frmClientLetter>(); });
        tell("office letter opened", [&] { Open<frmOfficeLetter>(); });
        tell("office letter's clients", [&] { Click(offices->op3Clients); });
        for (const QString& file : files) {
            QVERIFY(QFile::rename(file + ".away", file));
        }
        QCOMPARE(told, ReferenceLines(QStringLiteral("letter-failures.txt"), told));
    }

    // A client without a personal row is told; the heading stays.
    void aMissingClientIsTold() {
        auto clients = Open<frmClientLetter>();
        QVERIFY(clients->lstClients->findItems("Owen, Dora", Qt::MatchExactly).isEmpty());
        ClickEntry(clients->lstClients, QStringLiteral("Lovell, Ada"));
        dao::OpenDatabase(ClientDatabasePath())
            .Execute("DELETE FROM [Personal] WHERE [Last Name] = 'Nash'");
        services_.messages.Answer(vbOK);
        ClickEntry(clients->lstClients, QStringLiteral("Nash, Cora"));
        QCOMPARE(services_.messages.Last().prompt, QStringLiteral("Client record not found"));
        QCOMPARE(services_.messages.Last().title, QStringLiteral("Client Letter"));
        QVERIFY(Heading(*clients).startsWith(QStringLiteral("Mrs Ada Lovell")));
    }

    // Copy puts the heading on the clipboard and offers the standard letters,
    // which show the list of the screen's kind.
    void copyThenStandardLetter() {
        auto offices = Open<frmOfficeLetter>();
        ClickEntry(offices->lstReceiver, QStringLiteral("Leeds (012)"));
        QVERIFY(offices->cm3Copy->isEnabled() && !offices->cm3Letter->isEnabled());
        Click(offices->cm3Copy);
        QCOMPARE(services_.clipboard.Text(), offices->txtHeading->toPlainText());
        QVERIFY(!offices->cm3Copy->isEnabled() && offices->cm3Letter->isEnabled());
        QString shown;
        QTimer::singleShot(0, this, [&shown] {
            auto* letters = qobject_cast<frmStandardLetter*>(QApplication::activeModalWidget());
            QVERIFY(letters);
            shown = letters->txtDescription[3]->text() + "|" + letters->txtFile[0]->text();
            QVERIFY(!letters->cmdOpen[0]->isEnabled() && letters->cmdOpen[3]->isEnabled());
            letters->cmdCancel->click();
        });
        Click(offices->cm3Letter);
        QCOMPARE(shown, "Tax Office Letter 3|");
        QCOMPARE(LetterKind, qint16(2));
    }

    // The find dialogs take only the program they ask for.
    void findingTheWordProcessor() {
        frmStandardLetter letters;
        services_.fileDialogs.Answer(QStringLiteral("/opt/office/program/writer"));
        services_.messages.Answer(vbOK);
        letters.cmdFindWord->click();
        QCOMPARE(services_.messages.Last().prompt,
                 QStringLiteral("You must select the file ") + WordProgramName());
        services_.fileDialogs.Answer(QStringLiteral("/opt/office/program/") + WordProgramName());
        letters.cmdFindWord->click();
        QCOMPARE(WordFolder, QDir::toNativeSeparators("/opt/office/program"));
    }

    // The programs are tried in their order and a last failure is silent; the
    // file reaches the program as one argument, blanks, quotes and ";" and all.
    void theLetterGoesToTheFirstProgramThatStarts() {
        ClientLetterFile[1] = QStringLiteral("/letters/a \"b\"; c.odt");
        services_.programs.SetResult(false);
        frmStandardLetter letters;
        letters.cmdOpen[1]->click();
        services_.programs.SetResult(true);
        QStringList started;
        for (const StartedProgram& program : services_.programs.Started()) {
            started << program.program + " " + program.arguments.join(" ");
        }
        QCOMPARE(started.size(), 3);
        QCOMPARE(services_.messages.Shown().size(), 0);
        QVERIFY(started.last().startsWith(WordProgramName()));

        QTemporaryDir folder;
        WordFolder = folder.path();
        const QString standIn = WriteStandIn(folder.path(), WordProgramName());
        DesktopPrograms desktop;
        ProgramService* recording = CurrentServices().programs;
        CurrentServices().programs = &desktop;
        frmStandardLetter real;
        real.cmdOpen[1]->click();
        CurrentServices().programs = recording;
        QFile args(standIn + ".args");
        QTRY_VERIFY(args.exists() && args.size() > 0);
        QVERIFY(args.open(QIODevice::ReadOnly));
        QVERIFY(QString::fromUtf8(args.readAll()).endsWith("\n" + ClientLetterFile[1] + "\n"));
    }

    // A document the desktop can't open is told from the table.
    void aDocumentThatCannotBeOpenedIsTold() {
        services_.programs.SetResult(false);
        services_.messages.Answer(vbOK);
        QVERIFY(!OpenDocumentOrTell(QStringLiteral("/no/such/letter.odt")));
        services_.programs.SetResult(true);
        QCOMPARE(services_.messages.Last().prompt,
                 QStringLiteral("External program access error 2: File not found"));
        QCOMPARE(services_.messages.Last().style, int(vbCritical));
    }
};

QTEST_MAIN(Letters)
#include "test_letters.moc"
