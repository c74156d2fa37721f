// Building a section screen's boxes from its tables.
#include "data/client_rows.h"
#include "data/ql_date.h"
#include "data/validate.h"
#include "platform/widgets_gui.h"
#include "sections/key_routine_filter_gui.h"
#include "sections/section_screen_gui.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace quillon {

namespace {

QString Text(const char* text) {
    return text ? QString::fromLatin1(text) : QString();
}

// Boxes of fields up to this width are made to their width.
constexpr int kShortField = 10;
// What a box needs beside its text: frame and margins.
constexpr int kBoxPadding = 14;

QGridLayout* CompactGrid(QWidget* parent) {
    auto* grid = new QGridLayout(parent);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(2);
    return grid;
}

}  // namespace

QWidget* SectionScreen::MakeBox(const QString& name, const QString& field, FieldRule rule,
                                QWidget* parent) {
    if (rule == FieldRule::Caption) {
        auto* label = Named<QLabel>(name, parent);
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setAlignment(Qt::AlignCenter);
        label->setAutoFillBackground(true);
        label->setBackgroundRole(QPalette::Base);
        image_.BindText(
            field, [label] { return label->text(); },
            [label](const QString& text) { label->setText(text); });
        return label;
    }
    if (rule == FieldRule::Note) {
        auto* note = Named<QPlainTextEdit>(name, parent);
        if (!field.isEmpty()) {
            image_.BindText(note, field);
        }
        return note;
    }
    auto* box = Named<QLineEdit>(name, parent);
    if (!field.isEmpty()) {
        image_.BindText(box, field, rule == FieldRule::BirthDate ? ExpandBirthYear : nullptr);
    }
    switch (rule) {
        case FieldRule::Date:
        case FieldRule::BirthDate:
            AddDateBox(box, rule);
            break;
        case FieldRule::Digits:
            InstallKeyRoutine(box, DigitKeyFilter);
            break;
        case FieldRule::Amount:
            InstallKeyRoutine(box, AmountKeyFilter);
            break;
        case FieldRule::Text:
        case FieldRule::Note:
        case FieldRule::Caption:
            break;
    }
    return box;
}

void SectionScreen::AddDateBox(QLineEdit* box, FieldRule rule) {
    const bool birth = rule == FieldRule::BirthDate;
    const auto test = birth ? ValidBirthDate : ValidDate;
    InstallKeyRoutine(box, DateKeyFilter);
    checkedOnLeaving_.emplace_back(box, static_cast<int>(checks_.size()));
    checks_.push_back(
        {box, [box, test] { return test(box->text()); }, birth ? InvalidBirthDate : InvalidDate});
    box->installEventFilter(this);
}

void SectionScreen::AddCheck(QLineEdit* focusBox, std::function<bool()> valid,
                             std::function<void()> tell, std::vector<QLineEdit*> leaving) {
    checks_.push_back({focusBox, std::move(valid), std::move(tell)});
    for (QLineEdit* box : leaving) {
        checkedOnLeaving_.emplace_back(box, -1);
        box->installEventFilter(this);
    }
}

QGroupBox* SectionScreen::FieldGroup(const QString& title, std::span<const FieldRow> rows) {
    auto* group = new QGroupBox(title, body_);
    QGridLayout* grid = CompactGrid(group);
    int line = -1;
    int column = 1;
    for (const FieldRow& row : rows) {
        const QString name = Text(row.control);
        if (row.label) {
            ++line;
            column = 1;
            if (*row.label) {
                grid->addWidget(new QLabel(Text(row.label), group), line, 0);
            }
        }
        QWidget* box = MakeBox(name, Text(row.field), row.rule, group);
        grid->addWidget(box, line, column++);
    }
    grid->setRowStretch(line + 1, 1);
    return group;
}

QWidget* SectionScreen::FieldGrid(std::span<const GridColumn> columns, int first, int last,
                                  QWidget* continued) {
    QWidget* panel = continued ? continued : new QWidget(body_);
    QGridLayout* grid =
        continued ? static_cast<QGridLayout*>(continued->layout()) : CompactGrid(panel);
    int top = 1;
    if (continued) {
        // The last row of a grid is the empty one that takes up what room is
        // left; the new rows take its place.
        top = grid->rowCount() - 1;
        grid->setRowStretch(top, 0);
    } else {
        for (int c = 0; c < static_cast<int>(columns.size()); ++c) {
            grid->addWidget(new QLabel(Text(columns[c].head), panel), 0, c);
        }
    }
    for (int i = first; i <= last; ++i) {
        for (int c = 0; c < static_cast<int>(columns.size()); ++c) {
            const GridColumn& column = columns[c];
            const QString name = Text(column.control) + QStringLiteral("(%1)").arg(i);
            const QString field = column.field ? Text(column.field).arg(i) : QString();
            grid->addWidget(MakeBox(name, field, column.rule, panel), top + i - first, c);
        }
    }
    grid->setRowStretch(top + last - first + 1, 1);
    return panel;
}

