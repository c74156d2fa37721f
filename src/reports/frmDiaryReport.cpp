#include "reports/frmDiaryReport.h"

#include "correspondence/handed_lists_gui.h"
#include "correspondence/name_picker_gui.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reports/report_state.h"
#include "reports/vsprint.h"
#include "reports/vsprint_gui.h"
#include "sections/frmDiary.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"

#include <QEvent>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace quillon {

namespace {

const QString kModule = QStringLiteral("frmDiaryReport");
const QString kTitle = QStringLiteral("Diary Report");
const QString kConditionsCaption = QStringLiteral("Conditional report with:");
const QString kReferenceCaption = QStringLiteral("Use as reference:");
// clang-format off
const QString kConditionsHelp = QStringLiteral("Used to produce a report containing only clients associated with a particular Partner, Manager, Assistant or Tax Office. Enter the appropriate name or number exactly as it appears in the Administration window. You can use any combination of Partner, Manager, Assistant and Tax Office number, or leave blank for ") + QStringLiteral("\"all clients\".");
const QString kReferenceHelp = QStringLiteral("Used to identify the reference number from the Administration window which will appear alongside each client's name in the report.");
// clang-format on

// A condition's box, its caption and the setting its changes go to.
struct ConditionBox {
    const char* name;
    const char* caption;
    QString* setting;
};
const ConditionBox kConditions[] = {
    {"txtPartner", "Partner", &DiaryReportPartner},
    {"txtManager", "Manager", &DiaryReportManager},
    {"txtAssistant", "Assistant", &DiaryReportAssistant},
    {"txtOffice", "Tax Office Number", &DiaryReportOffice},
};

const char* const kReferenceCaptions[] = {"None", "Client reference", "National Insurance No.",
                                          "Taxpayer reference No."};

}  // namespace

frmDiaryReport::frmDiaryReport(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(kTitle);
    auto* frames = new QWidget(this);
    auto* frameColumn = new QVBoxLayout(frames);
    frameColumn->setContentsMargins(0, 0, 0, 0);
    frameColumn->addWidget(ConditionsFrame());
    frameColumn->addWidget(ReferenceFrame());
    pages_ = new QStackedLayout;
    pages_->addWidget(frames);
    pages_->addWidget(HelpPanel());
    cm3Print = Named<QPushButton>(QStringLiteral("cm3Print"), tr("&Print"), this);
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), tr("&Close"), this);
    cm3Help = Named<QPushButton>(QStringLiteral("cm3Help"), tr("&Help"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(pages_, 1);
    AddButtonRow(layout, {cm3Print, cm3Close, cm3Help});
    connect(cm3Print, &QPushButton::clicked, this, &frmDiaryReport::cm3Print_Click);
    connect(cm3Close, &QPushButton::clicked, this, &QDialog::reject);
    connect(cm3Help, &QPushButton::clicked, this, &frmDiaryReport::cm3Help_Click);
    Form_Load();
}

QWidget* frmDiaryReport::ConditionsFrame() {
    auto* frame = Named<QGroupBox>(QStringLiteral("fraConditions"), kConditionsCaption, this);
    auto* form = new QFormLayout(frame);
    for (const ConditionBox& condition : kConditions) {
        auto* box = Named<QLineEdit>(QLatin1String(condition.name), frame);
        form->addRow(QString::fromLatin1(condition.caption), box);
        QString* setting = condition.setting;
        connect(box, &QLineEdit::textChanged, this, [this, setting](const QString& text) {
            if (!loading_) {
                *setting = text.trimmed();
            }
        });
        connect(box, &QLineEdit::editingFinished, box,
                [box] { box->setText(box->text().trimmed()); });
    }
    txtPartner = Control<QLineEdit>(frame, QStringLiteral("txtPartner"));
    txtManager = Control<QLineEdit>(frame, QStringLiteral("txtManager"));
    txtAssistant = Control<QLineEdit>(frame, QStringLiteral("txtAssistant"));
    txtOffice = Control<QLineEdit>(frame, QStringLiteral("txtOffice"));
    return frame;
}

QWidget* frmDiaryReport::ReferenceFrame() {
    auto* frame = Named<QGroupBox>(QStringLiteral("fraReference"), kReferenceCaption, this);
    auto* column = new QVBoxLayout(frame);
    for (int i = 0; i < kReferences; ++i) {
        op3Reference[size_t(i)] = Named<QRadioButton>(QStringLiteral("op3Reference(%1)").arg(i),
                                                      QLatin1String(kReferenceCaptions[i]), frame);
        column->addWidget(op3Reference[size_t(i)]);
        connect(op3Reference[size_t(i)], &QRadioButton::clicked, this, [this, i] {
            if (!loading_) {
                DiaryReportReference = qint16(i);
            }
        });
    }
    return frame;
}

// The two frames' captions with what each is for; a click anywhere on it
// hides it again.
QFrame* frmDiaryReport::HelpPanel() {
    picHelp = Named<QFrame>(QStringLiteral("picHelp"), this);
    picHelp->setFrameShape(QFrame::Panel);
    picHelp->installEventFilter(this);
    auto* column = new QVBoxLayout(picHelp);
    for (const auto& [caption, text] :
         {std::pair{kConditionsCaption, kConditionsHelp}, {kReferenceCaption, kReferenceHelp}}) {
        auto* head = new QLabel(QStringLiteral("<b>%1</b>").arg(caption.toHtmlEscaped()), picHelp);
        auto* body = new QLabel(text, picHelp);
        body->setWordWrap(true);
        for (QLabel* label : {head, body}) {
            label->installEventFilter(this);
            column->addWidget(label);
        }
    }
    column->addStretch();
    return picHelp;
}

void frmDiaryReport::Form_Load() {
    for (const ConditionBox& condition : kConditions) {
        Control<QLineEdit>(this, QLatin1String(condition.name))->setText(*condition.setting);
    }
    const bool known = DiaryReportReference >= 0 && DiaryReportReference < kReferences;
    op3Reference[known ? size_t(DiaryReportReference) : 0]->setChecked(true);
    loading_ = false;
}

void frmDiaryReport::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!placed_) {
        placed_ = true;
        // Over the business screen, as the year-end list opens.
        CentreOverForm(this, QStringLiteral("frmBusiness"));
    }
}

