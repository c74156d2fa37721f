#pragma once
// What the section screens share: the open section, the pages, where a screen
// opens and the client each screen has read.

#include <QString>

namespace quillon {

// The open section screen: 0 none, 1 Personal ... 8 Diary.
inline qint16 ActiveSection = 0;

inline quint8 EmploymentPage = 1;
inline quint8 BusinessPage = 1;
// Which of the tables `Asset 16` to `Asset 19` frmAssetsExt shows.
inline quint8 AssetPage = 1;
// Where the next section screen opens, in twips.
inline qint16 SectionTop = 0;
inline qint16 SectionLeft = 0;

// The client whose record each section screen has read; a screen writes back to
// its own pair so that a change of current client cannot redirect its data.
inline QString PersonalFirst, PersonalLast;
inline QString AdministrationFirst, AdministrationLast;
inline QString EmploymentFirst, EmploymentLast;
inline QString BusinessFirst, BusinessLast;
inline QString AssetsFirst, AssetsLast;
inline QString ContributionsFirst, ContributionsLast;
inline QString UserFirst, UserLast;
inline QString DiaryFirst, DiaryLast;

// The diary's tax year page, 1 to 4.
inline quint8 DiaryPage{};  // DIARY PAGE

}  // namespace quillon
