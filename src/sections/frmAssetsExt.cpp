#include "sections/frmAssetsExt.h"

#include "data/client_rows.h"
#include "data/validate.h"
#include "platform/widgets_gui.h"
#include "sections/frmAssets.h"
#include "sections/key_routine_filter_gui.h"
#include "sections/money_box_gui.h"
#include "sections/section_screen_gui.h"
#include "sections/section_state.h"
#include "shell/forms_gui.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

namespace {

const QString kModule = QString::fromLatin1(frmAssetsExt::kFormName);
// After the details close, the net total on frmAssets is done again this soon.
constexpr int kTotalAgain = 100;

ClientName AssetsClient() {
    return {AssetsFirst, AssetsLast};
}

}  // namespace

frmAssetsExt::frmAssetsExt(QWidget* parent)
    : QDialog(parent), line_(AssetPage), image_(QStringLiteral("Asset %1").arg(AssetPage)) {
    setObjectName(kModule);
    setWindowTitle(QStringLiteral("Assets"));
    BuildLines();
    CentreOverAssets();
    WaitPointer wait;
    ReadCRecord();
    Loading = false;
}

void frmAssetsExt::BuildLines() {
    auto* lines = new QGridLayout;
    lines->setHorizontalSpacing(4);
    lines->setVerticalSpacing(2);
    const char* heads[] = {"Asset/(Liability)", "Date", "Value (\xa3)", "Note"};
    for (int c = 0; c < 4; ++c) {
        lines->addWidget(new QLabel(QString::fromLatin1(heads[c]), this), 0, c);
    }
    for (int i = 1; i <= kLines; ++i) {
        const QString suffix = QStringLiteral("(%1)").arg(i);
        const QString fields[] = {QStringLiteral("Asset %1"), QStringLiteral("Date %1"),
                                  QStringLiteral("Value %1"), QStringLiteral("Note %1")};
        const char* names[] = {"txtAsset", "txtADate", "txtAValue", "txtANote"};
        for (int c = 0; c < 4; ++c) {
            auto* box = Named<QLineEdit>(QString::fromLatin1(names[c]) + suffix, this);
            image_.BindText(box, fields[c].arg(i));
            lines->addWidget(box, i, c);
        }
        QLineEdit* date = Box(QStringLiteral("txtADate") + suffix);
        InstallKeyRoutine(date, DateKeyFilter);
        date->installEventFilter(this);
        dates_.push_back(date);
        values_.push_back(new MoneyBox(Box(QStringLiteral("txtAValue") + suffix), nullptr));
    }
    lines->setColumnStretch(0, 3);
    lines->setColumnStretch(3, 4);
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), tr("&Close"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lines);
    AddButtonRow(layout, {cm3Close});
    // A click on it must not first leave a bad date: the close tells it, once.
    cm3Close->setFocusPolicy(Qt::NoFocus);
    connect(cm3Close, &QPushButton::clicked, this, &QDialog::close);
}

// Centred over the assets screen, wherever the main window has it.
void frmAssetsExt::CentreOverAssets() {
    adjustSize();
    resize(std::max(width(), 640), height());
    CentreOverForm(this, QString::fromLatin1(frmAssets::kFormName));
}

QLineEdit* frmAssetsExt::Box(const QString& name) const {
    return Control<QLineEdit>(this, name);
}

void frmAssetsExt::ReadCRecord() {
    ReadClientRow({kModule, QStringLiteral("ReadCRecord")}, QStringLiteral("Asset %1").arg(line_),
                  AssetsClient(), [this](const dao::Recordset& row) {
                      image_.Fill(row);
                      setWindowTitle(AssetsFirst + QLatin1Char(' ') + AssetsLast +
                                     QStringLiteral(" (Assets)"));
                  });
}

void frmAssetsExt::WriteCRecord() {
    if (Loading) {
        return;
    }
    ChangeClientRow({kModule, QStringLiteral("WriteCRecord")},
                    QStringLiteral("Asset %1").arg(line_), AssetsClient(),
                    [this](dao::Recordset& row) { image_.AssignChanged(row); });
}

bool frmAssetsExt::CheckDates() {
    for (QLineEdit* date : dates_) {
        if (!ValidDate(date->text())) {
            RejectDate(date);
            return true;
        }
    }
    return false;
}

void frmAssetsExt::RejectDate(QLineEdit* box) {
    InvalidDate();
    box->setFocus();
}

// Empty lines add nothing: details with no values give the line an empty value.
void frmAssetsExt::ShowTotal() {
    Currency total;
    for (const MoneyBox* value : values_) {
        total += value->Value();
    }
    auto* assets = qobject_cast<frmAssets*>(LoadedForm(QString::fromLatin1(frmAssets::kFormName)));
    if (!assets) {
        return;
    }
    // Into frmAssets' txtAValue(row), which that screen's own save stores.
    if (QLineEdit* box = assets->Box(QStringLiteral("txtAValue(%1)").arg(line_))) {
        box->setText(MoneyTotalText(total));
    }
    assets->tmrTotal->start(kTotalAgain);
}

void frmAssetsExt::reject() {
    close();
}

void frmAssetsExt::closeEvent(QCloseEvent* event) {
    if (CheckDates()) {
        event->ignore();
        return;
    }
    // The close button takes no focus: the value being typed is finished here.
    for (MoneyBox* value : values_) {
        value->FinishTyping();
    }
    ShowTotal();
    WriteCRecord();
    event->accept();
}

bool frmAssetsExt::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && FocusMovedByUser(event)) {
        auto* box = static_cast<QLineEdit*>(watched);
        if (!ValidDate(box->text())) {
            RejectDate(box);
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace quillon
