#include "data/convert.h"
#include "data/currency.h"

#include <QLocale>
#include <QTest>

#include <limits>

using namespace quillon;

class TestConvert : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rightAlign() {
        QCOMPARE(RightAlign8(""), QString());
        QCOMPARE(RightAlign9(""), QString());
        QCOMPARE(RightAlign8("123"), QString("     123"));
        QCOMPARE(RightAlign9("(123)"), QString("    (123)"));
        QCOMPARE(RightAlign8("12345678"), QString("12345678"));
        QCOMPARE(RightAlign8("123456789"), QString("12345678"));
        QCOMPARE(RightAlign9("123456789"), QString("123456789"));
        QCOMPARE(RightAlign9("1234567890"), QString("123456789"));
    }

    void formatAmount_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("shown");
        QTest::newRow("zero blank") << 0.0 << "";
        QTest::newRow("positive") << 1234.0 << "1234";
        QTest::newRow("negative in brackets") << -1234.0 << "(1234)";
        QTest::newRow("no separators, wider than the mask") << 1234567890.0 << "1234567890";
        QTest::newRow("rounds down") << 12.49 << "12";
        QTest::newRow("half away from zero") << 2.5 << "3";
        QTest::newRow("negative half away from zero") << -2.5 << "(3)";
        QTest::newRow("small positive is zero") << 0.4 << "";
        QTest::newRow("small negative is zero, no empty brackets") << -0.4 << "";
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "";
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << "";
    }
    void formatAmount() {
        QFETCH(double, value);
        QFETCH(QString, shown);
        QCOMPARE(FormatAmount(value), shown);
    }

    void val_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("number then letters") << "12abc" << 12.0;
        QTest::newRow("no number") << "abc" << 0.0;
        QTest::newRow("empty") << "" << 0.0;
        QTest::newRow("blanks inside") << " 1 2" << 12.0;
        QTest::newRow("tabs and line breaks") << "\t7\n5" << 75.0;
        QTest::newRow("negative decimal") << "-3.5x" << -3.5;
        QTest::newRow("blank after sign") << "- 3" << -3.0;
        QTest::newRow("plus") << "+4" << 4.0;
        QTest::newRow("brackets are no sign") << "(12)" << 0.0;
        QTest::newRow("second point stops") << "1.2.3" << 1.2;
        QTest::newRow("leading point") << ".5" << 0.5;
        QTest::newRow("trailing point") << "5." << 5.0;
        QTest::newRow("comma stops") << "1,000" << 1.0;
        QTest::newRow("two signs") << "--1" << 0.0;
        QTest::newRow("sign alone") << "-" << 0.0;
        QTest::newRow("point alone") << "." << 0.0;
        QTest::newRow("exponent") << "1.5E3" << 1500.0;
        QTest::newRow("negative exponent") << "1e-2" << 0.01;
        QTest::newRow("exponent without digits") << "3e" << 3.0;
        QTest::newRow("word after number") << "12 days" << 12.0;
        QTest::newRow("sign after exponent without digits") << "3e-x" << 3.0;
    }
    void val() {
        QFETCH(QString, text);
        QFETCH(double, value);
        QCOMPARE(Val(text), value);
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
    void moneyTextAndExactSums() {
        const char* rows[][3] = {
            {"-500", "    (500)", "    (500)"},    {"(500)", "", ""},
            {"12.5", "      13", "      13"},      {"99999999", "99999999", "99999999"},
            {"100000000", "10000000", "********"}, {"-9999999", "(9999999)", "(9999999)"},
            {"-10000000", "(10000000", "********"}};
        for (const auto& row : rows) {
            QCOMPARE(MoneyText(Currency::FromText(row[0])), QString(row[1]));
            QCOMPARE(MoneyTotalText(Currency::FromText(row[0])), QString(row[2]));
        }
        Currency sum;
        for (int i = 0; i < 100000; ++i)
            sum += Currency::FromText("0.1");
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
