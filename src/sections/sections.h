#pragma once
// The eight sections of a client's record, as one table: which screen shows
// which table, under which caption, on which client, and what stops its save.
// The screens themselves are widgets (section_screen_gui.h); this part of them
// needs none.

#include <QString>
#include <QStringList>

namespace quillon {

// Section numbers, as ActiveSection holds them.
enum SectionNumber : qint16 {
    kPersonalSection = 1,
    kEmploymentSection = 2,
    kBusinessSection = 3,
    kAssetsSection = 4,
    kContributionsSection = 5,
    kAdministrationSection = 6,
    kUserSection = 7,
    kDiarySection = 8,
};
constexpr int kSectionCount = 8;
constexpr int kSectionPages = 4;

struct SectionRow {
    SectionNumber number;
    const char* form;
    // The table, "%1" standing for the page of a paged section; it is also the
    // key by which moves go through it.
    const char* table;
    // What follows the client in the window's caption: "{page}" is the page,
    // "{detail}" what the screen fills in itself.
    const char* caption;
    // Whether a bad date stops the save.
    bool dateGate;
    // The client whose row the screen has read and writes back to.
    QString* shownFirst;
    QString* shownLast;
    // The page of a paged section, 1 to 4; nullptr for the others.
    quint8* page;
    // Opening the section from the main window starts it at page 1.
    bool opensAtFirstPage;
};

// The row of section `number` (1 to 8), or of the form `name`; nullptr when
// there is none.
const SectionRow* Section(int number);
const SectionRow* SectionOfForm(const QString& name);

// "frmPersonal" to "frmDiary", in the order of their numbers.
const QStringList& SectionFormNames();

// The table that `section` shows on `page`.
QString SectionTableName(const SectionRow& section, int page);

// The window caption: the client, then the section.
QString SectionCaption(const SectionRow& section, const QString& client, int page,
                       const QString& detail);

}  // namespace quillon
