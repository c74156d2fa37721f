#pragma once
// Descriptions shared by every client of a database, kept in one row of table
// `Common`: box i shows `Text i`. A changed description is asked about when its
// box is left and written at once on Yes; on No the box takes back what it
// held. The values of each client stay on their row number whatever the
// description now says.

#include "data/client_rows.h"

#include <QObject>
#include <QString>

#include <functional>
#include <map>

class QLineEdit;

namespace quillon {

class CommonTexts : public QObject {
public:
    // `row` names the `Common` row; `firstLine` opens the question, whose title
    // `title` gives; failures are reported under `module`.
    CommonTexts(QObject* parent, std::function<QString()> row, QString firstLine,
                std::function<QString()> title, QString module);

    // Box `index` shows `Text index`; its changes are reported as `procedure`.
    void Add(int index, QLineEdit* box, const QString& procedure);
    // Fills the boxes and their images from the row, then hands the row to
    // `more`; failures are reported as `procedure`.
    void Read(const QString& procedure, const RowReader& more = nullptr);
    // Fills the boxes and their images from the row `row` stands on.
    void Fill(const dao::Recordset& row);
    // Asks about the box that has the focus, as leaving it would: a save by a
    // button that takes no focus must not pass over a changed description.
    void FinishTyping();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        QLineEdit* box;
        QString procedure;
        QString image;
    };

    void Left(int index, Entry& entry);

    std::function<QString()> row_;
    QString firstLine_;
    std::function<QString()> title_;
    QString module_;
    std::map<int, Entry> entries_;
};

}  // namespace quillon
