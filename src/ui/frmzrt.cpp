#include "frmzrt.h"

#include "combofocus.h"
#include "databaselisting.h"
#include "dialogs.h"
#include "mdzrt.h"
#include "picturebutton.h"
#include "runplan.h"

#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>

namespace {

constexpr char kDatabaseNotFound[] = "Database not found, please select the required account year database.";

QComboBox *makeCombo(const QString &name, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->setObjectName(name);
    box->setEditable(true);
    // What the box shows is what is used: no inline completion, and no
    // case-blind match that swaps a typed name for a listed one.
    box->setCompleter(nullptr);
    // Enter walks on to the next box; it must not add the typed text as an item.
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setAutoFillBackground(true);
    return box;
}

QLabel *makeLabel(const QString &name, const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setFont(QFont(QStringLiteral("MS Sans Serif"), 10, QFont::Bold));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

// Swallows the operator's presses, clicks and keys while it is installed.
class InputSwallower : public QObject
{
protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            return true;
        default:
            return false;
        }
    }
};

} // namespace

frmZRT::frmZRT(mdZRT &module, ConnectionFactory listingConnections, Dialogs &dialogs, QWidget *parent)
    : QWidget(parent)
    , m_module(module)
    , m_listingConnections(std::move(listingConnections))
    , m_dialogs(dialogs)
{
    setObjectName(QStringLiteral("frmZRT"));
    setWindowTitle(QCoreApplication::applicationName());
    setWindowIcon(QIcon(QStringLiteral(":/pictures/zrt.png")));
    buildLayout();
    Form_Load();
}

void frmZRT::buildLayout()
{
    cmbType = makeCombo(QStringLiteral("cmbType"), this);
    cmbServer = makeCombo(QStringLiteral("cmbServer"), this);
    cmbDataBase = makeCombo(QStringLiteral("cmbDataBase"), this);
    cmdProcess = new PictureButton(QStringLiteral("cmdProcess"), QStringLiteral(":/pictures/process.png"), this);
    cmdEnd = new PictureButton(QStringLiteral("cmdEnd"), QStringLiteral(":/pictures/end.png"), this);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);
    lblManageDatabase = makeLabel(QStringLiteral("lblManageDatabase"), QStringLiteral("0%"), this);
    Label2 = makeLabel(QStringLiteral("Label2"), QStringLiteral("LOADING"), this);
    cmdEnd->hide(); // shown by the run when it completes

    auto *lists = new QGridLayout;
    const std::pair<QString, QComboBox *> captioned[] = {
        {QStringLiteral("Mode"), cmbType}, {QStringLiteral("Server"), cmbServer}, {QStringLiteral("Database"), cmbDataBase}};
    for (int column = 0; column < 3; ++column) {
        auto *caption = new QLabel(captioned[column].first, this);
        caption->setFont(QFont(QStringLiteral("MS Sans Serif"), 8));
        caption->setBuddy(captioned[column].second); // names the box for assistive tools
        lists->addWidget(caption, 0, column);
        lists->addWidget(captioned[column].second, 1, column);
        lists->setColumnStretch(column, column == 2 ? 3 : 2);
    }
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdProcess);
    buttons->addWidget(cmdEnd);
    buttons->addStretch();
    auto *layout = new QGridLayout(this);
    layout->addLayout(lists, 0, 0);
    layout->addLayout(buttons, 1, 0);
    layout->addWidget(Label2, 2, 0);
    layout->addWidget(ProgressBar1, 3, 0);
    layout->addWidget(lblManageDatabase, 4, 0);
    resize(640, 240);

    setTabOrder(cmbType, cmbServer);
    setTabOrder(cmbServer, cmbDataBase);
    setTabOrder(cmbDataBase, cmdProcess);
    setTabOrder(cmdProcess, cmdEnd);

    for (QComboBox *box : {cmbType, cmbServer, cmbDataBase}) {
        UnhighlightCombo(box);
        box->installEventFilter(this);
    }
    connect(cmdProcess, &PictureButton::clicked, this, &frmZRT::cmdProcess_Click);
    // Whatever the key: its code is deliberately not looked at.
    connect(cmdProcess, &PictureButton::keyPressed, this, &frmZRT::cmdProcess_Click);
    connect(cmdEnd, &PictureButton::clicked, this, &frmZRT::cmdEnd_Click);
}

