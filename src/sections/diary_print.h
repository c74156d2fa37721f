#pragma once
// The diary's two printouts on the plain printer: the list of clients that the
// filters have selected, and one client's diary page as a table of its twenty
// standard and twenty client events.

#include "sections/diary_clearing.h"

#include <QString>
#include <QStringList>

#include <array>

namespace quillon {

// One line of a client's diary: the standard event's date and description,
// the client event's date and description.
struct DiaryLine {
    QString standardDate;
    QString standardEvent;
    QString clientDate;
    QString clientEvent;
};

struct ClientDiary {
    QString client;  // first names, a blank, last name
    QString taxYear;
    std::array<DiaryLine, kDiaryEvents> lines;
};

// Each returns false after telling the user when the printer refused the job.
// `title` heads every page with the number of clients; every page has its
// number at the foot.
bool PrintDiaryList(const QStringList& clients, const QString& title);
bool PrintClientDiary(const ClientDiary& diary);

}  // namespace quillon
