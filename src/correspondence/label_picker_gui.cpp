#include "correspondence/label_picker_gui.h"

#include "data/convert.h"
#include "data/validate.h"
#include "platform/widgets_gui.h"
#include "reports/printer_object.h"
#include "reports/vsprinter_control.h"
#include "sections/key_routine_filter_gui.h"
#include "shell/frmQuillon.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <exception>

namespace quillon {

namespace {

// Keeps the box's number within its range when the user leaves it.
void KeepWithin(QLineEdit* box, int lowest, int highest) {
    QObject::connect(box, &QLineEdit::editingFinished, box, [box, lowest, highest] {
        const int value = static_cast<int>(Val(box->text()));
        box->setText(QString::number(std::clamp(value, lowest, highest)));
    });
}

int Number(const QLineEdit* box) {
    return static_cast<int>(Val(box->text()));
}

}  // namespace

LabelPicker::LabelPicker(const PickerTexts& texts, const char* status, const char* errorTitle,
                         QWidget* parent)
    : NamePicker(texts, parent), status_(status), errorTitle_(errorTitle) {
    auto* frame = Named<QGroupBox>(QStringLiteral("fraPrint"), tr("Print options"), this);
    txtRow = Named<QLineEdit>(QStringLiteral("txtRow"), QStringLiteral("1"), frame);
    txtColumn = Named<QLineEdit>(QStringLiteral("txtColumn"), QStringLiteral("1"), frame);
    txtCopies = Named<QLineEdit>(QStringLiteral("txtCopies"), QStringLiteral("1"), frame);
    auto* form = new QFormLayout(frame);
    form->addRow(tr("First Row"), txtRow);
    form->addRow(tr("First Column"), txtColumn);
    form->addRow(tr("Copies"), txtCopies);
    OptionsArea()->addWidget(frame);
    KeepWithin(txtRow, 1, kLabelRows);
    KeepWithin(txtColumn, 1, kLabelColumns);
    KeepWithin(txtCopies, 1, kMostLabelCopies);
    InstallKeyRoutine(txtCopies, DigitKeyFilter);
    cm3Print = Named<QPushButton>(QStringLiteral("cm3Print"), tr("&Print"), this);
    AddCommand(cm3Print);
    connect(cm3Print, &QPushButton::clicked, this, &LabelPicker::cm3Print_Click);
}

bool PrintedLabels(const std::function<void()>& work, ErrorDetails& failure) {
    try {
        PrepareLabelPrinter();
        work();
        if (Printer.EndDoc()) {
            return true;
        }
        failure = {vsErrPrinter, Printer.LastError};
    } catch (const std::exception& error) {
        failure = DetailsOf(error);
    }
    Printer.KillDoc();
    return false;
}

void LabelPicker::cm3Print_Click() {
    ErrorDetails failure;
    bool printed = false;
    {
        SetProgressText(QLatin1String(status_));
        WaitPointer wait;
        const QStringList entries = SelectedEntries();
        const int copies = std::clamp(Number(txtCopies), 1, kMostLabelCopies);
        const int row = std::clamp(Number(txtRow), 1, kLabelRows) - 1;
        const int column = std::clamp(Number(txtColumn), 1, kLabelColumns) - 1;
        printed = PrintedLabels([&] { PrintLabels(entries, copies, row, column); }, failure);
        SetProgressText(QString());
    }
    if (!printed) {
        ReportFailure(QStringLiteral("cm3Print_Click"), failure, errorTitle_);
    }
}

}  // namespace quillon
