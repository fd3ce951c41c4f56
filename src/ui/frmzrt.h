#pragma once

#include "connection.h"
#include "maintenancerun.h"
#include "runhost.h"

#include <QWidget>

class Dialogs;
class PictureButton;
class QComboBox;
class QLabel;
class QProgressBar;
class mdZRT;

// The one window: the operator's three choices, the two picture buttons and
// the progress display that the run drives.
class frmZRT : public QWidget, private RunHost
{
    Q_OBJECT

public:
    frmZRT(mdZRT &module, ConnectionFactory listingConnections, Dialogs &dialogs, QWidget *parent = nullptr);

    void cmdProcess_Click();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Form_Load();
    void buildLayout();
    void combo_GotFocus(QComboBox *box);
    void combo_LostFocus(QComboBox *box);
    void cmbServer_LostFocus();
    void cmdEnd_Click();
    void discardInputQueuedDuringRun();

    // RunHost
    void setCaption(const QString &caption) override;
    void showWindow() override;
    void setProgressMaximum(int maximum) override;
    void bringToFront() override;
    void setProgress(int value) override;
    void yieldToPendingEvents() override;
    std::optional<DatabaseFile> chooseDatabaseFile() override;
    void hideProcessButton() override;
    void showEndButton() override;

    mdZRT &m_module;
    ConnectionFactory m_listingConnections;
    Dialogs &m_dialogs;
    CheckRecordsets m_checkRecordsets;
    QComboBox *m_focusedCombo = nullptr;

    QComboBox *cmbType;
    QComboBox *cmbServer;
    QComboBox *cmbDataBase;
    PictureButton *cmdProcess;
    PictureButton *cmdEnd;
    QProgressBar *ProgressBar1;
    QLabel *lblManageDatabase;
    QLabel *Label2;
};
