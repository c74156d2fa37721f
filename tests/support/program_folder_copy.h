#pragma once
// A program folder of its own for one test: a temporary folder named Quillon2
// holding copies of the delivered databases, at which the program is pointed
// for as long as the object lives. The build's own program folder is never
// written.

#include <QString>
#include <QTemporaryDir>

namespace quillon::testing {

class ProgramFolderCopy {
public:
    // With `withDatabases` false the folder starts empty.
    explicit ProgramFolderCopy(bool withDatabases = true);
    ~ProgramFolderCopy();
    ProgramFolderCopy(const ProgramFolderCopy&) = delete;
    ProgramFolderCopy& operator=(const ProgramFolderCopy&) = delete;

    QString Path() const { return path_; }
    QString File(const QString& name) const;
    // A further folder beside the program folder, made on first use.
    QString Sibling(const QString& name) const;
    // The ConfigFile's text, or empty when there is none.
    QByteArray ConfigText() const;
    void WriteConfig(const QByteArray& text) const;

private:
    QTemporaryDir root_;
    QString path_;
};

// Copies every delivered database file from the build's program folder into `folder`.
void CopyDeliveredDatabases(const QString& folder);

}  // namespace quillon::testing
