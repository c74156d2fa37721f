#include "sections/sections.h"

#include "shell/variables.h"

namespace quillon {

const QStringList& SectionFormNames() {
    static const QStringList names = {
        QStringLiteral("frmPersonal"),      QStringLiteral("frmEmployment"),
        QStringLiteral("frmBusiness"),      QStringLiteral("frmAssets"),
        QStringLiteral("frmContributions"), QStringLiteral("frmAdministration"),
        QStringLiteral("frmUser"),          QStringLiteral("frmDiary"),
    };
    return names;
}

QString SectionFormName(int section) {
    return SectionFormNames().value(section - 1);
}

QString SectionTableName(int section, int page) {
    switch (section) {
        case kPersonalSection:
            return QStringLiteral("Personal");
        case kEmploymentSection:
            return QStringLiteral("Employment %1").arg(page);
        case kBusinessSection:
            return QStringLiteral("Business %1").arg(page);
        case kAssetsSection:
            return QStringLiteral("Assets");
        case kContributionsSection:
            return QStringLiteral("Contributions");
        case kAdministrationSection:
            return QStringLiteral("Administration");
        case kUserSection:
            return QStringLiteral("User");
        case kDiarySection:
            return QStringLiteral("Diary %1").arg(page);
        default:
            return QString();
    }
}

QString SectionCaption(int section, const QString& client, int page, const QString& detail) {
    switch (section) {
        case kPersonalSection:
            return client + QStringLiteral(" (Personal)");
        case kEmploymentSection:
            return client + QStringLiteral(" (Employment ") + QString::number(page) +
                   QLatin1Char(')');
        case kBusinessSection:
            return client + QStringLiteral(" (Business ") + QString::number(page) +
                   QLatin1Char(')');
        case kAssetsSection:
            return client + QStringLiteral(" (Assets)");
        case kContributionsSection:
            return client + QStringLiteral(" (Pension Contributions)");
        case kAdministrationSection:
            return client + QStringLiteral(" (Administration)");
        case kUserSection:
            return client + QStringLiteral(" (") + detail + QLatin1Char(')');
        case kDiarySection:
            return client + QStringLiteral(" (") + detail + QStringLiteral(" Diary)");
        default:
            return client;
    }
}

bool SectionHasDateGate(int section) {
    return section != kAdministrationSection && section != kUserSection;
}

ShownClient SectionShownClient(int section) {
    switch (section) {
        case kPersonalSection:
            return {&PersonalFirst, &PersonalLast};
        case kEmploymentSection:
            return {&EmploymentFirst, &EmploymentLast};
        case kBusinessSection:
            return {&BusinessFirst, &BusinessLast};
        case kAssetsSection:
            return {&AssetsFirst, &AssetsLast};
        case kContributionsSection:
            return {&ContributionsFirst, &ContributionsLast};
        case kAdministrationSection:
            return {&AdministrationFirst, &AdministrationLast};
        case kUserSection:
            return {&UserFirst, &UserLast};
        default:
            return {&DiaryFirst, &DiaryLast};
    }
}

}  // namespace quillon
