// Figures as the screens show and read them: amounts, Val, right alignment
// and money, none of them by the locale.
#include "data/convert.h"
#include "data/currency.h"
#include "support/shell_testing.h"

#include <QLocale>
#include <QTest>

#include <limits>

using namespace quillon;

class TestConvert : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The reference file holds what each routine makes of each input: Val
    // reads up to the first character that can't go on a number, blanks
    // aside; amounts are whole pounds, negatives in brackets, zero blank;
    // the aligned texts are cut to their width.
    void figuresAreReadAndShown() {
        QStringList outcomes;
        for (const QString& text :
             QStringLiteral("12abc|abc|| 1 2|\t7\n5|-3.5x|- 3|+4|(12)|1.2.3|.5|5.|1,000|--1|-|.|"
                            "1.5E3|1e-2|3e|12 days|3e-x")
                 .split('|')) {
            outcomes << QStringLiteral("Val \"%1\": %2")
                            .arg(QString(text).replace('\t', "\\t").replace('\n', "\\n"))
                            .arg(Val(text), 0, 'g', 17);
        }
        for (const double value :
             {0.0, 1234.0, -1234.0, 1234567890.0, 12.49, 2.5, -2.5, 0.4, -0.4,
              std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
            outcomes << QStringLiteral("FormatAmount %1: \"%2\"")
                            .arg(value, 0, 'f', 2)
                            .arg(FormatAmount(value));
        }
        for (const QString text : {"", "123", "(123)", "12345678", "123456789", "1234567890"}) {
            outcomes << QStringLiteral("RightAlign \"%1\": \"%2\" \"%3\"")
                            .arg(text, RightAlign8(text), RightAlign9(text));
        }
        for (const char* text :
             {"-500", "(500)", "12.5", "99999999", "100000000", "-9999999", "-10000000"}) {
            const Currency money = Currency::FromText(text);
            outcomes << QStringLiteral("money %1: \"%2\" \"%3\"")
                            .arg(text, MoneyText(money), MoneyTotalText(money));
        }
        QCOMPARE(outcomes, testing::ReferenceLines("figures.txt", outcomes));
    }

    void figuresIgnoreTheLocale() {
        const QLocale previous;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const double read = Val("1.5");
        const QString shown = FormatAmount(1234567.0);
        QLocale::setDefault(previous);
        QCOMPARE(read, 1.5);
        QCOMPARE(shown, QString("1234567"));
    }

    void sumsOfMoneyAreExact() {
        Currency sum;
        for (int i = 0; i < 100000; ++i) {
            sum += Currency::FromText("0.1");
        }
        QCOMPARE(sum, Currency::FromPounds(10000));
    }
    // Read from the figures, not through a binary fraction: 1.00005 is a half.
    void moneyIsReadFromTheFiguresAsTyped() {
        const struct {
            const char* text;
            qint64 units;
        } rows[] = {{"1.00005", 10001},  {"-1.00005", -10001},
                    {"0.00004", 0},      {"5e-10", 0},
                    {"1.5E3", 15000000}, {" 12 34.5x", 12345000},
                    {"007.25", 72500},   {"(3)", 0},
                    {"1e30", 0},         {"99999999999999", 999999999999990000}};
        for (const auto& row : rows) {
            QVERIFY2(Currency::FromText(row.text).Units() == row.units, row.text);
        }
    }
};

QTEST_GUILESS_MAIN(TestConvert)
#include "test_convert.moc"
