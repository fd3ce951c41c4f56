#include "combofocus.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>

namespace {

// 6978561 in the 0x00BBGGRR layout: red 1, green 124, blue 106.
constexpr QRgb kHighlightBackground = qRgb(1, 124, 106);

void setComboColours(QComboBox *box, const QColor &background, const QColor &text)
{
    QPalette palette = box->palette();
    for (QPalette::ColorRole role : {QPalette::Base, QPalette::Button, QPalette::Window})
        palette.setColor(role, background);
    for (QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        palette.setColor(role, text);
    box->setPalette(palette);
}

} // namespace

void HighlightCombo(QComboBox *box)
{
    setComboColours(box, QColor(kHighlightBackground), Qt::white);
}

void UnhighlightCombo(QComboBox *box)
{
    setComboColours(box, Qt::white, Qt::black);
}

void EnterAsTab(QComboBox *box, const QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return;
    // Queued like a typed Tab, so the Enter is handled first.
    QCoreApplication::postEvent(box, new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier));
}
