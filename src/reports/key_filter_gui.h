#pragma once
// Keeps what the user types in a text box to a set of characters: other keys
// are dropped in silence, and pasted text loses what the set doesn't hold.
// Editing keys pass, and text the program puts in the box stands as it is.

#include <QObject>
#include <QString>

class QLineEdit;

namespace quillon {

class CharacterFilter : public QObject {
    Q_OBJECT

public:
    // Installs a filter on `box` that lets through only `allowed`.
    static void Install(QLineEdit* box, const QString& allowed);
    // Installs a filter on `box` that lets through all but `refused`.
    static void InstallRefusing(QLineEdit* box, const QString& refused);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CharacterFilter(QLineEdit* box, const QString& characters, bool refusing);
    bool Accepts(QChar c) const;
    void DropRefusedCharacters();

    QLineEdit* box_;
    QString characters_;
    bool refusing_;
};

}  // namespace quillon
