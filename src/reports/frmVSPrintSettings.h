#pragma once
// Report Settings: the printer, page offsets and scale for paper and for PDF,
// duplex, text alignment, fonts, preview kind and the report greys. The
// controls hold the changes; closing the form stores them in the application
// state, which the configuration file takes at its next writing.

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTabBar;

namespace quillon {

class frmVSPrintSettings : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmVSPrintSettings";

    explicit frmVSPrintSettings(QWidget* parent = nullptr);

    QTabBar* tbsSettings;
    QStackedWidget* panels;
    std::array<QWidget*, 4> picSettings{};

    QComboBox* cmbPrinter;
    QPushButton* cmdSetup;
    QLineEdit* txtVSLeft;
    QLineEdit* txtVSTop;
    QLineEdit* txtVSScale;
    std::array<QRadioButton*, 3> optDuplexMode{};

    QLineEdit* txtPDFLeft;
    QLineEdit* txtPDFTop;
    QLineEdit* txtPDFScale;
    std::array<QRadioButton*, 2> optFile{};
    QLineEdit* txtFile;

    std::array<QRadioButton*, 2> optFont{};  // "Times New Roman", "Arial"
    std::array<QRadioButton*, 2> optPreview{};
    std::array<QRadioButton*, 2> optSection{};
    std::array<QRadioButton*, 3> optTicks{};  // 0 and 2 only
    QCheckBox* chkShading;
    QLineEdit* txtBlack;
    QLineEdit* txtDark;
    QLineEdit* txtLight;
    QLineEdit* txtWhite;
    QCheckBox* chkDuplexPadding;
    QLineEdit* txtAlignMethod;
    QLineEdit* txtAlignH;
    QLineEdit* txtAlignV;

    QCheckBox* Chkdefaultchildbenefit;
    QPushButton* cmdDefaults;
    QPushButton* cmdClose;

    void done(int result) override;

public Q_SLOTS:
    void tbsSettings_Click();
    void cmdSetup_Click();
    void cmdDefaults_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildPrintPanel();
    QWidget* BuildFilesPanel();
    QWidget* BuildDocumentPanel();
    QWidget* BuildMessagesPanel();
    QGroupBox* BuildPageSetup(QWidget* parent, QLineEdit** left, QLineEdit** top, QLineEdit** scale,
                              const QString& prefix);
    QLineEdit* MakeBox(const QString& name, QWidget* parent);
    void ClampOnLeaving(QLineEdit* box, int lowest, int highest);
    void SelectPrinter(const QString& name);
    void FillPrinters();
    void ShowSettings();
    void StoreSettings();

    struct Clamp {
        QLineEdit* box;
        int lowest;
        int highest;
    };
    std::vector<Clamp> clamps_;
    bool unloaded_ = false;
};

// Shows the Report Settings modally over `parent`.
void ShowReportSettings(QWidget* parent);

}  // namespace quillon