void frmZRT::Form_Load()
{
    cmbType->addItems({QStringLiteral("OFFLINE"), QStringLiteral("LOCAL"), QStringLiteral("ONLINE")});
    cmbType->setEditText(QStringLiteral("OFFLINE"));
    cmbServer->addItems({QStringLiteral("ACCOUNTS"), QStringLiteral("QUORVEX"), QStringLiteral("QUORVEXMAIN"),
                         QStringLiteral("LAPTOP"), QStringLiteral("SERVER")});
    cmbServer->setEditText(QStringLiteral("ACCOUNTS"));
}

bool frmZRT::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QComboBox *>(watched);
    if (!box)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::FocusIn:
        combo_GotFocus(box);
        break;
    case QEvent::FocusOut:
        // A switch to another window does not take the focus from the box
        // within this window, nor does a popup (its drop-down, its edit menu),
        // which hands the focus back when it closes. Where the focus went
        // decides, not the reason: a box's first drop-down is reported twice,
        // the second time with another reason.
        if (static_cast<QFocusEvent *>(event)->reason() != Qt::ActiveWindowFocusReason
            && !QApplication::activePopupWidget())
            combo_LostFocus(box);
        break;
    case QEvent::KeyPress:
        EnterAsTab(box, static_cast<QKeyEvent *>(event));
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void frmZRT::combo_GotFocus(QComboBox *box)
{
    if (m_focusedCombo == box)
        return;
    m_focusedCombo = box;
    HighlightCombo(box);
}

void frmZRT::combo_LostFocus(QComboBox *box)
{
    if (m_focusedCombo != box)
        return;
    m_focusedCombo = nullptr;
    UnhighlightCombo(box);
    if (box == cmbServer)
        cmbServer_LostFocus();
}

void frmZRT::cmbServer_LostFocus()
{
    cmbDataBase->clear();
    const ListingOutcome outcome = listDatabases(cmbType->currentText(), cmbServer->currentText(),
                                                 m_listingConnections,
                                                 [this](const QString &name) { cmbDataBase->addItem(name); });
    // The list offers the names; none is chosen until the operator picks one.
    cmbDataBase->setCurrentIndex(-1);
    if (outcome.failed())
        m_dialogs.critical(this, QString::fromLatin1(kConnectionNotEstablished));
}

void frmZRT::cmdProcess_Click()
{
    if (cmbDataBase->currentText().isEmpty()) {
        m_dialogs.critical(this, QString::fromLatin1(kDatabaseNotFound));
        cmbDataBase->setFocus(Qt::OtherFocusReason);
        return;
    }
    MaintenanceRun run(m_module, *this, m_checkRecordsets);
    run.run({cmbType->currentText(), cmbServer->currentText(), cmbDataBase->currentText()}, maintenanceSteps());
    discardInputQueuedDuringRun();
}

void frmZRT::discardInputQueuedDuringRun()
{
    // Presses made while the run blocked wait in the window system's queue;
    // delivered now they would land on cmdEnd, which stands where cmdProcess
    // stood, or start a second run. They belonged to the hidden button.
    InputSwallower swallower;
    QCoreApplication::instance()->installEventFilter(&swallower);
    QCoreApplication::processEvents();
    QCoreApplication::instance()->removeEventFilter(&swallower);
}

void frmZRT::cmdEnd_Click()
{
    QCoreApplication::quit();
}

void frmZRT::setCaption(const QString &caption)
{
    lblManageDatabase->setText(caption);
    lblManageDatabase->repaint(); // the run blocks the event loop
}

void frmZRT::showWindow()
{
    show();
}

void frmZRT::setProgressMaximum(int maximum)
{
    ProgressBar1->setMaximum(maximum);
}

void frmZRT::bringToFront()
{
    raise();
    activateWindow();
}

void frmZRT::setProgress(int value)
{
    ProgressBar1->setValue(value);
    ProgressBar1->repaint(); // the run blocks the event loop
}

void frmZRT::yieldToPendingEvents()
{
    QCoreApplication::processEvents();
}

std::optional<DatabaseFile> frmZRT::chooseDatabaseFile()
{
    return m_dialogs.chooseDatabaseFile(this);
}

void frmZRT::hideProcessButton()
{
    cmdProcess->hide();
}

void frmZRT::showEndButton()
{
    cmdEnd->show();
}
