#include "reference/reference_dialogs_gui.h"

#include "clients/client_dialogs_gui.h"
#include "data/data_access.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reference/reference_files.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

constexpr int kOfficeNumberLength = 3;

}  // namespace

ReferenceDialog::ReferenceDialog(const QString& caption, const BoxRow& first, const BoxRow& second,
                                 QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(caption);
    auto* layout = new QVBoxLayout(this);
    grid_ = new QGridLayout;
    layout->addLayout(grid_);
    int row = 0;
    for (const BoxRow* box : {&first, &second}) {
        QLineEdit* edit = Named<QLineEdit>(QString::fromLatin1(box->name), this);
        edit->setMaxLength(box->width);
        edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * box->width);
        auto* label = new QLabel(QString::fromLatin1(box->label), this);
        label->setBuddy(edit);
        grid_->addWidget(label, row, 0);
        grid_->addWidget(edit, row, 1);
        connect(edit, &QLineEdit::textChanged, this, &ReferenceDialog::UpdateOK);
        boxes_[row++] = edit;
    }
    cm3OK = Named<QPushButton>(QStringLiteral("cm3OK"), QStringLiteral("&OK"), this);
    cm3OK->setDefault(true);
    cm3OK->setEnabled(false);
    cm3Cancel = Named<QPushButton>(QStringLiteral("cm3Cancel"), QStringLiteral("&Cancel"), this);
    AddButtonRow(layout, {cm3OK, cm3Cancel});
    connect(cm3OK, &QPushButton::clicked, this, [this] { cm3OK_Click(); });
    connect(cm3Cancel, &QPushButton::clicked, this, &QDialog::close);
}

void ReferenceDialog::UpdateOK() {
    cm3OK->setEnabled(Acceptable());
}

void ReferenceDialog::ReportFailure(const QString& title, const std::exception& error) const {
    MsgBox(ErrorReportText(objectName(), QStringLiteral("cm3OK_Click"), DetailsOf(error)),
           vbExclamation, title);
}

void ReferenceDialog::RecordGone(const QString& title) {
    Beep();
    // clang-format off
    MsgBox(QStringLiteral("The selected record could not be found in the database. It may have been deleted or renamed by another user."),
           vbExclamation, title);
    // clang-format on
}

void ReferenceDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!placed_) {
        placed_ = true;
        PlaceOverMainWindow(this);
    }
}

OfficeDialog::OfficeDialog(const QString& caption, QWidget* parent)
    : ReferenceDialog(caption, {"txtNumber", "Number", kOfficeNumberLength},
                      {"txtName", "Name", OfficeFieldWidth(QStringLiteral("Name"))}, parent) {
    txtNumber = Box(0);
    txtName = Box(1);
    ClientNameFilter::Install(txtName, ClientNameFilter::Part::Office);
}

bool OfficeDialog::Acceptable() const {
    return !txtName->text().isEmpty() && txtNumber->text().size() == kOfficeNumberLength;
}

ShareDialog::ShareDialog(const QString& caption, QWidget* parent)
    : ReferenceDialog(
          caption, {"txtCompany", "Company", DividendFieldWidth(QStringLiteral("Company"))},
          {"txtStock", "Description", DividendFieldWidth(QStringLiteral("Stock"))}, parent) {
    txtCompany = Box(0);
    txtStock = Box(1);
    // The comma would split the company from the stock in the list of shares.
    ClientNameFilter::Install(txtCompany, ClientNameFilter::Part::Last);
    chkFID = Named<QCheckBox>(QStringLiteral("chkFID"),
                              QStringLiteral("Foreign Income Dividend (FID)"), this);
    Grid()->addWidget(chkFID, 2, 1);
}

bool ShareDialog::Acceptable() const {
    return !txtCompany->text().isEmpty() && !txtStock->text().isEmpty();
}

}  // namespace quillon
