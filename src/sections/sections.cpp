#include "sections/sections.h"

#include "sections/section_state.h"

#include <iterator>

namespace quillon {

namespace {

const SectionRow kSections[] = {
    {kPersonalSection, "frmPersonal", "Personal", " (Personal)", true, &PersonalFirst,
     &PersonalLast, nullptr, false},
    {kEmploymentSection, "frmEmployment", "Employment %1", " (Employment {page})", true,
     &EmploymentFirst, &EmploymentLast, &EmploymentPage, true},
    {kBusinessSection, "frmBusiness", "Business %1", " (Business {page})", true, &BusinessFirst,
     &BusinessLast, &BusinessPage, true},
    {kAssetsSection, "frmAssets", "Assets", " (Assets)", true, &AssetsFirst, &AssetsLast, nullptr,
     false},
    {kContributionsSection, "frmContributions", "Contributions", " (Pension Contributions)", true,
     &ContributionsFirst, &ContributionsLast, nullptr, false},
    {kAdministrationSection, "frmAdministration", "Administration", " (Administration)", false,
     &AdministrationFirst, &AdministrationLast, nullptr, false},
    {kUserSection, "frmUser", "User", " ({detail})", false, &UserFirst, &UserLast, nullptr, false},
    {kDiarySection, "frmDiary", "Diary %1", " ({detail} Diary)", false, &DiaryFirst, &DiaryLast,
     &DiaryPage, false},
};
static_assert(std::size(kSections) == kSectionCount);

}  // namespace

const SectionRow* Section(int number) {
    return number >= 1 && number <= kSectionCount ? &kSections[number - 1] : nullptr;
}

const SectionRow* SectionOfForm(const QString& name) {
    for (const SectionRow& row : kSections) {
        if (name == QLatin1String(row.form)) {
            return &row;
        }
    }
    return nullptr;
}

const QStringList& SectionFormNames() {
    static const QStringList names = [] {
        QStringList list;
        for (const SectionRow& row : kSections) {
            list << QString::fromLatin1(row.form);
        }
        return list;
    }();
    return names;
}

QString SectionTableName(const SectionRow& section, int page) {
    const QString table = QString::fromLatin1(section.table);
    return section.page ? table.arg(page) : table;
}

QString SectionCaption(const SectionRow& section, const QString& client, int page,
                       const QString& detail) {
    QString caption = QString::fromLatin1(section.caption);
    caption.replace(QLatin1String("{page}"), QString::number(page));
    caption.replace(QLatin1String("{detail}"), detail);
    return client + caption;
}

}  // namespace quillon
