#pragma once
// The eight sections of a client's record: which screen shows which table, on
// which client, under which caption. The screens themselves are widgets
// (section_screen_gui.h); this part of them needs none.

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

// "frmPersonal" to "frmDiary", in the order of their numbers.
const QStringList& SectionFormNames();
QString SectionFormName(int section);

// The table that `section` shows on `page` (employments, businesses and the
// diary are paged 1 to 4); it is also the key by which moves go through it.
QString SectionTableName(int section, int page = 1);

// The window caption: the client, then the section. `detail` is what two
// sections put in it of their own: the user section's title, or the tax year
// text of a diary page.
QString SectionCaption(int section, const QString& client, int page, const QString& detail);

// Whether a bad date stops the section's saves. The administration and user
// sections have no dates to check.
bool SectionHasDateGate(int section);

// The client whose row `section` has read and writes back to.
struct ShownClient {
    QString* first;
    QString* last;
};
ShownClient SectionShownClient(int section);

}  // namespace quillon
