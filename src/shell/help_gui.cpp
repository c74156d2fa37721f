#include "shell/help_gui.h"
#include "platform/widgets_gui.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace quillon {

namespace {

const char* const kGuide = "qrc:/quillon/help/user-guide.html";

class UserGuideWindow : public QDialog {
public:
    UserGuideWindow() {
        setObjectName(QStringLiteral("UserGuide"));
        setWindowTitle(QStringLiteral("Quillon Help"));
        setAttribute(Qt::WA_DeleteOnClose);
        resize(720, 560);
        auto* layout = new QVBoxLayout(this);
        auto* searchRow = new QHBoxLayout;
        layout->addLayout(searchRow);
        searchRow->addWidget(new QLabel(QStringLiteral("Find:"), this));
        findBox_ = Named<QLineEdit>(QStringLiteral("txtFind"), this);
        searchRow->addWidget(findBox_, 1);
        auto* findNext =
            Named<QPushButton>(QStringLiteral("cmdFindNext"), QStringLiteral("Find &Next"), this);
        searchRow->addWidget(findNext);
        notFound_ = new QLabel(this);
        searchRow->addWidget(notFound_);
        browser_ = Named<QTextBrowser>(QStringLiteral("txtGuide"), this);
        browser_->setSource(QUrl(QString::fromLatin1(kGuide)));
        layout->addWidget(browser_, 1);
        connect(findBox_, &QLineEdit::returnPressed, this, &UserGuideWindow::findNext);
        connect(findNext, &QPushButton::clicked, this, &UserGuideWindow::findNext);
    }

    void OpenAt(UserGuidePage page) {
        if (page == UserGuidePage::Contents) {
            browser_->setSource(QUrl(QString::fromLatin1(kGuide)));
            browser_->setFocus();
        } else {
            findBox_->setFocus();
            findBox_->selectAll();
        }
    }

private:
    // Searches on from the cursor, and round from the top once.
    void findNext() {
        const QString word = findBox_->text().trimmed();
        if (word.isEmpty()) {
            return;
        }
        bool found = browser_->find(word);
        if (!found) {
            browser_->moveCursor(QTextCursor::Start);
            found = browser_->find(word);
        }
        notFound_->setText(found ? QString() : QStringLiteral("Not found"));
    }

    QLineEdit* findBox_ = nullptr;
    QLabel* notFound_ = nullptr;
    QTextBrowser* browser_ = nullptr;
};

}  // namespace

void ShowUserGuide(UserGuidePage page) {
    static QPointer<UserGuideWindow> window;
    if (!window) {
        window = new UserGuideWindow;
    }
    window->show();
    window->raise();
    window->activateWindow();
    window->OpenAt(page);
}

}  // namespace quillon
