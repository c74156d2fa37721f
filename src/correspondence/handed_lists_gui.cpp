#include "correspondence/handed_lists_gui.h"

#include "correspondence/correspondence_state.h"
#include "correspondence/label_picker_gui.h"
#include "correspondence/merge_picker_gui.h"
#include "data/data_access.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/wait_pointer.h"
#include "reports/printer_object.h"
#include "shell/frmQuillon.h"

#include <QListWidget>

#include <exception>

namespace quillon {

namespace {

void Report(const char* module, const char* procedure, const ErrorDetails& failure,
            const char* title) {
    MsgBox(ErrorReportText(QLatin1String(module), QLatin1String(procedure), failure), vbExclamation,
           QLatin1String(title));
}

}  // namespace

QStringList AllEntries(const QListWidget& list) {
    QStringList entries;
    for (int row = 0; row < list.count(); ++row) {
        entries << list.item(row)->text();
    }
    return entries;
}

void MergeFile(const QListWidget& list) {
    if (!AskToWriteMergeFile(QString())) {
        return;
    }
    ErrorDetails failure;
    bool written = true;
    {
        WaitPointer wait;
        try {
            WriteClientMerge(PathOnDisk(MergeFilePath()), AllEntries(list),
                             ClientMergeLayout::HandedList, CurrentMergeOptions(),
                             ShowRecordProgress);
        } catch (const std::exception& error) {
            failure = DetailsOf(error);
            written = false;
        }
        SetProgressText(QString());
    }
    if (!written) {
        Report("basAccess", "MergeFile", failure, "Merge");
    }
}

void PrintClientLabels(const QListWidget& list) {
    ErrorDetails failure;
    const QStringList entries = AllEntries(list);
    bool printed = false;
    {
        WaitPointer wait;
        printed = PrintedLabels(
            [&entries] {
                LabelSheet sheet = ClientLabelSheet();
                PrintClientLabelsOf(entries, 1, AddressForLabels, sheet);
            },
            failure);
    }
    if (!printed) {
        Report("basPrint", "PrintClientLabels", failure, "Print Client Labels");
    }
}

void PrintList(const QListWidget& list, const QString& title) {
    PrintListReport(AllEntries(list), title, 1);
}

}  // namespace quillon
