#include "reports/frmForm64_8.h"

#include "data/client_rows.h"
#include "data/data_access.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reports/key_filter_gui.h"
#include "reports/report_state.h"
#include "reports/vsprint.h"
#include "reports/vsprint_gui.h"
#include "shell/variables.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <span>

namespace quillon {

namespace {

const QString kModule = QStringLiteral("frmForm64_8");
const QString kTitle = QStringLiteral("Form 64-8");
// clang-format off
const QString kInstruction = QStringLiteral("Enter all information that applies to this client then click on the Print button to preview and print");
// clang-format on
const QString kUpperCaseAndDigits =
    QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
constexpr int kUserRoleFirst = Qt::UserRole;
constexpr int kUserRoleLast = Qt::UserRole + 1;

// A box or a tick of the form, with its caption; `length` limits a box to
// the character boxes the form has for it, and a reference box takes only
// digits and capitals.
struct Item {
    const char* name;
    const char* caption;
    bool tick = false;
    int length = 0;
    bool reference = false;
};
constexpr bool kTick = true;

const Item kClientItems[] = {
    {"txtClientName", "Name"},           {"txtBusinessName", "Business"},
    {"txtClientAddress1", "Address"},    {"txtClientAddress2", ""},
    {"txtClientAddress3", ""},           {"txtClientAddress4", ""},
    {"txtClientPostcode", "Postcode"},   {"txtClientTelephone", "Telephone"},
    {"txtClientReference", "Reference"},
};
const Item kAgentItems[] = {
    {"txtAgentName", "Name"},           {"txtAgentAddress1", "Address"},
    {"txtAgentAddress2", ""},           {"txtAgentAddress3", ""},
    {"txtAgentAddress4", ""},           {"txtAgentPostcode", "Postcode"},
    {"txtAgentTelephone", "Telephone"}, {"txtAgentCodes", "Agent codes"},
};

struct Group {
    const char* name;
    const char* title;
    std::span<const Item> items;
};
const Item kTaxAffairs[] = {
    {"chkIndividual", "Individual", kTick},
    {"chkPartnership", "Partnership", kTick},
    {"chkTrust", "Trust", kTick},
    {"txtClientNINO", "NI number", false, 9, true},
    {"chkSelfEmployed", "Self employed", kTick},
    {"txtClientUTR", "UTR", false, 10, true},
    {"chkUTRNotIssued", "UTR not yet issued", kTick},
    {"chkStatementsToAgent", "Statements of Account to the agent", kTick},
};
const Item kTaxCredits[] = {
    {"chkTaxCredits", "Tax Credits", kTick},
    {"txtTaxCreditNINO", "NI number", false, 9, true},
    {"txtJointClaimant", "Joint claimant"},
    {"txtJointClaimantNINO", "Joint claimant's NI number", false, 9, true},
};
const Item kCorporationTax[] = {
    {"chkCorporationTax", "Corporation Tax", kTick},
    {"txtCompanyRegistration", "Registration number", false, 8, true},
    {"txtCompanyUTR", "Company's UTR", false, 10, true},
};
const Item kPaye[] = {
    {"chkPAYE", "Employer PAYE scheme", kTick},
    {"txtPAYEReference", "PAYE reference"},
    {"txtOfficeReference", "Accounts office reference"},
};
const Item kVat[] = {
    {"chkVAT", "VAT", kTick},
    {"txtVATRegistration", "Registration number", false, 9, true},
    {"chkVATNotRegistered", "Not yet registered", kTick},
};
const Group kMatters[] = {
    {"fraTaxAffairs", "Individual/Partnership/Trust Tax Affairs", kTaxAffairs},
    {"fraTaxCredits", "Tax Credits", kTaxCredits},
    {"fraCorporationTax", "Corporation Tax", kCorporationTax},
    {"fraPAYE", "Employer PAYE Scheme", kPaye},
    {"fraVAT", "VAT", kVat},
};

// The client types the three ticks stand for.
const std::pair<const char*, qint16> kTypeTicks[] = {
    {"chkIndividual", ctIndividual}, {"chkPartnership", ctPartnership}, {"chkTrust", ctTrust}};

bool IsTypeTick(const char* name) {
    return std::any_of(std::begin(kTypeTicks), std::end(kTypeTicks),
                       [name](const auto& tick) { return qstrcmp(tick.first, name) == 0; });
}

void RaiseToCapitals(QLineEdit* box) {
    CharacterFilter::Install(box, kUpperCaseAndDigits);
    QObject::connect(box, &QLineEdit::textEdited, box, [box](const QString& text) {
        const int cursor = box->cursorPosition();
        box->setText(text.toUpper());
        box->setCursorPosition(cursor);
    });
}

}  // namespace

frmForm64_8::frmForm64_8(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(kTitle);
    lstClients = Named<QListWidget>(QStringLiteral("lstClients"), this);
    QGridLayout* letters = MakeLetterButtons(this, QStringLiteral("cmdSeek"), cmdSeek,
                                             [this](int i) { SeekLetter(QChar(u'A' + i)); });
    auto* picking = new QVBoxLayout;
    picking->addLayout(letters);
    picking->addWidget(lstClients, 1);

    auto* people = new QVBoxLayout;
    people->addWidget(ClientGroup());
    people->addWidget(AgentGroup());
    people->addStretch();

    auto* columns = new QHBoxLayout;
    columns->addLayout(picking, 1);
    columns->addLayout(people, 2);
    columns->addWidget(MattersColumn(), 2);

    cmdPrint = Named<QPushButton>(QStringLiteral("cmdPrint"), tr("&Print"), this);
    cmdSave = Named<QPushButton>(QStringLiteral("cmdSave"), tr("&Save as PDF"), this);
    cmdClose = Named<QPushButton>(QStringLiteral("cmdClose"), tr("&Close"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addWidget(new QLabel(kInstruction, this));
    AddButtonRow(layout, {cmdPrint, cmdSave, cmdClose});

    connect(lstClients, &QListWidget::itemClicked, this, &frmForm64_8::lstClients_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmForm64_8::cmdPrint_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmForm64_8::cmdSave_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmForm64_8::reject);
    LoadClientList();
}

QGroupBox* frmForm64_8::MakeGroup(const QString& name, const QString& title) {
    return Named<QGroupBox>(name, title, this);
}

QLineEdit* frmForm64_8::Box(const QString& name) const {
    return Control<QLineEdit>(this, name);
}

QCheckBox* frmForm64_8::Tick(const QString& name) const {
    return Control<QCheckBox>(this, name);
}

namespace {

// Fills `group` with the boxes and ticks of `items`, one a line.
void AddItems(QGroupBox* group, std::span<const Item> items) {
    auto* form = new QFormLayout(group);
    for (const Item& item : items) {
        const QString name = QLatin1String(item.name);
        if (item.tick) {
            form->addRow(Named<QCheckBox>(name, QString::fromLatin1(item.caption), group));
            continue;
        }
        auto* box = Named<QLineEdit>(name, group);
        if (item.length > 0) {
            box->setMaxLength(item.length);
        }
        if (item.reference) {
            RaiseToCapitals(box);
        }
        form->addRow(QString::fromLatin1(item.caption), box);
    }
}

}  // namespace

QGroupBox* frmForm64_8::ClientGroup() {
    QGroupBox* group = MakeGroup(QStringLiteral("fraClient"), tr("Client"));
    AddItems(group, kClientItems);
    for (const Item& item : kClientItems) {
        connect(Box(QLatin1String(item.name)), &QLineEdit::editingFinished, this,
                &frmForm64_8::RefreshForm64State);
    }
    return group;
}

QGroupBox* frmForm64_8::AgentGroup() {
    QGroupBox* group = MakeGroup(QStringLiteral("fraAgent"), tr("Agent"));
    AddItems(group, kAgentItems);
    Box(QStringLiteral("txtAgentName"))->setText(AgentName);
    for (int line = 1; line <= kAgentAddressLines; ++line) {
        Box(QStringLiteral("txtAgentAddress%1").arg(line))->setText(AgentAddress.at(line));
    }
    Box(QStringLiteral("txtAgentPostcode"))->setText(AgentPostcode);
    Box(QStringLiteral("txtAgentTelephone"))->setText(AgentTelephone);
    Box(QStringLiteral("txtAgentCodes"))->setText(AgentCodes);
    return group;
}

QWidget* frmForm64_8::MattersColumn() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Group& matter : kMatters) {
        QGroupBox* group = MakeGroup(QLatin1String(matter.name), QString::fromLatin1(matter.title));
        AddItems(group, matter.items);
        layout->addWidget(group);
        for (const Item& item : matter.items) {
            if (!item.tick) {
                connect(Box(QLatin1String(item.name)), &QLineEdit::editingFinished, this,
                        &frmForm64_8::RefreshForm64State);
            } else if (!IsTypeTick(item.name)) {
                connect(Tick(QLatin1String(item.name)), &QCheckBox::clicked, this,
                        &frmForm64_8::RefreshForm64State);
            }
        }
    }
    layout->addStretch();
    for (const auto& [name, type] : kTypeTicks) {
        QCheckBox* tick = Tick(QLatin1String(name));
        connect(tick, &QCheckBox::clicked, this, [this, tick, type] { TakeTypeTick(tick, type); });
    }
    connect(Tick(QStringLiteral("chkStatementsToAgent")), &QCheckBox::clicked, this,
            [](bool ticked) { AgentStatements = ticked ? 1 : 0; });
    return column;
}

// Every client in name order, none selected.
void frmForm64_8::LoadClientList() {
    WaitPointer wait;
    try {
        dao::Database db = OpenClientDatabase();
        dao::Recordset personal = db.OpenRecordset(QStringLiteral("Personal"), dao::dbOpenTable);
        personal.SetIndex(QStringLiteral("Name"));
        for (personal.MoveFirst(); !personal.IsEOF(); personal.MoveNext()) {
            const QString first = NullToEmpty(personal.Fields(QStringLiteral("First Names")));
            const QString last = NullToEmpty(personal.Fields(QStringLiteral("Last Name")));
            auto* item = new QListWidgetItem(last + QStringLiteral(", ") + first, lstClients);
            item->setData(kUserRoleFirst, first);
            item->setData(kUserRoleLast, last);
        }
    } catch (const std::exception& error) {
        ReportError(kModule, QStringLiteral("LoadClientList"), error);
    }
    lstClients->setCurrentRow(-1);
    cmdPrint->setEnabled(false);
    cmdSave->setEnabled(false);
}

void frmForm64_8::SeekLetter(QChar letter) {
    const int row = FirstEntryBeginningWith(lstClients, letter);
    if (row < 0) {
        Beep();
        MsgBox(QStringLiteral("No client name beginning with ") + letter, vbExclamation,
               QStringLiteral("Client Letter"));
        return;
    }
    lstClients->setCurrentRow(row);
    lstClients->scrollToItem(lstClients->item(row), QAbstractItemView::PositionAtTop);
}

void frmForm64_8::lstClients_Click() {
    const QListWidgetItem* item = lstClients->currentItem();
    if (item == nullptr) {
        return;
    }
    WaitPointer wait;
    const ClientName name{item->data(kUserRoleFirst).toString(),
                          item->data(kUserRoleLast).toString()};
    if (const std::optional<Form64Client> client = ReadForm64Client(name)) {
        ShowClient(*client);
    }
}

void frmForm64_8::ShowClient(const Form64Client& client) {
    Box(QStringLiteral("txtClientName"))->setText(client.name);
    for (int line = 0; line < 4; ++line) {
        Box(QStringLiteral("txtClientAddress%1").arg(line + 1))->setText(client.address.at(line));
    }
    Box(QStringLiteral("txtClientPostcode"))->setText(client.postcode);
    Box(QStringLiteral("txtClientTelephone"))->setText(client.telephone);
    Box(QStringLiteral("txtClientReference"))->setText(client.reference);
    businessName_ = client.businessName;
    clientType_ = client.clientType;
    Box(QStringLiteral("txtClientNINO"))->setText(client.nino);
    Box(QStringLiteral("txtTaxCreditNINO"))->setText(client.nino);
    Box(QStringLiteral("txtClientUTR"))->setText(client.utr);
    Tick(QStringLiteral("chkStatementsToAgent"))
        ->setChecked(clientType_ != ctCompany && AgentStatements != 0);
    Tick(QStringLiteral("chkSelfEmployed"))->setChecked(client.selfEmployed);
    cmdSave->setEnabled(true);
    cmdPrint->setEnabled(true);
    RefreshForm64State();
}

void frmForm64_8::TakeTypeTick(QCheckBox* tick, qint16 type) {
    clientType_ = tick->isChecked() ? type : qint16(ctCompany);
    RefreshForm64State();
}

void frmForm64_8::EnableBox(const QString& name, bool enabled) {
    QLineEdit* box = Box(name);
    box->setEnabled(enabled);
    if (!enabled) {
        box->clear();
    }
}

void frmForm64_8::EnableTick(const QString& name, bool enabled) {
    QCheckBox* tick = Tick(name);
    tick->setEnabled(enabled);
    if (!enabled) {
        tick->setChecked(false);
    }
}

// Ticks, texts and enabled states from the form's state: what one choice rules
// out is emptied and greyed.
void frmForm64_8::RefreshForm64State() {
    for (QLineEdit* box : findChildren<QLineEdit*>()) {
        box->setText(box->text().trimmed());
    }
    const QString typed = Box(QStringLiteral("txtBusinessName"))->text();
    if (sender() == Box(QStringLiteral("txtBusinessName"))) {
        businessName_ = typed;
    }
    Box(QStringLiteral("txtBusinessName"))->setText(businessName_);
    for (const auto& [name, type] : kTypeTicks) {
        Tick(QLatin1String(name))->setChecked(clientType_ == type);
    }
    const bool company = clientType_ == ctCompany;
    const bool individual = clientType_ == ctIndividual;
    const auto ticked = [this](const char* name) { return Tick(QLatin1String(name))->isChecked(); };
    const auto empty = [this](const char* name) {
        return Box(QLatin1String(name))->text().isEmpty();
    };
    EnableTick(QStringLiteral("chkSelfEmployed"), individual);
    EnableBox(QStringLiteral("txtClientNINO"), individual);
    EnableBox(QStringLiteral("txtClientUTR"), !company);
    EnableTick(QStringLiteral("chkStatementsToAgent"), !company);
    EnableTick(QStringLiteral("chkUTRNotIssued"), !company && empty("txtClientUTR"));
    const bool taxCredits = ticked("chkTaxCredits");
    EnableBox(QStringLiteral("txtJointClaimant"), taxCredits);
    EnableBox(QStringLiteral("txtJointClaimantNINO"), taxCredits);
    EnableBox(QStringLiteral("txtTaxCreditNINO"), taxCredits && empty("txtClientNINO"));
    const bool corporationTax = ticked("chkCorporationTax");
    EnableBox(QStringLiteral("txtCompanyRegistration"), corporationTax);
    EnableBox(QStringLiteral("txtCompanyUTR"), corporationTax);
    const bool paye = ticked("chkPAYE");
    EnableBox(QStringLiteral("txtPAYEReference"), paye);
    EnableBox(QStringLiteral("txtOfficeReference"), paye);
    const bool vat = ticked("chkVAT");
    EnableBox(QStringLiteral("txtVATRegistration"), vat);
    EnableTick(QStringLiteral("chkVATNotRegistered"), vat && empty("txtVATRegistration"));
}

Form64Entries frmForm64_8::Entries() const {
    Form64Entries entries;
    entries.clientType = clientType_;
    for (const QLineEdit* box : findChildren<QLineEdit*>()) {
        entries.texts.insert(box->objectName(), box->text().trimmed());
    }
    for (const QCheckBox* tick : findChildren<QCheckBox*>()) {
        if (tick->isChecked()) {
            entries.ticked.insert(tick->objectName());
        }
    }
    return entries;
}

void frmForm64_8::cmdPrint_Click() {
    ReportDestination = rdPreview;
    if (PrintForm64(Entries())) {
        ShowReportDocument();
    }
}

// The file the user names for the form, or empty.
QString frmForm64_8::cdgSaveAsPDF() const {
    const QString folder = VSPDFFolder.isEmpty() ? DatabaseFolder.at(SelectedFile) : VSPDFFolder;
    const QString name = Form64PdfName(Box(QStringLiteral("txtClientName"))->text());
    return SaveFileName(QStringLiteral("Save As PDF"), QDir(folder).filePath(name),
                        DialogFilter(QStringLiteral("PDF files (*.pdf)|*.pdf")));
}

void frmForm64_8::cmdSave_Click() {
    const QString path = cdgSaveAsPDF();
    if (path.isEmpty()) {
        return;
    }
    VSPDFFolder = QDir::toNativeSeparators(QFileInfo(path).absolutePath());
    if (QFileInfo::exists(path) &&
        MsgBox(QStringLiteral("The file ") + path +
                   QStringLiteral(" already exits. Do you wish to replace it?"),
               vbYesNo, QStringLiteral("Save File")) == vbNo) {
        return;
    }
    ReportDestination = rdPdfFile;
    if (!PrintForm64(Entries())) {
        return;
    }
    VSConvertToPDF(path);
    if (VSPdfConverter().Error != vsErrNone) {
        const ErrorDetails details{kErrPathFileAccess, QStringLiteral("Path/File access error")};
        MsgBox(ErrorReportText(kModule, QStringLiteral("frmForm64_8_cmdSave"), details),
               vbExclamation, kTitle);
    }
}

// The agent's details are the practice's: they stay for the next form.
void frmForm64_8::done(int result) {
    const auto text = [this](const QString& name) { return Box(name)->text().trimmed(); };
    AgentName = text(QStringLiteral("txtAgentName"));
    for (int line = 1; line <= kAgentAddressLines; ++line) {
        AgentAddress[line] = text(QStringLiteral("txtAgentAddress%1").arg(line));
    }
    AgentPostcode = text(QStringLiteral("txtAgentPostcode"));
    AgentTelephone = text(QStringLiteral("txtAgentTelephone"));
    AgentCodes = text(QStringLiteral("txtAgentCodes"));
    QDialog::done(result);
}

}  // namespace quillon
