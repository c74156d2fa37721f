#include "correspondence/merge_picker_gui.h"

#include "correspondence/correspondence_state.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/frmQuillon.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <exception>

namespace quillon {

MergePicker::MergePicker(const PickerTexts& texts, const char* mergeErrorTitle, QWidget* parent)
    : NamePicker(texts, parent), mergeErrorTitle_(mergeErrorTitle) {
    auto* frame = Named<QGroupBox>(QStringLiteral("fraOptions"), tr("Data file options"), this);
    chkUseQuotes = Named<QCheckBox>(QStringLiteral("chkUseQuotes"), tr("Use quotes"), frame);
    chkUseQuotes->setChecked(UseQuotes);
    txtDelimiter = Named<QLineEdit>(QStringLiteral("txtDelimiter"), FieldDelimiter, frame);
    auto* form = new QFormLayout(frame);
    form->addRow(chkUseQuotes);
    form->addRow(tr("Field delimiter"), txtDelimiter);
    OptionsArea()->addWidget(frame);
    cm3Merge = Named<QPushButton>(QStringLiteral("cm3Merge"), tr("&Merge"), this);
    AddCommand(cm3Merge);

    connect(chkUseQuotes, &QCheckBox::toggled, this, [](bool on) { UseQuotes = on; });
    connect(txtDelimiter, &QLineEdit::textChanged, this,
            [](const QString& text) { FieldDelimiter = text; });
    connect(cm3Merge, &QPushButton::clicked, this, &MergePicker::cm3Merge_Click);
}

bool AskToWriteMergeFile(const QString& title) {
    SetProgressText(QStringLiteral("CREATE MERGE DATA FILE"));
    const int answer =
        MsgBox(QStringLiteral("The following mail merge data file will be created:") +
                   QStringLiteral("\n\n") + MergeFilePath() + QStringLiteral("\n\n") +
                   QStringLiteral("This file can be merged with a word processor document"),
               vbOKCancel | vbInformation, title);
    if (answer != vbOK) {
        SetProgressText(QString());
    }
    return answer == vbOK;
}

void MergePicker::cm3Merge_Click() {
    if (!AskToWriteMergeFile(windowTitle())) {
        return;
    }
    ErrorDetails failure;
    bool written = true;
    {
        WaitPointer wait;
        try {
            WriteMerge(PathOnDisk(MergeFilePath(LowerCaseFile())), SelectedEntries(),
                       ShowRecordProgress);
        } catch (const std::exception& error) {
            failure = DetailsOf(error);
            written = false;
        }
        SetProgressText(QString());
    }
    if (!written) {
        ReportFailure(QStringLiteral("cm3Merge_Click"), failure, mergeErrorTitle_);
    }
}

}  // namespace quillon