QGroupBox* SectionScreen::OptionGroupBox(const OptionField& options) {
    auto* group = new QGroupBox(Text(options.title), body_);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(2);
    std::vector<QAbstractButton*> buttons;
    for (size_t i = 0; i < options.captions.size(); ++i) {
        const QString name = Text(options.prefix) + QStringLiteral("(%1)").arg(i + 1);
        buttons.push_back(Named<QRadioButton>(name, Text(options.captions[i]), group));
        column->addWidget(buttons.back());
    }
    auto* clear = Named<QPushButton>(Text(options.clearButton), tr("Clear"), group);
    column->addWidget(clear);
    OptionGroup* bound = image_.BindOptions(std::move(buttons), Text(options.field));
    connect(clear, &QPushButton::clicked, this, [bound] { bound->Clear(); });
    return group;
}

QCheckBox* SectionScreen::FlagBox(const char* control, const char* caption, const char* field,
                                  const char* procedure) {
    auto* box = Named<QCheckBox>(Text(control), Text(caption), body_);
    image_.BindFlag(box, Text(field));
    connect(box, &QCheckBox::clicked, this, [this, box, field, procedure] {
        if (Loading || Reading) {
            return;
        }
        WaitPointer wait;
        const bool ticked = box->isChecked();
        ChangeClientRow(
            RoutineOf(Text(procedure)), TableName(), Shown(),
            [field, ticked](dao::Recordset& row) { row.Fields(Text(field)).SetValue(ticked); });
    });
    return box;
}

QWidget* SectionScreen::PageControls(const char* spin, const char* label) {
    auto* panel = new QWidget(body_);
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    pageSpin_ = Named<QSpinBox>(Text(spin), panel);
    pageSpin_->setRange(1, kSectionPages);
    pageSpin_->setWrapping(true);
    pageLabel_ = Named<QLabel>(Text(label), panel);
    row->addWidget(pageLabel_);
    row->addWidget(pageSpin_);
    connect(pageSpin_, &QSpinBox::valueChanged, this,
            [this](int page) { ChangePage(page - Page()); });
    return panel;
}

void SectionScreen::FitShortBoxes(QWidget* container) {
    for (QLineEdit* box : container->findChildren<QLineEdit*>()) {
        if (box->maxLength() <= kShortField) {
            const int room = box->fontMetrics().horizontalAdvance(QString(box->maxLength(), u'0'));
            box->setFixedWidth(room + kBoxPadding);
        }
    }
}

void SectionScreen::TightenRows(QWidget* grid) {
    QFont font = grid->font();
    const double line = QFontMetricsF(font).height();
    if (line > kDesignLineHeight) {
        font.setPointSizeF(font.pointSizeF() * kDesignLineHeight / line);
        grid->setFont(font);
    }
    auto* layout = static_cast<QGridLayout*>(grid->layout());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(1);
    // Boxes without their frame, a line apart: white cells ruled by the
    // background, as a statement is.
    // One pixel over the line keeps the text whole inside a box with no frame.
    const int height = grid->fontMetrics().height() + 1;
    for (QLineEdit* box : grid->findChildren<QLineEdit*>()) {
        box->setFrame(false);
        box->setFixedHeight(height);
    }
    for (QLabel* cell : grid->findChildren<QLabel*>()) {
        if (cell->frameShape() != QFrame::NoFrame) {
            cell->setFrameShape(QFrame::NoFrame);
            cell->setFixedHeight(height);
        }
    }
}

void SectionScreen::Arrange(std::initializer_list<std::initializer_list<QWidget*>> columns,
                            std::initializer_list<int> stretch) {
    auto* row = new QHBoxLayout(body_);
    row->setContentsMargins(0, 0, 0, 0);
    const int* factor = stretch.begin();
    for (const auto& widgets : columns) {
        auto* column = new QVBoxLayout;
        for (QWidget* widget : widgets) {
            column->addWidget(widget);
        }
        column->addStretch(1);
        row->addLayout(column, factor != stretch.end() ? *factor++ : 1);
    }
}

}  // namespace quillon
