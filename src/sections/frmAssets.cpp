#include "sections/frmAssets.h"

#include "data/database_schema.h"
#include "platform/widgets_gui.h"
#include "sections/common_texts_gui.h"
#include "sections/label_click_gui.h"
#include "sections/money_box_gui.h"
#include "sections/section_state.h"
#include "shell/forms_gui.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

namespace quillon {

namespace {

using Rule = FieldRule;

const QString kCommonRow = QStringLiteral("Assets");
constexpr int kTotalDelay = 60;
constexpr int kDetailsColumn = 4;

// Line i: txtAsset(i), txtADate(i) on `Date i`, txtAValue(i) on `Value i`,
// txtANote(i) on `Note i`; the description is `Text i` of the shared row for
// the first 15 lines, and `Asset i` of the client's row after them.
const GridColumn kSharedColumns[] = {
    {"txtAsset", nullptr, Rule::Text, "Asset/(Liability)"},
    {"txtADate", "Date %1", Rule::Date, "Date"},
    {"txtAValue", "Value %1", Rule::Text, "Value (\xa3)"},
    {"txtANote", "Note %1", Rule::Text, "Note"},
};
const GridColumn kOwnColumns[] = {
    {"txtAsset", "Asset %1"},
    {"txtADate", "Date %1", Rule::Date},
    {"txtAValue", "Value %1"},
    {"txtANote", "Note %1"},
};

QString Line(const char* control, int line) {
    return QString::fromLatin1(control) + QStringLiteral("(%1)").arg(line);
}

}  // namespace

frmAssets::frmAssets(QWidget* parent) : SectionScreen(kAssetsSection, parent) {
    setWindowTitle(QStringLiteral("Assets"));
    QWidget* lines = FieldGrid(kSharedColumns, 1, kSharedLines);
    FieldGrid(kOwnColumns, kSharedLines + 1, kLines, lines);
    auto* grid = static_cast<QGridLayout*>(lines->layout());
    for (int line = kSharedLines + 1; line <= kLines; ++line) {
        auto* details = Named<QLabel>(Line("lblADetails", line), tr("Details"), lines);
        details->setForegroundRole(QPalette::Link);
        ConnectClick(details, [this, line] { lblADetails_Click(line); });
        grid->addWidget(details, line, kDetailsColumn);
    }
    Arrange({{lines}});
    // The net value stands on the bottom line.
    txtATotal = Named<QLineEdit>(QStringLiteral("txtATotal"), this);
    txtATotal->setReadOnly(true);
    txtATotal->setFocusPolicy(Qt::NoFocus);
    UseMoneyFont(txtATotal);
    txtATotal->setFixedWidth(Box(Line("txtAValue", 1))->sizeHint().width());
    // Beside it the date of the statement, txtADate(20), checked after the
    // dates of the lines.
    QWidget* statementDate = MakeBox(Line("txtADate", kLines + 1),
                                     QStringLiteral("Date %1").arg(kLines + 1), Rule::Date, this);
    AddCommand(new QLabel(tr("Net value of assets"), this));
    AddCommand(statementDate);
    AddCommand(txtATotal);
    FitShortBoxes(this);
    TightenRows(lines);

    // A description is kept as its image when its box is entered
    // (txtAsset_GotFocus), and asked about when it is left changed.
    common_ = new CommonTexts(
        this, [] { return kCommonRow; }, QStringLiteral("You have changed an asset description."),
        [] { return kCommonRow; }, QString::fromLatin1(kFormName));
    // As wide as the descriptions the client table holds for its own lines.
    const int width = ClientFieldWidth(QStringLiteral("Assets"), QStringLiteral("Asset 16"));
    for (int line = 1; line <= kSharedLines; ++line) {
        QLineEdit* description = Box(Line("txtAsset", line));
        common_->Add(line, description, QStringLiteral("txtAsset_LostFocus"));
        description->setMaxLength(width);  // narrower than other shared texts
    }
    ReadCommonAlongside({kCommonRow, [this](const dao::Recordset& row) { common_->Fill(row); }});
    // Leaving a value (txtAValue_LostFocus) rewrites it, then shows the total.
    for (int line = 1; line <= kLines; ++line) {
        values_.push_back(new MoneyBox(Box(Line("txtAValue", line)), [this] { ShowTotal(); }));
    }
    tmrTotal = Named<QTimer>(QStringLiteral("tmrTotal"), this);
    tmrTotal->setSingleShot(true);
    connect(tmrTotal, &QTimer::timeout, this, &frmAssets::tmrTotal_Timer);
    tmrTotal->start(kTotalDelay);
}

void frmAssets::ReadAlongside() {
    ShowTotal();
}

void frmAssets::BeforeWrite() {
    common_->FinishTyping();
    for (MoneyBox* value : values_) {
        value->FinishTyping();
    }
}

// Exact sums of the figures as the boxes read: a bracketed text reads as
// nothing, so only a figure typed with its minus sign takes anything off.
void frmAssets::ShowTotal() {
    Currency total;
    for (const MoneyBox* value : values_) {
        total += value->Value();
    }
    txtATotal->setText(MoneyTotalText(total));
}

void frmAssets::tmrTotal_Timer() {
    tmrTotal->stop();
    ShowTotal();
}

void frmAssets::lblADetails_Click(int line) {
    AssetPage = static_cast<quint8>(line);
    ShowModal(QStringLiteral("frmAssetsExt"));
}

}  // namespace quillon
