#include "clients/client_list.h"

#include "data/data_access.h"

#include <QCollator>
#include <QCollatorSortKey>

#include <algorithm>
#include <vector>

namespace quillon {

QString ListTextOf(const ClientName& name) {
    return name.last + QStringLiteral(", ") + name.first;
}

QStringList ReadClientListTexts(const QString& databasePath) {
    dao::Database db = dao::OpenDatabase(databasePath);
    dao::Recordset clients =
        db.OpenRecordset(QStringLiteral("Clients"), dao::dbOpenTable, dao::dbReadOnly);
    const dao::Field first = clients.Fields(QStringLiteral("First Names"));
    const dao::Field last = clients.Fields(QStringLiteral("Last Name"));
    QStringList texts;
    // Without a row MoveFirst fails: the list reports it as its load's failure.
    clients.MoveFirst();
    while (!clients.IsEOF()) {
        texts.append(ListTextOf({NullToEmpty(first), NullToEmpty(last)}));
        clients.MoveNext();
    }
    clients.Close();
    db.Close();
    return texts;
}

void SortListTexts(QStringList& texts) {
    // Case is folded before collating, since not every platform's collation
    // can be told to ignore it; texts alike but for case keep their collated
    // order among themselves.
    QCollator collator;
    struct Entry {
        QCollatorSortKey folded;
        qsizetype index;
    };
    std::vector<Entry> entries;
    entries.reserve(texts.size());
    for (qsizetype i = 0; i < texts.size(); ++i) {
        entries.push_back({collator.sortKey(texts.at(i).toCaseFolded()), i});
    }
    // Texts alike but for case are rare: only they are collated as they stand.
    std::stable_sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        const int folded = a.folded.compare(b.folded);
        return folded != 0 ? folded < 0
                           : collator.compare(texts.at(a.index), texts.at(b.index)) < 0;
    });
    QStringList sorted;
    sorted.reserve(texts.size());
    for (const Entry& entry : entries) {
        sorted.append(texts.at(entry.index));
    }
    texts = std::move(sorted);
}

}  // namespace quillon
