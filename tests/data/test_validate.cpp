// The key filters of the boxes, and the checks of typed dates.
#include "data/validate.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QTest>

using namespace quillon;

class TestValidate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // For each filter the reference file holds what each key becomes, "no"
    // when refused, which beeps once; a dot in a date becomes a slash.
    void keyFilters() {
        const std::pair<const char*, void (*)(int&)> filters[] = {{"date", DateKeyFilter},
                                                                  {"digit", DigitKeyFilter},
                                                                  {"amount", AmountKeyFilter},
                                                                  {"alpha", AlphaNumericKeyFilter}};
        const QString keys = QStringLiteral("059/.-:()+,@[`{ xAZaz\u00E9\b");
        QStringList outcomes;
        for (const auto& [name, filter] : filters) {
            QString line = QString::fromLatin1(name) + ':';
            for (const QChar typed : keys) {
                ScriptedServices services;
                int key = typed.unicode();
                filter(key);
                QCOMPARE(services.messages.Beeps(), key == 0 ? 1 : 0);
                const auto shown = [](int code) {
                    return code == kKeyBackspace ? QStringLiteral("BS")
                                                 : QStringLiteral("'%1'").arg(QChar(code));
                };
                line += QStringLiteral(" %1>%2").arg(shown(typed.unicode()),
                                                     key == 0 ? QStringLiteral("no") : shown(key));
            }
            outcomes << line;
        }
        QCOMPARE(outcomes, testing::ReferenceLines("key-filters.txt", outcomes));
    }

    // For each text the reference file holds whether it passes as a date
    // (d/m/yy to dd/mm/yy) and as a birth date (with a year of two or four
    // digits); an empty box passes both.
    void typedDatesAreChecked() {
        const QStringList texts =
            QStringLiteral(
                ",1/2/03,1/12/03,12/1/03,31/12/99,1/2/3,1/2/2003,12/1/2003,01/02/2003,1//03,"
                "11//03,/1/2/03,1/2/03/,1/2/003,12/12/3,123/03,1234/03,1//2/03,1/123/03,123/1/03,"
                "ab/cd/ef,1.2.03,31/04/15,1/13/03,29/02/04,29/02/03,29/2/00,29/02/00,29/2/01,"
                "12/2/2003,1/12/2003,12/12/03,01/02/20030,12/12/200,/1/2/2003,1/2/2003/,"
                "1/123/2003,123/1/2003,12//1/2003,29/02/1900,29/02/2000,29/02/1904,29/02/1903,"
                "31/06/1950")
                .split(',');
        QStringList outcomes;
        for (const QString& text : texts) {
            outcomes << QStringLiteral("\"%1\": date %2, birth date %3")
                            .arg(text, ValidDate(text) ? "yes" : "no",
                                 ValidBirthDate(text) ? "yes" : "no");
        }
        QCOMPARE(outcomes, testing::ReferenceLines("typed-dates.txt", outcomes));
    }

    void invalidDatesAreTold() {
        for (const bool birthDate : {false, true}) {
            ScriptedServices services;
            services.messages.Answer(vbOK);
            birthDate ? InvalidBirthDate() : InvalidDate();
            QCOMPARE(services.messages.Beeps(), 1);
            QCOMPARE(services.messages.Count(), 1);
            QCOMPARE(services.messages.Last().prompt,
                     QStringLiteral("Invalid date - you must enter dates in the format ") +
                         (birthDate ? "dd/mm/yyyy" : "dd/mm/yy"));
            QCOMPARE(services.messages.Last().style, int(vbOKOnly | vbExclamation));
            QCOMPARE(services.messages.Last().title, QString("Invalid Date"));
        }
    }
};

QTEST_GUILESS_MAIN(TestValidate)
#include "test_validate.moc"