bool frmDiaryReport::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress &&
        (watched == picHelp || watched->parent() == picHelp)) {
        pages_->setCurrentIndex(0);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmDiaryReport::cm3Help_Click() {
    pages_->setCurrentIndex(pages_->currentWidget() == picHelp ? 0 : 1);
}

DiaryReport frmDiaryReport::Report() const {
    DiaryReport report;
    report.sheet.partner = txtPartner->text().trimmed();
    report.sheet.manager = txtManager->text().trimmed();
    report.sheet.assistant = txtAssistant->text().trimmed();
    report.sheet.office = txtOffice->text().trimmed();
    report.reference = DiaryReportReference;
    const frmDiary* diary = LoadedForm<frmDiary>();
    if (!diary) {
        return report;
    }
    report.sheet.title = diary->txtTitle->text();
    report.sheet.taxYear = diary->txtDYear->text();
    for (int i = 1; i <= kDiaryEvents; ++i) {
        report.sheet.events << diary->Box(QStringLiteral("txtDSEvent(%1)").arg(i))->text();
    }
    report.diaryPage = diary->Page();
    report.entries = AllEntries(*diary->lstClients);
    return report;
}

void frmDiaryReport::cm3Print_Click() {
    ErrorDetails failure;
    DiaryReportOutcome outcome = DiaryReportOutcome::Refused;
    {
        const WaitPointer wait;
        ReportDestination = rdPreview;
        outcome = PrintDiaryReport(Report(), failure, ShowRecordProgress);
        SetProgressText(QString());
    }
    if (outcome == DiaryReportOutcome::Drawn) {
        ShowReportDocument();
    } else if (outcome == DiaryReportOutcome::Failed) {
        MsgBox(ErrorReportText(kModule, QStringLiteral("cm3Print_Click"), failure), vbExclamation,
               kTitle);
    }
}

// The conditions are the practice's: they stay for the next report. However it
// ends, the form is unloaded, so that the next opening starts afresh.
void frmDiaryReport::done(int result) {
    WriteConfiguration();
    QDialog::done(result);
    if (testAttribute(Qt::WA_DeleteOnClose)) {
        deleteLater();
    }
}

}  // namespace quillon
